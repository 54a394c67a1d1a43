#include "store/windows/ListForm.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "store/DataChanges.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

constexpr int kNarrowest = 620;
constexpr int kWidest = 1180;  // beside the tool bars of the smallest screen
constexpr int kLinesHigh = 40;

}  // namespace

ListForm::ListForm(const QString& name, const QString& title, QWidget* parent)
    : QWidget(parent), card_(this), state_(named(new QLabel, "lblStare")) {
  setObjectName(name);
  setWindowTitle(title);
  printing_.name = printing_.header = title;
  printing_.boldHeader = true;
  printing_.footer = QStringLiteral(R"(\t\tPagina: \p din \P)");
  state_->setMinimumWidth(fontMetrics().horizontalAdvance("Modificat, nesalvat "));
  connect(&card_, &Card::edited, this, &ListForm::showState);
  connect(&dataChanges(), &DataChanges::written, this, &ListForm::follow);
}

void ListForm::setList(EntryGrid* grid, const QString& keyField, Read read, const QSet<QString>& tables) {
  grid_ = grid;
  keyField_ = keyField;
  read_ = std::move(read);
  for (const QString& table : tables) tables_.insert(table.toUpper());
  grid_->setSortable();
  grid_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  connect(grid_, &TDBGrid::currentRecordChanged, this, [this] {
    if (!keepEdits_) rowChosen();
  });
  // A click on the row that is already current shows it in the card again.
  connect(grid_, &QAbstractItemView::clicked, this, [this] {
    if (new_) rowChosen();
  });
  connect(
      grid_, &EntryGrid::cellStored, this,
      [this] { guarded(objectName(), "AfterColUpdate", [this] { refreshKeepingEdits(); }); },
      Qt::QueuedConnection);
}

// The question is shown after the event that selected the row.
void ListForm::rowChosen() {
  if (leaving_) return;
  if (!store_ || !card_.isChanged()) {
    guarded(objectName(), "RowColChange", [this] { showRecord(grid_->currentRecord()); });
    return;
  }
  leaving_ = true;
  QMetaObject::invokeMethod(this, &ListForm::leaveForRow, Qt::QueuedConnection);
}

void ListForm::leaveForRow() {
  guarded(objectName(), "RowColChange", [this] {
    const Row* chosen = grid_->currentRecord();
    const QString key = chosen ? keyText(*chosen, keyField_) : QString();
    const bool leaves = leaveCard();
    // Storing may have read the list again.
    const QString current = leaves || new_ ? key : shownKey_;
    const QSignalBlocker quiet(grid_);
    if (!current.isEmpty()) grid_->selectRecord(keyField_, current);
    if (leaves) showRecord(grid_->currentRecord());
  });
  leaving_ = false;
}

bool ListForm::leaveCard() {
  if (!store_ || !card_.isChanged()) return true;
  switch (askLeaving(this, "Fisa a fost modificata. Salvati modificarile ?")) {
    case Leaving::Store:
      return storeCard();
    case Leaving::Discard:
      // The card may go on showing this record, so it shows what is stored.
      if (new_)
        card_.clear();
      else
        showRecord(grid_->currentRecord());
      return true;
    case Leaving::Stay:
      break;
  }
  return false;
}

bool ListForm::storeCard() {
  bool isStored = false;
  run("Salvare", [this, &isStored] {
    store_();
    isStored = true;
  });
  return isStored;
}

QPushButton* ListForm::command(const QString& name, const QString& caption, const QString& toolTip,
                               const QString& picture, std::function<void()> action) {
  QPushButton* button = makeButton(name, caption, toolTip, picture);
  connect(button, &QPushButton::clicked, this,
          [this, name, action = std::move(action)] { run(name + QStringLiteral("_Click"), action); });
  return button;
}

QPushButton* ListForm::printCommand(const QString& name, const QString& caption, const QString& toolTip) {
  return command(name, caption, toolTip, "print", [this] { printList(); });
}

void ListForm::printList() {
  if (printing_.rows == GridPrintSettings::Rows::Selected && grid_->selectedPlaces().isEmpty())
    throw RuleError("Nu exista inregistrari");
  printing_.key = keyField_;
  printGrid(*grid_, printing_, window());
}

QPushButton* ListForm::exitCommand(const QString& name, const QString& toolTip) {
  exit_ = makeButton(name, "Iesire", toolTip, "close");
  setUpExitButton(exit_, this);
  return exit_;
}

