// A document: its header and lines, and what its validation writes.
#pragma once

#include <QHash>

#include "documents/TypedHeader.h"
#include "stock/Links.h"
#include "store/Row.h"

namespace velmar {

struct Document {
  const DocumentKind* kind = nullptr;
  QString number;          ///< as stored; empty for a new document
  Row header;              ///< a row of the kind's header table
  std::vector<Row> lines;  ///< rows of its line table, by NRLINIE
  /// The header as shown on screen, by HeaderField::key(), for values that no table stores.
  QHash<QString, QString> texts = {};
  bool isNew = false;   ///< not stored yet
  QString origin = {};  ///< of a kind without a draft, at validation: number of the document it is made from

  TypedHeader typed() const { return {*kind, texts}; }
  bool isPrinted() const;  ///< its fiscal receipt
  QDate date() const;      ///< as stored
  qint64 warehouse() const;
};

/// What the lines came from, if they came from an order or a note.
std::vector<TakenLine> takenBy(const DocumentKind& kind, const std::vector<Row>& lines);

/// The articles of the lines, each once.
QStringList articlesOf(const std::vector<Row>& lines);

}  // namespace velmar
