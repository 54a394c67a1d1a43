// The grid of the lines of an invoice or repair voucher: an empty row at the end takes the next line, by the
// code of its article or by its name; Delete removes a line.
#pragma once

#include "store/windows/EntryGrid.h"

namespace velmar {

class DetailLines;

class DetailGrid : public EntryGrid {
  Q_OBJECT
  Q_PROPERTY(bool hasNewRow READ hasNewRow)
 public:
  DetailGrid(const QString& form, const QList<GridColumn>& columns);

  /// Shows the lines; an open draft has an empty row for the next one.
  void showLines(std::vector<Row> lines, bool isOpen);
  const std::vector<Row>& lines() const;
  bool hasNewRow() const;

  /// What was typed: the line (beyond the last one: a new line), the field and the text. An article chosen
  /// by name comes as its code in the field ID_Articol.
  using Take = std::function<void(size_t line, const QString& field, const QString& text)>;
  void setTake(Take take) { take_ = std::move(take); }
  /// The line with what was typed into a cell: an article, or a number rounded to 3 decimals of a quantity, 4
  /// of a price. Throws SetBack for a text that is not a number.
  static Row withCell(const Row& line, const QString& field, const QString& text);
  void setRemove(std::function<void(const Row& line)> remove) { remove_ = std::move(remove); }

 protected:
  QLineEdit* makeEditor(QWidget* parent, const QModelIndex& index) override;
  bool leavesUntouched(const QLineEdit* editor, const QModelIndex& index) const override;
  void take(QLineEdit* editor, const QModelIndex& index) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  DetailLines* lines_;
  Take take_;
  std::function<void(const Row& line)> remove_;
};

}  // namespace velmar
