#include "config/windows/CodeBox.h"

#include <memory>
#include <QCompleter>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "config/Checks.h"
#include "config/Lists.h"
#include "config/windows/ComboFill.h"
#include "store/ListRows.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

class CodePair : public QObject {
 public:
  CodePair(QLineEdit* box, SearchCombo* combo, const std::function<QString(const QString&)>& objection)
      : QObject(combo), box_(box), combo_(combo), objection_(objection) {
    connect(box, &QLineEdit::textChanged, this, &CodePair::showCode);
    connect(combo, &SearchCombo::settled, this, &CodePair::take);
    requireChoiceWhenLeft(combo);
  }

  void showCode() {
    const QString code = box_->text().trimmed();
    combo_->showData(code.isEmpty() ? QVariant() : QVariant(code));
    combo_->lineEdit()->setPlaceholderText(code.isEmpty() ? QString() : QStringLiteral("(nu este in lista)"));
  }

 private:
  // A text that matches no entry remains for correction; an empty one is replaced by the code of the box.
  void take() {
    const QString code = combo_->choice().toString();
    if (combo_->choice().isNull() && !combo_->currentText().trimmed().isEmpty()) return;
    if (code.isEmpty() || code.compare(box_->text().trimmed(), Qt::CaseInsensitive) == 0) return showCode();
    const QString text = objection_ ? objection_(code) : QString();
    if (!text.isEmpty()) {
      showCode();
      Mesaj(text);
      return;
    }
    box_->setText(code);
    emit box_->textEdited(code);
  }

  QLineEdit* box_;
  SearchCombo* combo_;
  std::function<QString(const QString&)> objection_;
};

}  // namespace

void pairWithCombo(QLineEdit* box, SearchCombo* combo,
                   const std::function<QString(const QString&)>& objection) {
  new CodePair(box, combo, objection);
}

void requireKnownCodeWhenLeft(QLineEdit* box, const QString& kind) {
  const auto shown = std::make_shared<QString>(box->text());
  QObject::connect(box, &QLineEdit::textChanged, box, [box, shown](const QString& text) {
    if (!box->isModified()) *shown = text;
  });
  checkWhenLeft(box, [box, shown, kind] {
    const bool isTyped = box->isModified() && box->text().trimmed() != shown->trimmed();
    return isTyped ? unknownCodeObjection(box->text(), kind) : QString();
  });
}

void addCodeRow(QFormLayout* rows, const QString& caption, SearchCombo* combo, QLineEdit* box) {
  pairWithCombo(box, combo);
  moveOnWithEnter(combo);
  auto* both = new QHBoxLayout;
  both->addWidget(combo, 1);
  both->addWidget(box);
  auto* label = new QLabel(caption);
  label->setBuddy(combo);
  rows->addRow(label, both);
}

void fillCodeCombos(const QList<SearchCombo*>& combos, const BoundList& list) {
  LegaCombo(*combos.first(), list);
  for (SearchCombo* combo : combos) {
    if (combo->model() != combos.first()->model()) combo->setModel(combos.first()->model());
    for (QObject* child : combo->children())
      if (auto* pair = dynamic_cast<CodePair*>(child)) pair->showCode();
  }
}

BoundList accountsBeginning(const QStringList& prefixes) {
  Condition any;
  for (const QString& prefix : prefixes) {
    const Condition one = beginsWith(QStringLiteral("CONT"), prefix);
    if (one.isEmpty()) return codeList("kt_pc", "CONT", "TITLU");
    any.sql += (any.isEmpty() ? QString() : QStringLiteral(" OR ")) + QStringLiteral("(%1)").arg(one.sql);
    any.values.insert(any.values.end(), one.values.begin(), one.values.end());
  }
  BoundList list = codeList("kt_pc", "CONT", "TITLU", any.sql);
  list.values = any.values;
  return list;
}

BoundList codeList(const QString& table, const QString& code, const QString& name, const QString& condition) {
  const QString where = condition.isEmpty() ? QString() : QStringLiteral(" WHERE ") + condition;
  return {QStringLiteral("SELECT %2, %2 || '-' || COALESCE(%3, '') AS COD_TITLU FROM %1%4 ORDER BY %2")
              .arg(table, code, name, where),
          QStringLiteral("COD_TITLU"), code};
}

}  // namespace velmar
