// The grouping area above a grid: the list is sorted by the columns that were dragged into it.
#pragma once

#include <QFrame>
#include <QPointer>
#include <QStringList>

class QHBoxLayout;
class QLabel;

namespace velmar {

class TDBGrid;

class extTDBGrid : public QFrame {
  Q_OBJECT
 public:
  enum SortTypes { kUnsorted = 0, kAscending = 1, kDescending = 2 };

  explicit extTDBGrid(const QString& name, QWidget* parent = nullptr);

  /// The grid whose headings are listened to.
  void setTDBGrid(TDBGrid* grid);
  TDBGrid* grid() const { return grid_; }
  /// Looks the grid up by name among the controls of the form, at the latest when the control is first shown.
  void setTDBGridName(const QString& name);
  const QString& TDBGridName() const { return gridName_; }
  /// Decides what Sort() does; does not sort by itself.
  void setSortType(int type) { sortType_ = type; }
  int SortType() const { return sortType_; }

  const QStringList& groupColumns() const { return fields_; }
  void addGroupColumn(const QString& field);
  void removeGroupColumn(const QString& field);

  /// Orders the list by the group columns; without any it stays as it is.
  void Sort();
  /// Orders the list in that direction (a SortTypes) by the group columns, without any by the current column.
  void sortAs(int type);

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  TDBGrid* lookUp() const;
  void changed();
  void showChips();
  void showMenu(int column, const QPoint& place);

  QPointer<TDBGrid> grid_;
  QString gridName_;
  int sortType_ = kAscending;
  QStringList fields_;
  QList<QWidget*> chips_;
  QHBoxLayout* row_;
  QLabel* hint_;
};

}  // namespace velmar
