// One document on screen, without the screen: new, draft, its lines, its totals, and the road to validation.
// The document windows show it; services and tests drive it the same way.
#pragma once

#include <QHash>

#include "documents/CashReceipt.h"
#include "documents/Drafts.h"
#include "documents/KindRules.h"
#include "documents/Numbering.h"

namespace velmar {

class DocumentEditor {
 public:
  /// Throws StoreError for a kind that cannot be kept yet.
  explicit DocumentEditor(const QString& prefix);

  const DocumentKind& kind() const { return kind_; }
  Drafts drafts() const { return Drafts(kind_); }

  /// Clears for a new document, dated today; gives a warning about the range of numbers, "" for none.
  QString newDocument();
  /// Shows a draft. Throws RuleError when it is gone.
  void open(const QString& number);

  /// What the header on screen should show, by HeaderField::key(); dates in ISO form.
  const QHash<QString, QString>& headerTexts() const { return typed_.texts(); }
  /// Takes the header as it is on screen: the lines follow it, saved or not. Returns whether amounts of lines
  /// have changed with it; they are stored together with the header's VAT rate, at the next write at the
  /// latest.
  bool headerTyped(const QHash<QString, QString>& texts);
  /// As headerTyped(), after the user chose something in a field: puts what follows from it into others.
  bool headerChosen(const QString& key, const QHash<QString, QString>& texts);
  /// Whether a saved document's header as typed is another one than what is stored.
  bool headerDiffers(const QHash<QString, QString>& texts) const;
  /// What was put into fields of the header since the last call, to be shown.
  QHash<QString, QString> takeHeaderChanges() { return typed_.takeChanges(); }

  bool isNew() const { return isNew_; }
  bool numberLocked() const { return numberLocked_; }
  QString number() const { return header_.text(kind_.numberColumn); }
  const Row& header() const { return header_; }
  /// Whether the lines stand as they are, since a fiscal receipt tells them or may do so.
  bool isFrozen() const { return isPrinted() || isSending(); }
  /// Whether the fiscal receipt was printed, as far as this editor knows.
  bool isPrinted() const;
  const std::vector<Row>& lines() const { return lines_; }
  bool isTotal(const QString& column) const { return totals_.contains(column); }
  /// Sum of a total column over the lines.
  Decimal total(const QString& column) const { return totals_.value(column); }
  /// What a column of a line amounts to, also where no table stores it.
  Decimal amount(const Row& line, const QString& field) const;

  /// Checks the header as typed and stores it: inserts a new document, updates a draft. Texts are trimmed, an
  /// empty percent becomes 0. Throws RuleError naming the column at fault; nothing is changed then.
  void save(const QHash<QString, QString>& typed);

  /// Why a typed text cannot stand in a cell of a line; `refused` without a text for a cell that is just
  /// left.
  struct Verdict {
    bool refused = false;
    QString text;
    bool setsBack = false;  ///< the cell shows again what it held
  };
  Verdict check(size_t line, const QString& field, const QString& typed, bool bySupplierCode) const;

  /// Whether the cell takes typing. `line` equal to the number of lines is the new line.
  bool isOpen(size_t line, const QString& field) const;

  /// Adds the article as a new line, or puts it on an existing one, and stores the line. `listText` is the
  /// text of the list that it was picked from, "" when its code was typed; `code` is the supplier's when told
  /// so. Gives the line's position.
  size_t setArticle(size_t line, const QString& code, const QString& listText = {},
                    bool bySupplierCode = false);

  /// Stores a number in a line, rounded as its column tells, and what follows from it. The text has passed
  /// check().
  void setNumber(size_t line, const QString& field, const QString& typed);

  void deleteLine(size_t line);

  /// How the line stands out.
  LineMark mark(size_t line) const { return line < marks_.size() ? marks_[line] : LineMark::None; }
  /// Marks the lines anew, by the header as it was told last.
  void refreshMarks();

  /// The checks before the question, on the header as typed; throws RuleError for the first that fails. Then
  /// lines whose amounts do not fit their quantity and price, or the VAT rate, are recomputed and stored.
  void checkValidation(const QHash<QString, QString>& typed);
  /// The checks behind the question; throws RuleError. Notices that do not stop are shown.
  bool checkLines() const;
  /// Validates the draft; newDocument() is to follow. Throws RuleError or StepError; then nothing was
  /// written.
  void validate(const QHash<QString, QString>& typed);

  /// The checks before printing, on the header as typed; throws RuleError for the first that fails.
  void checkPrinting(const QHash<QString, QString>& typed);
  /// Prints the receipt of a cash sale, all checks included, and shows the draft as it stands then. Throws as
  /// printCashReceipt() and checkPrinting().
  ReceiptOutcome printReceipt(const QHash<QString, QString>& typed);

  /// Shows the draft as it is stored when another user has changed it; returns whether it was. A field that
  /// is typed and that the other user left alone keeps its text. Throws RuleError when the draft is gone.
  bool followStored(const QHash<QString, QString>& typed);

  /// Shows the draft anew when its fiscal receipt was sent or printed meanwhile; gives whether it was. Throws
  /// RuleError when the draft is gone.
  bool followReceipt();

  /// Throws RuleError when the document on screen cannot be deleted.
  void checkDeletion() const;
  /// Deletes the draft on screen with its lines.
  void remove();

 private:
  QHash<QString, QString> textsOf(const Row& header) const;
  QString newText(const HeaderField& field) const;
  bool isSending() const;
  void reopen(const QString& number);
  void fillNewHeader(const ProposedNumber& proposed);
  Row headerFrom(const TypedHeader& typed) const;
  void noticeMissingRate(const Row& header) const;
  bool isBroken(const Checked<ValidationCheck>& check) const;
  bool isBroken(const Checked<PrintCheck>& check) const;
  const LineColumn* column(const QString& field) const;
  void store(size_t line, Row row);
  bool followRate();
  bool isRateStored() const { return shownRate_ == storedRate_; }
  void storeRate();
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
  QString shownRate_;   ///< code of the VAT rate that lines_ were worked out with
  std::vector<LineMark> marks_;
  QHash<QString, Decimal> totals_;
  bool isNew_ = true;
  bool numberLocked_ = false;
};

}  // namespace velmar
