// The header of a document as it stands on screen, saved or not: what the lines follow while they are typed.
#pragma once

#include <optional>
#include <QDate>
#include <QHash>

#include "documents/DocumentKind.h"
#include "util/Decimal.h"

namespace velmar {

/// A number as typed that the columns can hold to the thousandth; nothing for any other text.
std::optional<Decimal> typedNumber(const QString& typed);

class TypedHeader {
 public:
  /// `texts` by HeaderField::key(): dates in ISO form, a ticked box is "-1".
  TypedHeader(const DocumentKind& kind, const QHash<QString, QString>& texts);

  const DocumentKind& kind() const { return *kind_; }
  const QHash<QString, QString>& texts() const { return texts_; }

  QString text(const QString& key) const { return texts_.value(key).trimmed(); }
  /// 0 for a text that is no number.
  Decimal number(const QString& key) const { return typedNumber(text(key)).value_or(Decimal(0)); }
  bool isTicked(const QString& key) const;
  /// The document's date.
  QDate date() const;
  /// Code of the partner; 0 when none is chosen.
  qint64 partner() const;

  /// Whether amounts are in foreign currency. A kind without the box always is.
  bool isForeign() const;
  /// Lei for one unit of the currency; 0 in lei.
  Decimal rate() const;
  /// Code of the VAT rate chosen; empty where the kind has none.
  QString vatRate() const;
  /// Percent of the VAT rate chosen.
  Decimal vatPercent() const;

  /// Puts a text into a field; the window shows it.
  void set(const QString& key, const QString& text);
  /// What set() changed since the last call.
  QHash<QString, QString> takeChanges();

 private:
  const HeaderField* field(HeaderFieldType type) const;

  const DocumentKind* kind_;
  QHash<QString, QString> texts_;
  QHash<QString, QString> changes_;
  mutable QHash<QString, Decimal> percents_;  ///< of the rates looked up
};

}  // namespace velmar
