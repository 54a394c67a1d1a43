// The one grid of the program: columns by field with captions and formats, footers aligned under their
// columns. Lists show a record set in it; the document windows give it a model of their own.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "store/ListRows.h"

namespace velmar {

/// A date is shown as 31.12.2026.
enum class CellFormat { Text, Integer, Number, Date, Flag };

/// A column of a grid: which field it shows, and how.
struct GridColumn {
  QString field;
  QString caption;
  CellFormat format = CellFormat::Text;
  int width = 10;    ///< in characters of the grid's font
  int decimals = 2;  ///< of CellFormat::Number; -1: those that the number has
  bool visible = true;
  bool editable = false;  ///< in a list whose cells can be edited
  bool secret = false;    ///< shown as dots unless the user wants to see it, and never printed
};

/// Whether cells of the format are aligned to the right.
bool isRightAligned(CellFormat format);

/// What a cell of that format shows for a value; null shows nothing.
QString cellText(const QVariant& value, const GridColumn& column);

/// A list as a model, one column for each GridColumn.
class ListModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ListModel(QObject* parent);

  void setColumns(const QList<GridColumn>& columns);
  void setRows(std::unique_ptr<RowSource> rows);
  const RowSource& rows() const { return *rows_; }
  /// `append` makes the list longer by that number of rows.
  void appendRows(int count, const std::function<void()>& append);
  void showSecrets(bool shown);
  bool showsSecrets() const { return showsSecrets_; }
  void sortRows(const QStringList& fields, bool descending);
  void setHighlighted(std::function<bool(const Row&)> highlighted) { highlighted_ = std::move(highlighted); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  QList<GridColumn> columns_;
  std::unique_ptr<RowSource> rows_;
  bool showsSecrets_ = false;
  std::function<bool(const Row&)> highlighted_;
};

/// The order of a list: by which fields, all up or all down.
struct GridOrder {
  QStringList fields;
  bool descending = false;
};

class TDBGrid : public QTableView {
  Q_OBJECT
 public:
  explicit TDBGrid(const QString& name, QWidget* parent = nullptr);

  /// Columns of a list and of any model with these columns in this order, as wide as specified or as the user
  /// left them.
  void setColumns(const QList<GridColumn>& columns);
  const QList<GridColumn>& columns() const { return columns_; }
  /// Shows the texts of secret columns, or dots, as at first.
  void showSecrets(bool shown) { list_->showSecrets(shown); }
  bool showsSecrets() const { return list_->showsSecrets(); }
  /// Rows for which it is true have the colours of a warning.
  void setHighlighted(std::function<bool(const Row&)> highlighted) {
    list_->setHighlighted(std::move(highlighted));
  }
  /// Position of the field in any case, -1 when there is none.
  int columnOf(const QString& field) const;

  /// Whether it shows a list; else it has a model of its own.
  bool isList() const { return model() == list_; }
  /// Takes it out of the export by Ctrl+E, for a grid whose rows are no list.
  void setExported(bool isExported) { isExported_ = isExported; }
  bool isExported() const { return isExported_; }
  /// Keeps the widths that the user chooses under that name too, for a window that shows one of several
  /// lists.
  void setLook(const QString& name) { look_ = name; }

  /// Shows a list, in the order that the user chose last; the row that was current stays current when it is
  /// still there at the same place.
  void setRows(std::unique_ptr<RowSource> rows);
  void setRecordset(Recordset recordset);
  /// `append` makes the list longer by that number of rows; what is shown and selected stays.
  void appendRows(int count, const std::function<void()>& append) { list_->appendRows(count, append); }
  const RowSource& rows() const { return list_->rows(); }
  /// The current row of a list, null when there is none. It is valid until the list is read on.
  const Row* currentRecord() const;
  /// Makes the row current whose field has that text; gives false when there is none.
  bool selectRecord(const QString& field, const QString& text);
  /// Makes the row at that place current.
  void selectPlace(int row);
  /// The places of the selected rows, from the top.
  QList<int> selectedPlaces() const;
  /// Positions of the visible columns, from left to right.
  QList<int> visibleColumns() const;

  /// Lets the user order the list by its headings: a click orders by one column, another one the other way
  /// round, Ctrl adds columns.
  void setSortable();
  void sortBy(const GridOrder& order);
  const GridOrder& order() const { return order_; }

  /// Text shown in place of rows when there are none: how to begin.
  void setEmptyText(const QString& text) { emptyText_ = text; }

  /// Lets all columns up to `field` (or all there are) fit into the grid: the columns of names give way, and
  /// before they become unreadable the others, down to what their cells need.
  void setKeptInView(const QString& field, const QStringList& nameFields);
  void setFooter(const QString& field, const QString& text);
  QString footer(const QString& field) const;
  void selectAll() override;

 signals:
  /// The user needs all rows of a list that may be read only in part, e.g. to select them.
  void allRowsNeeded();
  /// Another record of a list became current (or none).
  void currentRecordChanged();
  /// The user dragged the heading of a column up and out of the grid.
  void columnDraggedOut(const QString& field);

 protected:
  void updateGeometries() override;
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void reset() override;
  void dataChanged(const QModelIndex& from, const QModelIndex& to, const QList<int>& roles) override;

 private:
  void makeCurrent(int row, int column);
  void applyWidths();
  void placeFooter();
  void restoreLook();
  void storeLook();
  void orderByHeading(int column);
  void fetchVisible();
  bool eventFilter(QObject* watched, QEvent* event) override;
  void stretchLast();
  int naturalWidth(int column) const;
  int headingWidth(int column) const;
  int leastWidth(int column) const;
  int footerWidth(int column) const;
  void measureCells();
  void keepInView();
  QString lookName() const;

  ListModel* list_;
  QWidget* footer_;
  QList<GridColumn> columns_;
  QHash<QString, QString> footers_;
  QString emptyText_;
  QString look_;
  QString keptField_;                     ///< the last column to be seen without scrolling
  QStringList nameFields_;                ///< the columns that give way for it
  mutable QHash<QString, int> headings_;  ///< widths of captions on two lines
  QHash<int, int> widest_;                ///< cell seen in a column, in pixels
  GridOrder order_;
  int draggedColumn_ = -1;
  bool isExported_ = true;
  bool placingFooter_ = false;
  bool settingWidths_ = false;
  bool hasLook_ = false;  ///< the user has chosen the widths
};

}  // namespace velmar
