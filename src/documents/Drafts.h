// The draft store of a document kind: its header and line table. Every write touches a draft alone, so a late
// keystroke at another workstation cannot change a validated document.
#pragma once

#include <optional>

#include "documents/Document.h"
#include "documents/DocumentKind.h"

namespace velmar {

/// A draft as a user sees it.
struct ShownDraft {
  Row header;
  std::vector<Row> lines;
};

class Drafts {
 public:
  explicit Drafts(const DocumentKind& kind) : kind_(kind) {}

  /// Drafts of the working warehouse, newest first unless the kind tells otherwise: number, date and
  /// partner's name (NUME).
  Recordset list() const;

  /// Header and lines of a document, draft or validated; nothing when there is no such number.
  std::optional<Document> load(const QString& number) const;

  /// The stored draft. Throws RuleError when it is no draft any more, or header or lines differ from what is
  /// shown; the columns of the fiscal receipt may differ. The caller has the write lock.
  Document requireAsShown(const ShownDraft& shown) const;

  /// Throws RuleError when the number is taken or a text is too long.
  void insertHeader(const Row& header) const;

  /// Stores every column but the number, the warehouse, the flag of validation and what tells of the fiscal
  /// receipt. Throws RuleError when that would change what the receipt tells.
  void updateHeader(const Row& header) const;

  /// Stores a new line behind the others and sets its NRLINIE. As the two below, throws RuleError when the
  /// draft takes no lines any more, or its header or that line differ from what is shown.
  void insertLine(Row& line, const Row& shownHeader) const;
  /// Stores the columns of a line that differ from the line as it is shown.
  void updateLine(const Row& line, const Row& shownHeader, const Row& shownLine) const;
  void deleteLine(const Row& shownHeader, const Row& shownLine) const;
  /// Stores those columns of the lines, of a draft that the caller has locked.
  void updateColumns(const std::vector<Row>& lines, const QStringList& columns) const;

  /// Deletes header and lines.
  void remove(const QString& number) const;

  /// Marks the draft as validated.
  void setValidated(const QString& number) const;

  /// Begins the next attempt to print the fiscal receipt of a draft, behind the one that is known, and gives
  /// it. Throws RuleError when it was printed, or another attempt has begun, meanwhile.
  qint64 beginReceipt(const QString& number, qint64 known) const;
  /// Ends the attempt. A receipt that was printed counts whatever became of the attempt meanwhile.
  void endReceipt(const QString& number, qint64 attempt, bool isPrinted) const;

 private:
  QString whereLinesOpen() const;
  void requireOpen(const Row& shownHeader) const;
  void requireLine(const Row& shownLine) const;
  void requireSameHeader(const Row& stored, const Row& shown) const;
  void requireChanged(int rows, const QString& number) const;

  const DocumentKind& kind_;
};

}  // namespace velmar
