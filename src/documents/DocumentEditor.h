// The editing logic of one document: its life cycle from new through draft to validation, its lines and
// totals. Used by the document windows, services and tests.
#pragma once

#include <QHash>

#include "documents/CashReceipt.h"
#include "documents/Drafts.h"
#include "documents/KindRules.h"
#include "documents/LineCells.h"
#include "documents/Numbering.h"

namespace velmar {

class DocumentEditor {
 public:
  /// Throws StoreError for a kind that is not supported yet.
  explicit DocumentEditor(const QString& prefix);

  const DocumentKind& kind() const { return kind_; }
  Drafts drafts() const { return Drafts(kind_); }

  /// Starts a new document, dated today; returns a warning about the range of numbers, or "".
  QString newDocument();
  /// Opens a draft, or the document from which one is made; returns a warning about the range of numbers, or
  /// "". Throws RuleError when it no longer exists.
  QString open(const QString& number);

  /// The texts of the header, by HeaderField::key(); dates in ISO format.
  const QHash<QString, QString>& headerTexts() const { return typed_.texts(); }
  /// Sets the header as shown on screen; the lines follow it, saved or not. Returns whether amounts of lines
  /// have changed; they are stored together with the header's VAT rate, with the next write at the latest.
  bool headerTyped(const QHash<QString, QString>& texts);
  /// As headerTyped(), after a choice in a field; also sets the fields that depend on it.
  bool headerChosen(const QString& key, const QHash<QString, QString>& texts);
  /// Whether the typed header of a saved document differs from the stored one.
  bool headerDiffers(const QHash<QString, QString>& texts) const;
  /// The changes made to header fields since the last call, to be shown.
  QHash<QString, QString> takeHeaderChanges() { return typed_.takeChanges(); }

  bool isNew() const { return isNew_; }
  bool numberLocked() const { return numberLocked_; }
  QString number() const { return header_.text(kind_.numberColumn); }
  const Row& header() const { return header_; }
  /// Whether the lines cannot be changed: their fiscal receipt is, or may be, printed, or they are those of a
  /// validated document.
  bool isFrozen() const { return !kind_.hasDraft || isPrinted() || isSending(); }
  /// Whether the fiscal receipt was printed, as far as this editor knows.
  bool isPrinted() const;
  const std::vector<Row>& lines() const { return lines_; }
  bool isTotal(const QString& column) const { return totals_.contains(column); }
  /// The sum of a total column over the lines.
  Decimal total(const QString& column) const { return totals_.value(column); }

  /// Checks the header as typed and stores it: inserts a new document, updates a draft. Texts are trimmed, an
  /// empty percentage becomes 0. Throws RuleError naming the column at fault; nothing is then changed.
  void save(const QHash<QString, QString>& typed);

  /// Why a text is refused in a cell; `line` equal to the number of lines is the new line.
  CellVerdict check(size_t line, const QString& field, const QString& typed, bool bySupplierCode) const;

  /// The document on screen.
  Document onScreen() const;
  /// Whether lines can be typed below those of the document.
  bool takesTypedLines() const { return takesTypedLines_; }

  /// Adds what the source offers under that number, with all checks: stores the lines and the fields of the
  /// header that follow from the source, in one transaction. False: the user does not want it.
  bool addLines(const LineSource& source, const QString& number, const QHash<QString, QString>& typed);
  /// Fills a stored document without lines from what its header names; returns whether lines were added.
  bool fillFromHeader(const QHash<QString, QString>& typed);

  /// Whether the cell is editable. `line` equal to the number of lines is the new line.
  bool isOpen(size_t line, const QString& field) const;

  /// Adds the article as a new line, or sets it on an existing one, and stores the line. `listText` is the
  /// text of the list entry that was chosen, "" when the code was typed; the flag means that `code` is the
  /// supplier's. Returns the line's position.
  size_t setArticle(size_t line, const QString& code, const QString& listText = {},
                    bool bySupplierCode = false);

  /// Stores a number in a line, rounded as specified for its column, and the values that depend on it. The
  /// text has passed check().
  void setNumber(size_t line, const QString& field, const QString& typed);

  void deleteLine(size_t line);

  /// How the line is highlighted.
  LineMark mark(size_t line) const { return line < marks_.size() ? marks_[line] : LineMark::None; }
  /// Updates the marks of the lines for the last header that was set.
  void refreshMarks();

  /// What the user must know when the window opens.
  QStringList openingNotices() const;

  /// The checks of the typed header before the question; throws RuleError for the first that fails. False:
  /// the user does not want to go on. Then lines whose amounts do not match quantity and price, or the VAT
  /// rate, are recalculated and stored.
  bool checkValidation(const QHash<QString, QString>& typed);
  /// The checks of the lines on screen after the question, as checkValidation(). Those of the stock and all
  /// that other workstations change are made by validate().
  bool checkLines() const;
  /// Validates the draft; newDocument() must follow. Throws RuleError or StepError; nothing is then written.
  void validate(const QHash<QString, QString>& typed);

  /// The checks of the typed header before printing, as checkValidation().
  bool checkPrinting(const QHash<QString, QString>& typed);
  /// Prints the receipt of a cash sale with all checks, and reads the draft again. Throws as
  /// printCashReceipt() and checkPrinting().
  ReceiptOutcome printReceipt(const QHash<QString, QString>& typed);

  /// Reads the stored draft when another user has changed it; returns whether that is so. A typed field that
  /// the other user did not change keeps its text. Throws RuleError when the draft no longer exists.
  bool followStored(const QHash<QString, QString>& typed);

  /// Reads the draft again when its fiscal receipt was sent or printed meanwhile; returns whether that is so.
  /// Throws RuleError when the draft no longer exists.
  bool followReceipt();

  /// Throws RuleError when the document on screen cannot be deleted.
  void checkDeletion() const;
  /// Deletes the draft on screen with its lines.
  void remove();

 private:
  bool isSending() const;
  QString startFrom(const QString& number);
  void reopen(const QString& number);
  void fillNewHeader(const ProposedNumber& proposed);
  void store(size_t line, Row row);
  bool followRate();
  QStringList storedNumbers() const;
  bool ratesDiffer() const;
  std::vector<Row> changedLines() const;
  Row headerWithRate() const;
  bool isRateStored() const { return shownRate_ == storedRate_; }
  void storeRate();
  void storeTypedRates();
  bool percentChanges(const Row& header) const;
  void storeHeader(const Row& header);
  ShownDraft shownDraft() const { return {header_, storedLines_}; }
  void refreshStaleLines();
  void linesChanged();

  const DocumentKind& kind_;
  const KindRules* rules_;
  Row header_;
  TypedHeader typed_;
  std::vector<Row> lines_;
  /// As last read or written; lines_ may follow a rate that is not stored yet.
  std::vector<Row> storedLines_;
  QString storedRate_;  ///< code of the VAT rate on the stored header
  QString shownRate_;   ///< code of the VAT rate used to calculate lines_
  std::vector<LineMark> marks_;
  QHash<QString, Decimal> totals_;
  bool takesTypedLines_ = false;
  bool isNew_ = true;
  bool numberLocked_ = false;
};

}  // namespace velmar
