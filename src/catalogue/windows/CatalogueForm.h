// What the two catalogues, articles and partners, share beyond other lists: a tab for the list with search by
// first letters and filter, a tab for the card, steps through the records, the count of what is shown.
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

  /// The card shows what another workstation has stored, and so does `shown`, the record as it was shown: a
  /// second saving goes through.
  void showConflict(const ChangedMeanwhile& conflict, Row& shown);
  /// The list: what it reads, its key, its order, and the condition that holds beside the filter's.
  void setCatalogue(const QList<GridColumn>& columns, const ListQuery& query, const QString& keyField,
                    const QString& order, const Condition& always, const QSet<QString>& tables);
  /// What the window is made of, besides the list.
  struct Pages {
    QString listTitle;
    QWidget* searchRow;
    QList<FilterField> filter;
    QString nameColumn;               ///< the filter asks for it first
    QWidget* aboveList = nullptr;     ///< stands between filter and list
    QString countCaption, countName;  ///< of the number of rows
    QString cardTitle;
    QWidget* cardPage;
    QList<QPushButton*> commands;
  };
  /// Builds the window: the list's tab with search and filter, the card's tab, the commands.
  void layOut(const Pages& pages);
  /// The box txtCautare; Enter in it runs `search`.
  QLineEdit* searchField(KeyFilter::Options keys, std::function<void()> search);

  QString searchText() const;

  /// Shows what the filter says.
  void cauta();
  /// As cauta(), at the user's command.
  void askedSearch();
  /// Shows the records of the condition in that order, whatever their kind; without any the list stays, and
  /// it gives false.
  bool showFound(const Condition& condition, const QString& order);
  WhereBuilder* filter() const { return filter_; }

  /// cmdFirst, cmdPrev, cmdNext, cmdLast.
  QList<QPushButton*> navigation();

  bool onCard() const;
  void bringCard();
  void bringList();
  /// Another tab came to the front.
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
  std::unique_ptr<RowSource> found_;  ///< rows that have just been read for the list
  QTabWidget* tabs_;
  WhereBuilder* filter_;
  QLineEdit* txtCautare_ = nullptr;
  QLabel* count_;
  QList<QPushButton*> navigation_;
};

}  // namespace velmar
