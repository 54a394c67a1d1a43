// The source of lines of a palet: the goods that came in under that mark.
#pragma once

#include "documents/LineSource.h"

namespace velmar {

class PaletSource : public LineSource {
 public:
  PaletSource() : LineSource(std::nullopt) {}

  QString namedIn(const TypedHeader& header) const override;
  AddedLines lines(const Document& document, TypedHeader& header, const QString& palet) const override;

 protected:
  /// Sets what the kind has of its own. `line` has article, name, unit, quantity and palet; `entry` is the
  /// ledger line of the goods with their article's sale prices.
  virtual void complete(Row& line, const Row& entry, const TypedHeader& header) const = 0;
  /// Called with all lines.
  virtual void completeAll(std::vector<Row>& /*lines*/, const Document& /*document*/,
                           const TypedHeader& /*header*/) const {}
};

/// The palet in the header's field; empty for none ("0" is none).
QString typedPalet(const TypedHeader& header);

/// Whether goods of the palet have left a warehouse.
bool hasLeft(const QString& palet);

}  // namespace velmar
