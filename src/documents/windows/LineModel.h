// The model of the lines of the document on screen: one row per line and, for a draft, an empty row at the
// end for the next one.
#pragma once

#include <functional>
#include <QAbstractTableModel>
#include <QColor>

#include "documents/DocumentEditor.h"
#include "store/windows/TDBGrid.h"

namespace velmar {

/// The colours of a marked line; invalid for an unmarked one.
struct LineColours {
  QColor text, back;
};
LineColours lineColours(LineMark mark);

class LineModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  LineModel(DocumentEditor& editor, std::function<bool()> bySupplierCode, QObject* parent);

  /// Notifies the view that another document is shown.
  void documentChanged();
  /// Notifies the view that the marks of lines have changed.
  void marksChanged();
  /// Notifies the view that the amounts of lines have changed.
  void amountsChanged();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  const LineColumn& lineColumn(int column) const { return editor_.kind().lineColumns[column]; }
  /// Whether lines cannot be changed, added or deleted.
  bool isFrozen() const { return editor_.isFrozen(); }
  bool isNewRow(int row) const { return row >= static_cast<int>(editor_.lines().size()); }

  /// Why the text is refused in the cell.
  CellVerdict check(const QModelIndex& index, const QString& typed) const;
  /// Stores a text that passed check(). Throws errors of the store.
  void enter(const QModelIndex& index, const QString& typed);
  /// Sets the article chosen from a list on the row.
  void pick(int row, const QString& code, const QString& listText);
  void deleteLine(int row);

  /// The grid's columns for the kind's line columns.
  static QList<GridColumn> gridColumns(const DocumentKind& kind);

 signals:
  void totalsChanged();

 private:
  void setArticle(int row, const QString& code, const QString& listText, bool bySupplierCode);
  void changed(int row);
  bool isLocked(const QModelIndex& index) const;
  QVariant shownValue(const QModelIndex& index) const;

  DocumentEditor& editor_;
  std::function<bool()> bySupplierCode_;
  QList<GridColumn> columns_;
};

}  // namespace velmar
