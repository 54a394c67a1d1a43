// The header of a document as shown on screen, saved or not, on which the lines depend during entry.
#pragma once

#include <optional>
#include <QDate>
#include <QHash>

#include "documents/DocumentKind.h"
#include "util/Decimal.h"

namespace velmar {

/// A typed number that the columns can store to the thousandth; empty for any other text.
std::optional<Decimal> typedNumber(const QString& typed);

class TypedHeader {
 public:
  /// `texts` by HeaderField::key(): dates in ISO form, a ticked box is "-1".
  TypedHeader(const DocumentKind& kind, const QHash<QString, QString>& texts);

  const DocumentKind& kind() const { return *kind_; }
  const QHash<QString, QString>& texts() const { return texts_; }

  QString text(const QString& key) const { return texts_.value(key).trimmed(); }
  /// 0 for a text that is not a number.
  Decimal number(const QString& key) const { return typedNumber(text(key)).value_or(Decimal(0)); }
  bool isTicked(const QString& key) const;
  /// The document's date.
  QDate date() const;
  /// Code of the partner; 0 when none is chosen.
  qint64 partner() const;

  /// Whether amounts are in foreign currency; always true for a kind that has a currency but not the box.
  bool isForeign() const;
  /// Lei for one unit of the currency; 0 in lei.
  Decimal rate() const;
  /// Code of the chosen cost centre; empty if none is chosen.
  QString costCentre() const;
  /// Code of the chosen VAT rate; empty if the kind has none.
  QString vatRate() const;
  /// Percentage of the chosen VAT rate, or the typed one.
  Decimal vatPercent() const;

  /// Sets the text of a field; the window then shows it.
  void set(const QString& key, const QString& text);
  /// The changes by set() since the last call.
  QHash<QString, QString> takeChanges();

 private:
  const DocumentKind* kind_;
  QHash<QString, QString> texts_;
  QHash<QString, QString> changes_;
  mutable QHash<QString, Decimal> percents_;  ///< of the rates looked up
};

}  // namespace velmar
