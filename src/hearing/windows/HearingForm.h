// Common base of the windows of orders and repair vouchers: a tab with the list and its filter, a tab with
// the record.
#pragma once

#include "config/Lists.h"
#include "store/windows/BrowserForm.h"

class QRadioButton;
class QTabWidget;

namespace velmar {

class SearchCombo;
class TDBGridListare;

class HearingForm : public BrowserForm {
  Q_OBJECT
 protected:
  HearingForm(const QString& name, const QString& title, QWidget* parent);

  struct Pages {
    QString listTitle;
    QWidget* listPage;
    QString cardTitle;
    QWidget* cardPage;
    QList<QPushButton*> commands;       ///< in the order of the row
    QList<QPushButton*> ofList;         ///< those that are shown with the list only
    TDBGridListare* listing = nullptr;  ///< also one of these
    bool isCardFirst = false;
  };
  void layOutPages(const Pages& pages);
  bool onCard() const;
  void bringCard();
  void bringList();

  /// Makes two options exclusive of which the card knows the first one only.
  void pairOptions(QRadioButton* stored, QRadioButton* other);
  /// A list of the card that is filled when the window opens and when partners or
  /// articles have changed.
  SearchCombo* addList(const QString& column, const QString& name, const BoundList& filled, int shown);
  /// Lets a list show a record's own value, even if it does not offer it.
  static void showOwn(SearchCombo* list, const QVariant& code, const QString& name);
  /// Fills the lists again; what they show stays.
  void fillLists();

  void focusField(const QString& column) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct FilledList {
    SearchCombo* list;
    BoundList filled;
  };

  QTabWidget* tabs_;
  QWidget* cardPage_ = nullptr;
  QWidget* listPage_ = nullptr;
  QList<FilledList> lists_;
  bool isFilled_ = false;  ///< the lists have been filled since their tables were written
};

}  // namespace velmar
