// The draft store of a document kind: its header and line table. Writes only affect drafts, so a late
// keystroke at another workstation cannot change a validated document.
#pragma once

#include "documents/DocumentStore.h"

namespace velmar {

/// A draft as shown to a user.
struct ShownDraft {
  Row header;
  std::vector<Row> lines;
};

class Drafts : public DocumentStore {
 public:
  using DocumentStore::DocumentStore;

  Recordset list() const override;

  /// The stored draft. Throws RuleError when it is no longer a draft, or header or lines differ from those
  /// shown; the columns of the fiscal receipt may differ. The caller has the write lock.
  Document requireAsShown(const ShownDraft& shown) const;

  /// Throws RuleError when the number is taken or a text is too long.
  void insertHeader(const Row& header) const;

  /// Stores all columns except the number, the warehouse, the validation flag and those of the fiscal
  /// receipt. Throws RuleError when that would change values printed on the receipt.
  void updateHeader(const Row& header) const;

  /// Stores a new last line and sets its NRLINIE. As the next two functions, throws RuleError when the lines
  /// of the draft can no longer be changed, or its header or that line differ from those shown.
  void insertLine(Row& line, const Row& shownHeader) const;
  /// Stores new last lines and sets their NRLINIE, of a draft that the caller has locked and required to be
  /// as shown.
  void insertLines(std::vector<Row>& lines) const;
  /// Stores the columns of a line that differ from the line shown.
  void updateLine(const Row& line, const Row& shownHeader, const Row& shownLine) const;
  void deleteLine(const Row& shownHeader, const Row& shownLine) const;
  /// Stores all columns of the lines, of a draft that the caller has locked.
  void updateLines(const std::vector<Row>& lines) const;
  /// Stores those columns of the lines, of a draft that the caller has locked.
  void updateColumns(const std::vector<Row>& lines, const QStringList& columns) const;

  /// Deletes all lines of a draft that the caller has locked.
  void deleteLines(const QString& number) const;
  /// Deletes header and lines.
  void remove(const QString& number) const;

  /// Marks the draft as validated, or a validated document as draft; the document that a kind without a draft
  /// is made from as turned round, or not. Throws RuleError when it is so already.
  void setValidated(const QString& number, bool is) const;

  /// Begins the attempt after `known` to print the fiscal receipt of a draft and returns its number. Throws
  /// RuleError when the receipt was printed, or another attempt has begun, in the meantime.
  qint64 beginReceipt(const QString& number, qint64 known) const;
  /// Ends the attempt. A printed receipt is recorded even if the attempt is no longer the current one.
  void endReceipt(const QString& number, qint64 attempt, bool isPrinted) const;

 private:
  QString whereLinesOpen() const;
  void requireOpen(const Row& shownHeader) const;
  void requireLine(const Row& shownLine) const;
  void requireSameHeader(const Row& stored, const Row& shown) const;
  void requireChanged(int rows, const QString& number) const;
};

}  // namespace velmar