void ListForm::setKeys(QPushButton* add, QPushButton* remove) {
  setKeys(add, remove ? std::function<void()>([remove] { remove->click(); }) : nullptr);
}

void ListForm::setKeys(QPushButton* add, const std::function<void()>& remove) {
  const auto onGrid = [this](int key, const std::function<void()>& work) {
    auto* shortcut = new QShortcut(QKeySequence(key), grid_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, work);
  };
  if (add) {
    onGrid(Qt::Key_Insert, [this] {
      run("Insert", [this] {
        if (leaveCard()) startNew();
      });
    });
  }
  if (remove) onGrid(Qt::Key_Delete, [this, remove] { run("Delete", remove); });
}

QWidget* ListForm::searchRow(const QStringList& fields) {
  searchFields_ = fields;
  QStringList captions;
  for (const QString& field : fields) captions.append(grid_->columns().value(grid_->columnOf(field)).caption);
  search_ = makeTextBox("txtCautare", 40, "Primele litere din: " + captions.join(" sau "));
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
    guarded(objectName(), "txtCautare_Change",
            [this, &text] { say(search(text) ? QString() : noHit(text)); });
  });
  connect(search_, &QLineEdit::returnPressed, this, [this] {
    guarded(objectName(), "txtCautare_KeyPress", [this] {
      if (!search(search_->text())) Mesaj(noHit(search_->text()));
    });
  });
  auto* row = new QWidget;
  auto* label = new QLabel("Cautare");
  label->setBuddy(search_);
  auto* inside = new QHBoxLayout(row);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addWidget(label);
  inside->addWidget(search_);
  inside->addStretch();
  return row;
}

bool ListForm::search(const QString& text) {
  if (text.isEmpty()) return true;
  const RowSource& rows = grid_->rows();
  for (const QString& field : searchFields_)
    for (int place = 0; place < rows.size(); ++place)
      if (rows.row(place).text(field).startsWith(text, Qt::CaseInsensitive)) {
        grid_->selectPlace(place);
        return true;
      }
  return false;
}

QString ListForm::noHit(const QString& text) {
  return QStringLiteral("Nu exista inregistrari care sa inceapa cu %1 !").arg(text);
}

QLayout* ListForm::commandRow(const QList<QPushButton*>& commands) {
  auto* row = new QHBoxLayout;
  row->addWidget(state_);
  row->addStretch();
  for (QPushButton* button : commands) row->addWidget(button);
  return row;
}

void ListForm::layOut(QWidget* search, QWidget* cardFrame, const QList<QPushButton*>& commands) {
  auto* all = new QVBoxLayout(this);
  all->addWidget(search);
  all->addWidget(grid_, 1);
  all->addWidget(cardFrame);
  all->addLayout(commandRow(commands));
  finish(card_.controls().value(0));
}

void ListForm::finish(QWidget* first) {
  for (QWidget* control : card_.controls()) moveOnWithEnter(control);
  giveMnemonics(this);
  const auto shortcut = [this](const QKeySequence& key, const std::function<void()>& work) {
    auto* made = new QShortcut(key, this);
    made->setContext(Qt::WidgetWithChildrenShortcut);
    connect(made, &QShortcut::activated, this, work);
  };
  shortcut(Qt::Key_F5, [this] { run("F5", [this] { refreshKeepingEdits(); }); });
  shortcut(QKeySequence::Print, [this] { run("Ctrl+P", [this] { printList(); }); });
  shortcut(QKeySequence::Find, [this] {
    if (QWidget* box = searchBox()) box->setFocus(Qt::ShortcutFocusReason);
  });
  if (first) first->setFocus();
  guarded(objectName(), "Form_Load", [this] { refresh(); });
}

void ListForm::run(const QString& procedure, const std::function<void()>& work) {
  if (!grid_->commitPending() || !entriesAccepted(this)) return;
  guarded(objectName(), procedure, [&] {
    try {
      work();
    } catch (const RuleError& rule) {
      Mesaj(rule.text(), rule.icon(), rule.title());
      focusField(rule.field());
    }
  });
}

void ListForm::focusField(const QString& column) {
  QWidget* at = card_.control(column);
  if (!at) return;
  at->setFocus();
  if (auto* box = qobject_cast<QLineEdit*>(at)) box->selectAll();
}

