#include "util/windows/SearchCombo.h"

#include <QCompleter>
#include <QLineEdit>
#include <QListView>

#include "util/windows/Controls.h"

namespace velmar {

SearchCombo::SearchCombo(const QString& name, const QString& toolTip, int shown, QWidget* parent)
    : QComboBox(parent) {
  setObjectName(name);
  setToolTip(toolTip);
  setEditable(true);
  setInsertPolicy(NoInsert);
  completer()->setFilterMode(Qt::MatchContains);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(shown);
  auto* list = new QListView(this);
  list->setUniformItemSizes(true);  // so that a list of thousands opens quickly
  setView(list);
  const auto settleNow = [this] {
    settle();
    emit settled();
  };
  connect(this, &QComboBox::activated, this, settleNow);
  connect(lineEdit(), &QLineEdit::editingFinished, this, settleNow);
}

void SearchCombo::showData(const QVariant& value) {
  const QSignalBlocker quiet(this);
  const bool none = value.isNull() || value.toString().isEmpty();
  int at = none ? -1 : findData(value);
  if (at < 0 && !none) at = findData(value, Qt::UserRole, Qt::MatchFixedString);
  setCurrentIndex(at);
  if (at < 0) setEditText(QString());
  lineEdit()->setCursorPosition(0);
}

void SearchCombo::settle() {
  const QString text = currentText();
  int at = currentIndex();
  if (at < 0 || itemText(at).compare(text, Qt::CaseInsensitive) != 0)
    at = findText(text, Qt::MatchFixedString);
  completer()->setCompletionPrefix(text);
  if (at < 0 && !text.trimmed().isEmpty() && completer()->completionCount() == 1)
    at = findText(completer()->currentCompletion(), Qt::MatchFixedString);
  if (at >= 0) setCurrentIndex(at);
}

QVariant SearchCombo::choice() const {
  const int at = currentIndex();
  return at >= 0 && itemText(at).compare(currentText(), Qt::CaseInsensitive) == 0 ? itemData(at) : QVariant();
}

void requireChoiceWhenLeft(SearchCombo* list) {
  checkWhenLeft(list, [list] {
    const QString text = list->currentText().trimmed();
    if (text.isEmpty()) return QString();
    list->settle();
    return list->choice().isNull() ? QStringLiteral("%1 nu este in lista !").arg(text) : QString();
  });
}

}  // namespace velmar
