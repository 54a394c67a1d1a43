// The editor of quantity bands, without the screen: the discounts of one article, or those of a family, which
// are a template until they are applied to its articles. Bands of one owner follow each other without a gap.
#pragma once

#include <optional>
#include <QString>
#include <vector>

#include "store/Row.h"

namespace velmar {

/// A band of quantities; both ends belong to it.
struct DiscountBand {
  std::optional<qint64> id;  ///< `ID_Discount`; nothing while the band is not stored
  int CantMin = 1;
  int CantMax = 0;   ///< means nothing while the band is not stored
  Decimal Discount;  ///< percent; means nothing while the band is not stored

  friend bool operator==(const DiscountBand&, const DiscountBand&) = default;
};

/// What stands in the three boxes, as typed.
struct TypedBand {
  QString CantMin, CantMax, Discount;
};

class DiscountBands {
 public:
  static DiscountBands ofFamily(qint64 code);
  static DiscountBands ofArticle(const QString& code);

  /// In order; a band that is not stored can only be the last.
  const std::vector<DiscountBand>& bands() const { return bands_; }
  int count() const { return static_cast<int>(bands_.size()); }

  /// Stores what was typed as the band at that place, as the first band in an empty list; of a band that
  /// others follow the discount alone. Throws RuleError for the first thing wrong and stores nothing. Where
  /// another workstation has changed the bands meanwhile, here and below, they are read anew and the user is
  /// told.
  void save(int place, const TypedBand& typed);

  /// Adds a band, not stored yet, behind the last and gives its place; one that already waits there is given
  /// instead.
  int add();

  /// Deletes the band at that place. Throws RuleError unless it is the last.
  void remove(int place);

  /// Puts the stored bands of a family in place of those of all its articles.
  void applyToArticles();

 private:
  DiscountBands() = default;
  bool isFamily() const { return family_.has_value(); }
  Value owner() const;
  std::vector<DiscountBand> stored() const;
  /// Reads the stored bands anew and forgets one that is not stored.
  void reload();
  /// As reload(), but a band that waits to be stored goes on waiting.
  void readStored();
  void requireOwner() const;
  void requireUnchanged();
  void requireContiguous(const DiscountBand& last) const;
  bool waits() const { return !bands_.empty() && !bands_.back().id; }  ///< the last one is not stored

  std::optional<qint64> family_;
  QString article_;
  std::vector<DiscountBand> bands_;
};

}  // namespace velmar
