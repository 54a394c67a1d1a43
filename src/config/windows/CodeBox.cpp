#include "config/windows/CodeBox.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>

#include "config/windows/ComboFill.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

namespace {

constexpr int kShownName = 40;  // characters

class CodePair : public QObject {
 public:
  CodePair(QLineEdit* box, QComboBox* combo, const std::function<QString(const QString&)>& objection)
      : QObject(combo), box_(box), combo_(combo), objection_(objection) {
    connect(box, &QLineEdit::textChanged, this, &CodePair::showCode);
    connect(combo, &QComboBox::activated, this, &CodePair::take);
    connect(combo->lineEdit(), &QLineEdit::editingFinished, this, [this] {
      const int typed = combo_->findText(combo_->currentText(), Qt::MatchFixedString);
      if (typed >= 0)
        take(typed);
      else
        showCode();
    });
  }

  void showCode() {
    const QString code = box_->text().trimmed();
    const int at = code.isEmpty() ? -1 : combo_->findData(code, Qt::UserRole, Qt::MatchFixedString);
    combo_->setCurrentIndex(at);
    if (at < 0) combo_->clearEditText();
    combo_->lineEdit()->setPlaceholderText(code.isEmpty() ? QString() : QStringLiteral("(nu este in lista)"));
  }

 private:
  void take(int index) {
    const QString code = combo_->itemData(index).toString();
    if (code.compare(box_->text().trimmed(), Qt::CaseInsensitive) == 0) return showCode();
    const QString text = objection_ ? objection_(code) : QString();
    if (text.isEmpty()) return box_->setText(code);
    showCode();
    Mesaj(text);
  }

  QLineEdit* box_;
  QComboBox* combo_;
  std::function<QString(const QString&)> objection_;
};

}  // namespace

QComboBox* makeCodeCombo(const QString& name) {
  auto* combo = named(new QComboBox, name);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->completer()->setFilterMode(Qt::MatchContains);
  combo->completer()->setCompletionMode(QCompleter::PopupCompletion);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(kShownName);
  moveOnWithEnter(combo);
  return combo;
}

void pairWithCombo(QLineEdit* box, QComboBox* combo,
                   const std::function<QString(const QString&)>& objection) {
  new CodePair(box, combo, objection);
}

void fillCodeCombos(const QList<QComboBox*>& combos, const BoundList& list) {
  LegaCombo(*combos.first(), list);
  for (QComboBox* combo : combos) {
    if (combo->model() != combos.first()->model()) combo->setModel(combos.first()->model());
    for (QObject* child : combo->children())
      if (auto* pair = dynamic_cast<CodePair*>(child)) pair->showCode();
  }
}

}  // namespace velmar
