#include "catalogue/windows/ArticleCombo.h"

#include <QCompleter>
#include <QLineEdit>
#include <QStandardItemModel>

#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kMostRows = 50;
constexpr int kShownRows = 12;
constexpr int kShownCharacters = 30;

}  // namespace

ArticleCombo::ArticleCombo(const QString& name, const ArticleList& list, QWidget* parent)
    : QComboBox(parent), list_(list), rows_(new QStandardItemModel(this)) {
  setObjectName(name);
  setModel(rows_);
  setEditable(true);
  setInsertPolicy(NoInsert);
  setMaxVisibleItems(kShownRows);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kShownCharacters);
  lineEdit()->setPlaceholderText(QStringLiteral("Nume sau cod"));
  auto* matches = new QCompleter(rows_, this);
  matches->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  matches->setCaseSensitivity(Qt::CaseInsensitive);
  matches->setMaxVisibleItems(kShownRows);
  setCompleter(matches);
  connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
    guarded(objectName(), QStringLiteral("Change"), [&] { search(text); });
  });
  search({});
}

// Replaces the rows but keeps the typed text, which the combo box would clear.
void ArticleCombo::search(const QString& typed) {
  const QSignalBlocker quiet(this);
  const int cursor = lineEdit()->cursorPosition();
  rows_->clear();
  for (const Row& article : findArticles(list_, typed.trimmed(), kMostRows)) {
    auto* item = new QStandardItem(article.text("DenArt"));
    item->setData(article.text("CODART"), Qt::UserRole);
    item->setToolTip(article.text("CODART"));
    rows_->appendRow(item);
  }
  setCurrentIndex(-1);
  lineEdit()->setText(typed);
  lineEdit()->setCursorPosition(cursor);
}

QString ArticleCombo::code() const {
  const QString typed = currentText().trimmed();
  if (typed.isEmpty()) return {};
  if (currentIndex() >= 0 && itemText(currentIndex()).trimmed() == typed) return currentData().toString();
  for (const bool byCode : {true, false})
    for (int i = 0; i < count(); ++i)
      if ((byCode ? itemData(i).toString() : itemText(i).trimmed()).compare(typed, Qt::CaseInsensitive) == 0)
        return itemData(i).toString();
  return {};
}

void ArticleCombo::clearChoice() { search({}); }

void ArticleCombo::drop() {
  setFocus();
  completer()->complete();
}

}  // namespace velmar
