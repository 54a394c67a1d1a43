// Common base of the two catalogues, articles and partners: a tab for the list with a prefix search and a
// filter, a tab for the card, navigation through the records, the number of records shown.
#pragma once

#include "store/Filter.h"
#include "store/Records.h"
#include "store/windows/ListForm.h"
#include "util/windows/KeyFilter.h"

class QTabWidget;

namespace velmar {

class WhereBuilder;

class CatalogueForm : public ListForm {
  Q_OBJECT
 protected:
  CatalogueForm(const QString& name, const QString& title, QWidget* parent);

  /// Shows the values that another workstation has stored, in the card and in `shown` (the record as it was
  /// shown), so that a second save succeeds.
  void showConflict(const ChangedMeanwhile& conflict, Row& shown);
  /// Sets the list: its query, key, order, and the condition that applies in addition to the filter.
  void setCatalogue(const QList<GridColumn>& columns, const ListQuery& query, const QString& keyField,
                    const QString& order, const Condition& always, const QSet<QString>& tables);
  /// The parts of the window besides the list.
  struct Pages {
    QString listTitle;
    QWidget* searchRow;
    QList<FilterField> filter;
    QString nameColumn;               ///< the first column of the filter
    QWidget* aboveList = nullptr;     ///< placed between filter and list
    QString countCaption, countName;  ///< of the number of rows
    QString cardTitle;
    QWidget* cardPage;
    QList<QPushButton*> commands;
  };
  /// Builds the window: the list tab with search and filter, the card tab, the commands.
  void layOut(const Pages& pages);
  /// The box txtCautare; Enter in it runs `search`.
  QLineEdit* searchField(KeyFilter::Options keys, std::function<void()> search);

  QString searchText() const;

  /// Shows the records that match the filter.
  void cauta();
  /// As cauta(), on the user's command.
  void askedSearch();
  /// Shows the records that match the condition, of any kind, in that order. If there are none, the list does
  /// not change and the result is false.
  bool showFound(const Condition& condition, const QString& order);
  WhereBuilder* filter() const { return filter_; }

  /// cmdFirst, cmdPrev, cmdNext, cmdLast.
  QList<QPushButton*> navigation();

  bool onCard() const;
  void bringCard();
  void bringList();
  /// Called when another tab is shown.
  virtual void tabChanged() {}

  QWidget* searchBox() override;
  void focusField(const QString& column) override;
  void startNew() override;

 private:
  void moveTo(int place);
  void step(int by);

  ListQuery query_;
  Condition always_;
  Condition condition_;
  QString defaultOrder_;
  QString order_;
  std::unique_ptr<RowSource> found_;  ///< rows just read for the list
  QTabWidget* tabs_;
  WhereBuilder* filter_;
  QLineEdit* txtCautare_ = nullptr;
  QLabel* count_;
  QList<QPushButton*> navigation_;
};

}  // namespace velmar
