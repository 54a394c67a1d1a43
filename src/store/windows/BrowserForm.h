// The common base of the windows that show what was validated: filter, group area, list with the number of
// its rows, and a print of the selected rows with their totals.
#pragma once

#include "store/BackgroundRead.h"
#include "store/Filter.h"
#include "store/windows/ListForm.h"

class QLabel;

namespace velmar {

class WhereBuilder;
class extTDBGrid;

/// A total of the selected rows in the footer of a column; totals with the same footer are added up.
struct FooterTotal {
  QString footer;  ///< field of the column
  TotalledField total;
  int decimals = 2;  ///< -1: as many as the sum has
};

class BrowserForm : public ListForm {
  Q_OBJECT
 public:
  BrowserForm(const QString& name, const QString& title, QWidget* parent);

  /// Shows the rows with that value in a column that the filter offers, or with one from `value` to `last`,
  /// as the user could.
  void showOnly(const QString& column, const QString& value, const QString& last = {});

 protected:
  struct Listed {
    QString grid;  ///< name of the list
    QList<GridColumn> columns;
    ListQuery query;
    QString order;  ///< fields, separated by commas
    bool descending = false;
    QSet<QString> tables;
    bool staysOnRecord = false;  ///< when the current record is gone, none is current until the user chooses
    QString emptyText;
  };
  void setListed(const Listed& listed);
  /// Sets the totals and how the list is printed; with `printing.htmlCopy` a copy is written.
  void setTotals(const QList<FooterTotal>& totals, const GridPrintSettings& printing);

  /// Reads the list again with the filter.
  QPushButton* searchCommand(const QString& toolTip, const QString& name = QStringLiteral("cmdCautare"));
  /// cmdSortAsc and cmdSortDesc: order the list by the group columns or else by the current column.
  QList<QPushButton*> sortCommands(const QString& ascendingTip, const QString& descendingTip);
  /// Filter, group area, `lists`, which contains the list, and the number of rows.
  QWidget* browserPage(const QList<FilterField>& filter, const QString& firstField, QWidget* lists);
  /// Builds the window of such a page. The list is read.
  void layOutBrowser(const QList<FilterField>& filter, const QString& firstField, QWidget* lists,
                     const QList<QPushButton*>& commands);
  /// Reads the list again with the filter in the window. The current record stays current; of a changed
  /// filter another one may be.
  void search();
  /// The condition of the rows that are shown.
  const Condition& condition() const { return condition_; }
  /// Reads the number of rows with condition(), and what else is shown of all of them. It is called in the
  /// thread of the windows, its result in any.
  virtual BackgroundRead::Work totalsRead() const;
  void showCount(qint64 count) const;

  void printList() override;
  QWidget* searchBox() override;

 private:
  std::unique_ptr<RowSource> read();
  void readOn();
  bool readShort();
  void readRest();
  void extend(std::vector<QVariant>&& keys);
  void setFooters(bool filled);

  Listed listed_;
  QString key_;  ///< fields of the list's key
  Condition condition_;
  ListRows* rows_ = nullptr;  ///< of the list
  QList<FooterTotal> totals_;
  WhereBuilder* filter_;
  extTDBGrid* grouping_;
  QLabel* lblNoRecs_;
  BackgroundRead background_;  ///< of the list and the totals
};

}  // namespace velmar
