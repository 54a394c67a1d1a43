#include "store/windows/WhereBuilder.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/ChoiceModel.h"
#include "util/windows/Controls.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kValueWidth = 50;
constexpr int kShownChoice = 24;  // characters

}  // namespace

WhereBuilder::WhereBuilder(QWidget* parent)
    : QWidget(parent),
      cboCamp_(named(new QComboBox, "cboCamp", "Campul dupa care se cauta")),
      cboComparatie_(named(new QComboBox, "cboComparatie", "Felul comparatiei")),
      txtValoare_(valueBox("txtValoare")),
      txtValoare2_(valueBox("txtValoare2")),
      cboValoare_(new SearchCombo("cboValoare", "Valoarea cautata", kShownChoice, this)),
      lblConditie_(named(new QLabel, "lblConditie")) {
  for (const auto& [comparison, text] : comparisons())
    cboComparatie_->addItem(text, static_cast<int>(comparison));
  connect(cboCamp_, &QComboBox::currentIndexChanged, this, &WhereBuilder::fieldChosen);
  connect(cboComparatie_, &QComboBox::currentIndexChanged, this, &WhereBuilder::showBoxes);
  for (QWidget* each : {static_cast<QWidget*>(cboValoare_), static_cast<QWidget*>(cboValoare_->lineEdit())})
    each->installEventFilter(this);
  lblConditie_->setTextFormat(Qt::PlainText);
  lblConditie_->setWordWrap(true);

  auto* boxes = new QHBoxLayout;
  boxes->addWidget(cboCamp_);
  boxes->addWidget(cboComparatie_);
  boxes->addWidget(txtValoare_, 1);
  boxes->addWidget(txtValoare2_, 1);
  boxes->addWidget(cboValoare_, 1);
  boxes->addWidget(
      button("cmdSi", "Si", "Adauga conditia: toate trebuie indeplinite", &WhereBuilder::joinAnd));
  boxes->addWidget(button("cmdSau", "Sau", "Adauga conditia: una dintre ele ajunge", &WhereBuilder::joinOr));
  boxes->addWidget(button("cmdGoleste", "Goleste", "Renunta la toate conditiile", &WhereBuilder::clear));
  boxes->addStretch();
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->addLayout(boxes);
  all->addWidget(lblConditie_);
  showBoxes();
}

QLineEdit* WhereBuilder::valueBox(const QString& name) {
  auto* box = makeTextBox(name, kValueWidth, "Valoarea cautata");
  connect(box, &QLineEdit::returnPressed, this, &WhereBuilder::searchAsked);
  return box;
}

QPushButton* WhereBuilder::button(const QString& name, const QString& caption, const QString& toolTip,
                                  void (WhereBuilder::*action)()) {
  QPushButton* made = makeButton(name, caption, toolTip);
  made->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(made, &QPushButton::clicked, this, action);
  return made;
}

void WhereBuilder::setFields(const QList<FilterField>& fields, const QString& first) {
  fields_ = fields;
  cboCamp_->clear();
  for (const FilterField& each : fields_) {
    if (each.column == first) first_ = cboCamp_->count();
    cboCamp_->addItem(each.caption);
  }
  clear();
}

const FilterField* WhereBuilder::field() const {
  const int at = cboCamp_->currentIndex();
  return at < 0 ? nullptr : &fields_[at];
}

Comparison WhereBuilder::comparison() const {
  return static_cast<Comparison>(cboComparatie_->currentData().toInt());
}

void WhereBuilder::fieldChosen() {
  txtValoare_->clear();
  txtValoare2_->clear();
  setChoices(*cboValoare_, {});
  cboValoare_->clearEditText();
  isOffered_ = !field() || !field()->choices;
  guarded("WhereBuilder", "cboCamp_Click", [this] {
    if (!isOffered_ && !(field()->hasManyChoices && field()->hasManyChoices())) offerChoices();
  });
  showBoxes();
}

void WhereBuilder::offerChoices() {
  if (isOffered_) return;
  isOffered_ = true;
  std::vector<ChoiceModel::Choice> choices;
  for (const FilterChoice& choice : field()->choices()) choices.push_back({choice.text, choice.value});
  setChoices(*cboValoare_, std::move(choices));
  cboValoare_->clearEditText();
}

// Many choices are read when the user turns to the list.
bool WhereBuilder::eventFilter(QObject* watched, QEvent* event) {
  if (!isOffered_ && (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress))
    guarded("WhereBuilder", "cboCamp_Click", [this] { offerChoices(); });
  return QWidget::eventFilter(watched, event);
}

void WhereBuilder::showBoxes() {
  const bool offered = field() && field()->choices;
  const bool needsValue = comparison() != Comparison::Empty;
  txtValoare_->setVisible(needsValue && !offered);
  txtValoare2_->setVisible(needsValue && !offered && comparison() == Comparison::Between);
  cboValoare_->setVisible(needsValue && offered);
}

bool WhereBuilder::hasValue() const {
  if (!field()) return false;
  if (comparison() == Comparison::Empty) return true;
  return field()->choices ? !cboValoare_->currentText().isEmpty() : !txtValoare_->text().isEmpty();
}

void WhereBuilder::addTo(Filter& filter) {
  FilterTerm term{*field(), comparison(), txtValoare_->text(), txtValoare2_->text()};
  if (field()->choices) {
    offerChoices();
    cboValoare_->settle();
    term.choice = cboValoare_->choice();
    term.first = cboValoare_->currentText();
    if (term.choice.isNull() && comparison() != Comparison::Empty) {
      cboValoare_->setFocus();
      throw RuleError("Va rugam alegeti o valoare din lista !");
    }
  }
  try {
    filter.add(term, orElse_);
  } catch (const RuleError& rule) {
    QLineEdit* at = rule.field() == QStringLiteral("second") ? txtValoare2_ : txtValoare_;
    (at->isVisible() ? static_cast<QWidget*>(at) : cboComparatie_)->setFocus();
    throw;
  }
}

void WhereBuilder::take() {
  addTo(filter_);
  txtValoare_->clear();
  txtValoare2_->clear();
  cboValoare_->setCurrentIndex(-1);
  cboValoare_->clearEditText();
  cboComparatie_->setCurrentIndex(0);
  lblConditie_->setText(filter_.text());
}

// A second press changes how the next condition is joined.
void WhereBuilder::takeGuarded(bool orElse) {
  guarded("WhereBuilder", orElse ? "cmdSau_Click" : "cmdSi_Click", [this, orElse] {
    if (hasValue()) take();
    orElse_ = orElse;
    if (!filter_.isEmpty()) lblConditie_->setText(filter_.text() + (orElse ? " sau ..." : " si ..."));
    cboCamp_->setFocus();
  });
}

Condition WhereBuilder::condition() {
  Filter whole = filter_;
  if (hasValue()) addTo(whole);
  lblConditie_->setText(whole.text());
  return whole.condition();
}

void WhereBuilder::clear() {
  filter_.clear();
  orElse_ = false;
  lblConditie_->clear();
  cboCamp_->setCurrentIndex(cboCamp_->count() > 0 ? first_ : -1);
  cboComparatie_->setCurrentIndex(0);
  fieldChosen();
}

void WhereBuilder::setCondition(const QString& column, const QString& value, const QString& last) {
  clear();
  for (const FilterField& field : fields_) {
    if (field.column.compare(column, Qt::CaseInsensitive) != 0) continue;
    filter_.add({field, last.isEmpty() ? Comparison::Equal : Comparison::Between, value, last,
                 field.choices ? QVariant(value) : QVariant()});
    lblConditie_->setText(filter_.text());
  }
}

}  // namespace velmar
