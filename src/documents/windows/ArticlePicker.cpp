#include "documents/windows/ArticlePicker.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeView>

#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kMostRows = 50;
constexpr int kCodeRole = Qt::UserRole + 1;

}  // namespace

ArticlePicker::ArticlePicker(const ArticleList& list, QWidget* parent)
    : QLineEdit(parent), list_(list), completer_(new QCompleter(this)), rows_(new QStandardItemModel(this)) {
  setFrame(false);
  completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  completer_->setModel(rows_);
  completer_->setMaxVisibleItems(12);
  completer_->setWidget(this);
  completer_->popup()->setObjectName(QStringLiteral("DataList1"));
  // Child of the document's window, so that it can be found there by name.
  completer_->popup()->setParent(this, completer_->popup()->windowFlags());
  completer_->popup()->installEventFilter(this);
  connect(completer_, qOverload<const QModelIndex&>(&QCompleter::activated), this,
          [this](const QModelIndex& index) {
            take(index);
            emit picked(false);
          });
  connect(this, &QLineEdit::textEdited, this, [this] {
    taken_.reset();
    drop();
  });
}

// The complete text of a row also finds that row: its code is between the last parentheses.
Recordset ArticlePicker::matches() const {
  const QString typed = text().trimmed();
  Recordset found = findArticles(list_, typed, kMostRows);
  if (!found.isEmpty() || !typed.endsWith(QLatin1Char(')'))) return found;
  const auto open = typed.lastIndexOf(QLatin1Char('('));
  return open < 0 ? found : findArticles(list_, typed.mid(open + 1).chopped(1), kMostRows);
}

void ArticlePicker::refill() {
  rows_->clear();
  for (const Row& article : matches()) {
    auto* item = new QStandardItem(article.text("DenArt"));
    item->setData(article.text("CODART"), kCodeRole);
    const QString amount =
        article.isNull("VALOARE") ? QString() : formatNumber(article.decimal("VALOARE"), 2);
    item->setToolTip(QStringLiteral("%1  %2  %3").arg(article.text("CODART"), article.text("UM"), amount));
    rows_->appendRow(item);
  }
}

void ArticlePicker::drop() {
  guarded(QStringLiteral("DataList1"), QStringLiteral("drop"), [this] {
    refill();
    if (rows_->rowCount() == 0) {
      completer_->popup()->hide();
      return;
    }
    const int wanted = completer_->popup()->sizeHintForColumn(0) + 40;
    QRect place = rect();
    place.setWidth(std::max(place.width(), wanted));
    completer_->complete(place);
    if (!text().trimmed().isEmpty())
      completer_->popup()->setCurrentIndex(completer_->completionModel()->index(bestRow(), 0));
  });
}

int ArticlePicker::bestRow() const {
  const auto exact = rows_->findItems(text().trimmed(), Qt::MatchFixedString);
  return exact.isEmpty() ? 0 : exact.first()->row();
}

void ArticlePicker::take(const QModelIndex& index) {
  if (!index.isValid()) return;
  taken_ = Choice{index.data(kCodeRole).toString(), index.data(Qt::DisplayRole).toString()};
  setText(taken_->listText);
}

std::optional<ArticlePicker::Choice> ArticlePicker::choice() const {
  if (taken_) return taken_;
  const QModelIndex current = completer_->popup()->currentIndex();
  // An empty text matches nothing, but a row may be selected with the arrow keys in the open list.
  const bool chosen =
      completer_->popup()->isVisible() && completer_->popup()->selectionModel()->isSelected(current);
  if (rows_->rowCount() == 0 || (text().trimmed().isEmpty() && !chosen)) return std::nullopt;
  const QModelIndex best = current.isValid() ? current : rows_->index(bestRow(), 0);
  return Choice{best.data(kCodeRole).toString(), best.data(Qt::DisplayRole).toString()};
}

void ArticlePicker::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && !completer_->popup()->isVisible())) {
    drop();
    return;
  }
  QLineEdit::keyPressEvent(event);
}

// Enter and Tab choose the highlighted row; keys that the popup does not use go to the text.
bool ArticlePicker::eventFilter(QObject* watched, QEvent* event) {
  if (watched != completer_->popup() || event->type() != QEvent::KeyPress)
    return QLineEdit::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Tab)
    return QLineEdit::eventFilter(watched, event);
  const Qt::KeyboardModifiers modifiers = static_cast<QKeyEvent*>(event)->modifiers();
  if (const auto chosen = choice(); chosen && !(modifiers & Qt::ControlModifier)) {
    taken_ = chosen;
    completer_->popup()->hide();
    emit picked(key == Qt::Key_Tab);
    return true;
  }
  completer_->popup()->hide();
  QKeyEvent forward(QEvent::KeyPress, key, modifiers);
  QCoreApplication::sendEvent(this, &forward);
  return true;
}

}  // namespace velmar
