// The button "Listare" of a list: prints the selected rows with their totals.
#pragma once

#include <QPointer>
#include <QWidget>

class QPushButton;

namespace velmar {

class TDBGrid;

class TDBGridListare : public QWidget {
  Q_OBJECT
 public:
  explicit TDBGridListare(const QString& name, QWidget* parent = nullptr);

  /// The grid that is printed.
  void setTDBGrid(TDBGrid* grid) { grid_ = grid; }
  /// The window of the control, which is minimized while the pages are shown.
  void setForm(QWidget* form) { form_ = form; }
  /// Prints long texts on further lines instead of truncating them.
  void setWrapped() { wrapped_ = true; }

 signals:
  /// Printing is over; the footers of columns with totals show those of the selection.
  void EndPrint();

 private:
  void cmdListare_Click();
  void pTotalSelected(const QStringList& fields);
  void print();

  QPointer<TDBGrid> grid_;
  QPointer<QWidget> form_;
  QPushButton* cmdListare_;
  bool wrapped_ = false;
};

}  // namespace velmar
