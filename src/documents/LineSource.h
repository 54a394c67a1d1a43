// Sources of lines: what is offered to the user beside a document, or named in its header, and the lines that
// it adds to the document.
#pragma once

#include "documents/Checks.h"
#include "documents/Document.h"
#include "documents/Notices.h"

namespace velmar {

/// The list of a source beside the drafts.
struct SourceList {
  QString control;  ///< known name; empty: the source has no list
  QString frame;    ///< known name of the frame around it
  QString caption;
  QString numberColumn, dateColumn;  ///< of the offered rows, which also have the partner's name (NUME)
  QString partnerCaption;
  QString emptyText;
};

/// What a source adds to a document.
struct AddedLines {
  std::vector<Row> lines = {};  ///< rows of the line table; the document's number and NRLINIE are set later
  bool replaces = false;        ///< all lines that the document has are deleted
  QString notice = {};          ///< for the user, after they are stored
};

class LineSource {
 public:
  /// `kind` of the documents that the lines come from; empty: they come from no document. A line that comes
  /// from a document has its key in the document kind's sourceColumn.
  explicit LineSource(std::optional<KindId> kind, SourceList list = {})
      : kind_(kind), list_(std::move(list)) {}
  virtual ~LineSource() = default;

  const std::optional<KindId>& kind() const { return kind_; }
  const SourceList& list() const { return list_; }

  /// Whether the list is shown beside the document.
  virtual bool isShown(const Document& document) const;
  /// Whether its rows can be chosen.
  virtual bool isEnabled(const Document& document) const;
  /// The rows of the list.
  virtual Recordset offer(const Document& document) const;

  /// What a document without lines is filled from as soon as its header is saved; empty: nothing.
  virtual QString namedIn(const TypedHeader& header) const;

  /// The checks before lines are added, in order. `number` is that of the chosen row.
  virtual Checks checks(const QString& number) const = 0;

  /// The lines to add. Sets the fields of the header that follow from the source. Throws RuleError.
  virtual AddedLines lines(const Document& document, TypedHeader& header, const QString& number) const = 0;

  /// Called in the transaction that stores the added lines.
  virtual void added(const Document& document, const QString& number) const;
  /// Called in the transaction that leaves the document without lines.
  virtual void emptied(const QString& document) const;

  /// Whether the cell of a line that came from here can be edited, if the kind's column can.
  virtual bool isOpen(const QString& field) const;
  /// Whether lines can be typed below those that came from here.
  virtual bool allowsTypedLines() const;

 private:
  std::optional<KindId> kind_;
  SourceList list_;
};

// Checks of sources.
/// The document has a number and is stored; the messages otherwise.
Checks addedToStored(const QString& withoutNumber, const QString& unsaved);
/// The question whether to add it; `what` as in "avizul".
Check sureToAdd(const QString& what, const QString& number);
/// The question whether to add it although this document (%2), or another one, has lines of it already; with
/// the kinds of Exista2 that find them.
Check askedAgain(const QString& onThis, const QString& onAnother, const QString& number,
                 const QString& findsOnThis, const QString& findsOnAnother);

/// The source of the kind that the line came from; null for a typed line.
const LineSource* sourceOf(const DocumentKind& kind, const Row& line);

/// Whether the document's first line came from a document of that kind.
bool comesFrom(const Document& document, KindId source);

}  // namespace velmar
