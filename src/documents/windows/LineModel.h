// The lines of the document on screen as a model: one row a line and, while the document is a draft, an empty
// row at the end for the next one.
#pragma once

#include <functional>
#include <QAbstractTableModel>
#include <QColor>

#include "documents/DocumentEditor.h"
#include "store/windows/TDBGrid.h"

namespace velmar {

/// How a marked line is painted; no valid colours for one that is not.
struct LineColours {
  QColor text, back;
};
LineColours lineColours(LineMark mark);

class LineModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  LineModel(DocumentEditor& editor, std::function<bool()> bySupplierCode, QObject* parent);

  /// Tells the view that the document on screen is another one.
  void documentChanged();
  /// Tells the view that lines stand out in another way.
  void marksChanged();
  /// Tells the view that the amounts of lines have changed.
  void amountsChanged();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  const LineColumn& lineColumn(int column) const { return editor_.kind().lineColumns[column]; }
  /// Whether no line may be changed, added or deleted.
  bool isFrozen() const { return editor_.isFrozen(); }
  bool isNewRow(int row) const { return row >= static_cast<int>(editor_.lines().size()); }

  /// Why the text cannot stand in the cell.
  DocumentEditor::Verdict check(const QModelIndex& index, const QString& typed) const;
  /// Stores a text that passed check(). What goes wrong in the store is thrown.
  void enter(const QModelIndex& index, const QString& typed);
  /// Puts the article of a list on the row.
  void pick(int row, const QString& code, const QString& listText);
  void deleteLine(int row);

  /// The grid's columns for the kind's line columns.
  static QList<GridColumn> gridColumns(const DocumentKind& kind);

 signals:
  void totalsChanged();

 private:
  void setArticle(int row, const QString& code, const QString& listText, bool bySupplierCode);
  void changed(int row);

  DocumentEditor& editor_;
  std::function<bool()> bySupplierCode_;
  QList<GridColumn> columns_;
};

}  // namespace velmar
