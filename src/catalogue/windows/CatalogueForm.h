// What the two catalogues, articles and partners, share beyond other lists: a tab for the list with search by
// first letters and filter, a tab for the card, steps through the records, the count of what is shown.
#pragma once

#include "store/windows/ListForm.h"
#include "util/windows/KeyFilter.h"

class QTabWidget;

namespace velmar {

class WhereBuilder;
struct FilterField;

class CatalogueForm : public ListForm {
  Q_OBJECT
 protected:
  CatalogueForm(const QString& name, const QString& title, QWidget* parent);

  /// The list: what it reads, its key, its order, and a condition that always holds.
  void setCatalogue(const QList<GridColumn>& columns, const ListQuery& query, const QString& keyField,
                    const QString& order, const Condition& always, const QSet<QString>& tables);
  /// Builds the window: the list's tab with the search in front of the filter, the card's tab, the commands.
  void layOut(const QString& listTitle, QWidget* searchRow, const QList<FilterField>& fields,
              const QString& nameColumn, const QString& countCaption, const QString& countName,
              const QString& cardTitle, QWidget* cardPage, const QList<QPushButton*>& commands);
  /// The box txtCautare; Enter in it runs `search`.
  QLineEdit* searchField(KeyFilter::Options keys, std::function<void()> search);

  QString searchText() const;

  /// Shows what the filter says.
  void cauta();
  /// Shows the records of the condition in that order; without any the list stays, and it gives false.
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
};

}  // namespace velmar