bool ListForm::confirmed(const QString& question, const QString& title) {
  return Mesaj(question, kQuestion + kYesNo, title) == kResultYes;
}

bool ListForm::removeCurrent(const QString& question, const std::function<void(const QString& key)>& remove,
                             const QString& title) {
  const Row* current = grid_->currentRecord();
  if (!current) return false;
  const QString key = keyText(*current, keyField_);
  if (!confirmed(QString(question).replace(QStringLiteral("%1"), key), title)) return false;
  remove(key);
  refresh();
  return true;
}

void ListForm::openRecord(const QString& key, const QString& control) {
  if (!leaveCard()) return;
  refresh();
  if (!key.isEmpty() && !grid_->selectRecord(keyField_, key)) return say(gone().text());
  goToControl(this, control);
}

void ListForm::showAdded(const QString& key) {
  refresh();
  grid_->selectRecord(keyField_, key);
  if (addOnly_) startNew();
}

void ListForm::refresh() {
  stale_ = false;
  const Row* current = grid_->currentRecord();
  const QString key = current ? keyText(*current, keyField_) : QString();
  const bool hadNone = !current && grid_->rows().size() > 0;
  bool lost = false;
  {
    const QSignalBlocker quiet(grid_);
    grid_->setRows(read_());
    // Edits of a deleted record remain in the card, but must not be stored in another record.
    const bool found = key.isEmpty() || grid_->selectRecord(keyField_, key);
    lost = !found && keepEdits_ && !new_;
    if (lost || (leavesGone_ && (!found || hadNone))) grid_->setCurrentIndex({});
  }
  if (!keepEdits_) showRecord(grid_->currentRecord());
  if (lost) say(gone().text());
}

// Values being edited in the card are not changed.
void ListForm::refreshKeepingEdits(bool keepsCard) {
  keepEdits_ = !addOnly_ && (keepsCard || new_ || card_.isChanged());
  refresh();
  keepEdits_ = false;
}

void ListForm::follow(const QSet<QString>& written) {
  if (stale_ || !grid_ || !written.intersects(tables_)) return;
  stale_ = true;
  QMetaObject::invokeMethod(this, &ListForm::catchUp, Qt::QueuedConnection);
}

void ListForm::catchUp() {
  if (stale_ && isVisible())
    guarded(objectName(), "Form_Activate", [this] { refreshKeepingEdits(isShownGone()); });
}

void ListForm::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  catchUp();
}

void ListForm::showRecord(const Row* record) {
  shownKey_ = record ? keyText(*record, keyField_) : QString();
  new_ = addOnly_ || !record;
  if (addOnly_) return;
  if (record)
    card_.show(*record);
  else
    card_.clear();
}

void ListForm::leaveRows() {
  const QSignalBlocker quiet(grid_);
  grid_->clearSelection();
  grid_->setCurrentIndex({});
  shownKey_.clear();
}

void ListForm::startNew() {
  new_ = true;
  card_.clear();
  const QList<QWidget*> controls = card_.controls();
  for (QWidget* control : controls)
    if (control->focusPolicy() & Qt::TabFocus && control->isEnabled()) return control->setFocus();
}

void ListForm::takeBack() {
  if (new_)
    startNew();
  else
    showRecord(grid_->currentRecord());
}

void ListForm::say(const QString& text) { state_->setText(text); }

void ListForm::showState() { state_->setText(card_.isChanged() ? "Modificat, nesalvat" : ""); }

void ListForm::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Escape) {
    if (card_.isChanged())
      guarded(objectName(), "KeyDown", [this] { takeBack(); });
    else if (exit_)
      exit_->click();
    return;
  }
  if (key == Qt::Key_Return || key == Qt::Key_Enter)
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) return button->click();
  QWidget::keyPressEvent(event);
}

void ListForm::closeEvent(QCloseEvent* event) {
  if (leaveCard())
    QWidget::closeEvent(event);
  else
    event->ignore();
}

QSize ListForm::sizeHint() const {
  int width = 60;
  for (int column : grid_->visibleColumns()) width += grid_->columnWidth(column);
  const QSize needed = QWidget::sizeHint();
  return {std::max(needed.width(), std::clamp(width, kNarrowest, kWidest)),
          std::max(needed.height(), fontMetrics().height() * kLinesHigh)};
}

}  // namespace velmar
