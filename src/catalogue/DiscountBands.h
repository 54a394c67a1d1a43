// The editing logic of quantity bands: the discounts of one article, or those of a family, which are a
// template until they are applied to its articles. The bands of one owner are contiguous.
#pragma once

#include <optional>
#include <QString>
#include <vector>

#include "store/Row.h"

namespace velmar {

/// A band of quantities, both ends included.
struct DiscountBand {
  std::optional<qint64> id;  ///< `ID_Discount`; empty while the band is not stored
  int CantMin = 1;
  int CantMax = 0;   ///< undefined while the band is not stored
  Decimal Discount;  ///< percent; undefined while the band is not stored

  friend bool operator==(const DiscountBand&, const DiscountBand&) = default;
};

/// The typed texts of the three boxes.
struct TypedBand {
  QString CantMin, CantMax, Discount;
};

class DiscountBands {
 public:
  static DiscountBands ofFamily(qint64 code);
  static DiscountBands ofArticle(const QString& code);

  /// Ordered by quantity; only the last band can be one that is not stored yet.
  const std::vector<DiscountBand>& bands() const { return bands_; }
  int count() const { return static_cast<int>(bands_.size()); }

  /// Stores the typed band at that position, or as the first one in an empty list; of any band but the last
  /// only the discount can change. Throws RuleError for the first fault and stores nothing. If another
  /// workstation has changed the bands, this and the following functions read them again and throw.
  void save(int place, const TypedBand& typed);

  /// Appends a band that is not stored yet, unless there already is one, and returns its position.
  int add();

  /// Deletes the band at that position. Throws RuleError unless it is the last.
  void remove(int place);

  /// Replaces the bands of all articles of the family by the stored bands of the family.
  void applyToArticles();

 private:
  DiscountBands() = default;
  bool isFamily() const { return family_.has_value(); }
  Value owner() const;
  std::vector<DiscountBand> stored() const;
  /// Reads the stored bands again and discards one that is not stored.
  void reload();
  /// As reload(), but keeps a band that is not stored yet.
  void readStored();
  void requireOwner() const;
  void requireUnchanged();
  void requireContiguous(const DiscountBand& last) const;
  bool hasUnstored() const { return !bands_.empty() && !bands_.back().id; }

  std::optional<qint64> family_;
  QString article_;
  std::vector<DiscountBand> bands_;
};

}  // namespace velmar
