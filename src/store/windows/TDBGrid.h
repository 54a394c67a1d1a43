// The one grid of the program: columns by field with captions and formats, footers aligned under their
// columns. Lists show a record set in it; the document windows give it a model of their own.
#pragma once

#include <functional>
#include <QAbstractTableModel>
#include <QTableView>

#include "store/Row.h"

namespace velmar {

enum class CellFormat { Text, Integer, Number, Date, Flag };

/// A column of a grid: which field it shows, and how.
struct GridColumn {
  QString field;
  QString caption;
  CellFormat format = CellFormat::Text;
  int width = 10;    ///< in characters of the grid's font
  int decimals = 2;  ///< of CellFormat::Number
  bool visible = true;
};

/// What a cell of that format shows for a value; null shows nothing.
QString cellText(const QVariant& value, const GridColumn& column);

/// A record set as a model, one column for each GridColumn.
class RecordsetModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void setColumns(const QList<GridColumn>& columns);
  void setRecordset(Recordset recordset);
  const Recordset& recordset() const { return recordset_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QList<GridColumn> columns_;
  Recordset recordset_;
};

class TDBGrid : public QTableView {
  Q_OBJECT
 public:
  explicit TDBGrid(const QString& name, QWidget* parent = nullptr);

  /// Columns of a list and of any model with these columns in this order, as wide as told or as the user left
  /// them.
  void setColumns(const QList<GridColumn>& columns);
  const QList<GridColumn>& columns() const { return columns_; }
  /// Position of the field in any case, -1 when there is none.
  int columnOf(const QString& field) const;

  /// Shows a record set; the row that was current stays current when it is still there at the same place.
  void setRecordset(Recordset recordset);
  const Recordset& recordset() const { return list_->recordset(); }
  /// The current row of a list, null when there is none.
  const Row* currentRecord() const;
  /// Makes the row current whose field has that text; gives false when there is none.
  bool selectRecord(const QString& field, const QString& text);

  /// Text shown in place of rows when there are none: how to begin.
  void setEmptyText(const QString& text) { emptyText_ = text; }

  void setFooter(const QString& field, const QString& text);
  QString footer(const QString& field) const;

 signals:
  /// Another record of a list became current (or none).
  void currentRecordChanged();

 protected:
  void updateGeometries() override;
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void showEvent(QShowEvent* event) override;

 private:
  void applyWidths();
  void placeFooter();
  void restoreWidths();
  void storeWidths();
  void stretchLast();
  QString lookName() const;

  RecordsetModel* list_;
  QWidget* footer_;
  QList<GridColumn> columns_;
  QHash<QString, QString> footers_;
  QString emptyText_;
  bool placingFooter_ = false;
  bool settingWidths_ = false;
};

}  // namespace velmar
