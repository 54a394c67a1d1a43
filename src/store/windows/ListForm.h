// The common base of the list windows of master tables: a list with a search, a card beside it, commands that
// report errors at their field, and the keys: F5 reads again, Ctrl+F searches, Insert begins a new record,
// Delete deletes, Ctrl+P prints, Esc undoes an edit and then closes.
#pragma once

#include <functional>
#include <QLineEdit>
#include <QSet>
#include <QWidget>

#include "store/windows/Card.h"
#include "store/windows/EntryGrid.h"
#include "store/windows/GridPrint.h"

class QLabel;
class QPushButton;

namespace velmar {

class ListForm : public QWidget {
  Q_OBJECT
 public:
  ListForm(const QString& name, const QString& title, QWidget* parent);

  QSize sizeHint() const override;

  /// Makes the record of that key current, if one is given, and sets the focus on the control.
  void openRecord(const QString& key, const QString& control);

 protected:
  /// Reads the list as it is to be shown.
  using Read = std::function<std::unique_ptr<RowSource>()>;
  /// Sets the grid of the window, its query, its key field, and its tables: the list is read again when
  /// another window has written them.
  void setList(EntryGrid* grid, const QString& keyField, Read read, const QSet<QString>& tables);
  EntryGrid* list() const { return grid_; }
  Card& card() { return card_; }
  const Card& card() const { return card_; }

  /// A command under the list. `action` runs guarded; a RuleError is shown and sets the focus on its field.
  QPushButton* command(const QString& name, const QString& caption, const QString& toolTip,
                       const QString& picture, std::function<void()> action);
  /// A command that prints the list, as Ctrl+P does.
  QPushButton* printCommand(const QString& name, const QString& caption, const QString& toolTip);
  /// Sets how the list is printed; the default is the selected rows under the window's title.
  void setPrinting(const GridPrintSettings& settings) { printing_ = settings; }
  /// Prints the list; Ctrl+P does the same.
  virtual void printList();
  /// The button "Iesire", which closes the window as Esc does.
  QPushButton* exitCommand(const QString& name = QStringLiteral("cmdIesire"), const QString& toolTip = {});
  /// Sets the commands of the keys Insert and Delete; null for none.
  void setKeys(QPushButton* add, QPushButton* remove);
  /// As setKeys(), for a window without a button that deletes.
  void setKeys(QPushButton* add, const std::function<void()>& remove);
  /// Sets how the card is stored when the user confirms that on leaving it. Without it there is no question.
  void setStoring(std::function<void()> store) { store_ = std::move(store); }
  /// Asks whether to store a changed card before anything else is shown. False: the user stays, and the typed
  /// values are unchanged.
  bool leaveCard();

  /// The card is only for adding: the current record is not shown in it.
  void setAddOnly() { addOnly_ = true; }

  /// A search box above the list: the row whose first of these fields, or else the next, begins with what is
  /// typed becomes current.
  QWidget* searchRow(const QStringList& fields);
  /// The usual window: search, list, card and commands. The list is read and the first field has the focus.
  void layOut(QWidget* search, QWidget* cardFrame, const QList<QPushButton*>& commands);
  /// Mnemonics, keys, what Enter does, and the first reading, for a window that lays itself out.
  void finish(QWidget* first);
  /// The commands in a row, with the state of the card before them.
  QLayout* commandRow(const QList<QPushButton*>& commands);

  /// Runs a command's work, unless a check refuses a box or a cell.
  void run(const QString& procedure, const std::function<void()>& work);
  /// Shows the result of a command in the window until something is typed.
  void say(const QString& text);
  /// Asks for confirmation of a deletion.
  bool confirmed(const QString& question, const QString& title = QStringLiteral("Confirmare stergere"));
  /// Asks the question, in which %1 is the key, then deletes the current record; returns whether it was
  /// deleted.
  bool removeCurrent(const QString& question, const std::function<void(const QString& key)>& remove,
                     const QString& title = QStringLiteral("Confirmare stergere"));
  /// Reads the list again with the record of that key as the current one; a card that is only for adding is
  /// ready for the next.
  void showAdded(const QString& key);

  /// Reads the list again; the current record stays current by its key. If it is gone, its neighbour is.
  void refresh();
  /// If the current record is gone after refresh(), none is current: a command must not act on another one
  /// that the user did not choose.
  void leaveGoneRecord(bool leaves) { leavesGone_ = leaves; }
  /// Another record is current, or none: shows it in the card.
  virtual void showRecord(const Row* record);
  /// The card begins a new record.
  virtual void startNew();
  /// Whether the record in the card is not one of the list any more. When the list follows what was written,
  /// the card keeps such a record instead of showing another one: the next command on it says that it is
  /// gone.
  virtual bool isShownGone() const { return false; }
  /// The box that Ctrl+F goes to.
  virtual QWidget* searchBox() { return search_; }
  /// Sets the focus on the control of a column.
  virtual void focusField(const QString& column);

  void keyPressEvent(QKeyEvent* event) override;
  /// The window remains open when the user does not want to leave a changed card.
  void closeEvent(QCloseEvent* event) override;
  /// Reads the list again when its tables were written while the window was hidden.
  void showEvent(QShowEvent* event) override;
  /// No row of the list is current, so that any of them can be chosen, while the card holds a new record.
  void leaveRows();
  /// Whether the card holds no record of the list.
  bool isNew() const { return new_; }
  void setNew(bool isNew) { new_ = isNew; }

 private:
  void refreshKeepingEdits(bool keepsCard = false);
  void follow(const QSet<QString>& written);
  void catchUp();
  void takeBack();
  void rowChosen();
  void leaveForRow();
  bool storeCard();
  bool search(const QString& text);
  static QString noHit(const QString& text);
  void showState();

  EntryGrid* grid_ = nullptr;
  GridPrintSettings printing_;
  Card card_;
  QString keyField_;
  Read read_;
  QSet<QString> tables_;
  QLineEdit* search_ = nullptr;
  QStringList searchFields_;
  std::function<void()> store_;
  QString shownKey_;      ///< of the record in the card
  bool leaving_ = false;  ///< another row was selected; the question about the card is pending
  QLabel* state_;
  QPushButton* exit_ = nullptr;
  bool stale_ = false;      ///< a table of the list was written after it was read
  bool keepEdits_ = false;  ///< the list is read while the card is being edited
  bool leavesGone_ = false;
  bool new_ = false;
  bool addOnly_ = false;
};

}  // namespace velmar
