#include "hearing/windows/HearingForm.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTabWidget>

#include "config/windows/ComboFill.h"
#include "store/DataChanges.h"
#include "store/windows/TDBGridListare.h"
#include "util/windows/ChoiceModel.h"
#include "util/windows/Controls.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

HearingForm::HearingForm(const QString& name, const QString& title, QWidget* parent)
    : BrowserForm(name, title, parent), tabs_(named(new QTabWidget, "SSTab")) {
  connect(&dataChanges(), &DataChanges::written, this, [this](const QSet<QString>& tables) {
    if (tables.intersects({QStringLiteral("KT_TER"), QStringLiteral("G_ARTMAG")})) isFilled_ = false;
  });
}

void HearingForm::layOutPages(const Pages& pages) {
  listPage_ = pages.listPage;
  cardPage_ = pages.cardPage;
  tabs_->addTab(pages.listPage, pages.listTitle);
  tabs_->insertTab(pages.isCardFirst ? 0 : 1, pages.cardPage, pages.cardTitle);
  tabs_->setCurrentIndex(0);
  auto* all = new QVBoxLayout(this);
  all->addWidget(tabs_, 1);
  auto* row = commandRow(pages.commands);
  if (pages.listing) static_cast<QBoxLayout*>(row)->insertWidget(row->count() - 1, pages.listing);
  all->addLayout(row);
  const auto follow = [this, pages] {
    for (QPushButton* button : pages.ofList) button->setVisible(!onCard());
    if (pages.listing) pages.listing->setVisible(!onCard());
    guarded(objectName(), "SSTab_Click", [this] { fillLists(); });
  };
  connect(tabs_, &QTabWidget::currentChanged, this, follow);
  follow();
  connect(list(), &QAbstractItemView::doubleClicked, this, &HearingForm::bringCard);
  auto* open = new QShortcut(QKeySequence(Qt::Key_Return), list());
  open->setContext(Qt::WidgetShortcut);
  connect(open, &QShortcut::activated, this, [this] {
    // After a deletion or an addition the card is empty; the selected row is the one to open.
    if (isNew() && !card().isChanged())
      guarded(objectName(), "RowColChange", [this] { showRecord(list()->currentRecord()); });
    bringCard();
  });
  finish(pages.isCardFirst ? card().controls().first() : list());
}

bool HearingForm::onCard() const { return tabs_->currentWidget() == cardPage_; }

void HearingForm::bringCard() { tabs_->setCurrentWidget(cardPage_); }

void HearingForm::bringList() { tabs_->setCurrentWidget(listPage_); }

void HearingForm::pairOptions(QRadioButton* stored, QRadioButton* other) {
  // The card must be able to clear the option, which an exclusive one does not allow.
  stored->setAutoExclusive(false);
  other->setAutoExclusive(false);
  connect(&card(), &Card::edited, other, [stored, other] {
    const QSignalBlocker quiet(other);
    other->setChecked(!stored->isChecked());
  });
  connect(other, &QRadioButton::clicked, stored, [stored] { stored->setChecked(false); });
  connect(stored, &QRadioButton::clicked, stored, [stored] { stored->setChecked(true); });
}

SearchCombo* HearingForm::addList(const QString& column, const QString& name, const BoundList& filled,
                                  int shown) {
  auto* list = card().add(column, new SearchCombo(name, {}, shown));
  lists_.append({list, filled});
  return list;
}

void HearingForm::showOwn(SearchCombo* list, const QVariant& code, const QString& name) {
  if (!code.isNull() && !name.isEmpty()) addChoice(*list, {name, code});
}

void HearingForm::fillLists() {
  if (isFilled_) return;
  for (const FilledList& each : lists_) {
    const QVariant code = each.list->choice();
    const QString text = each.list->currentText();
    LegaCombo(*each.list, each.filled);
    showOwn(each.list, code, text);
    each.list->showData(code);
  }
  isFilled_ = true;
}

void HearingForm::focusField(const QString& column) {
  if (card().control(column)) bringCard();
  BrowserForm::focusField(column);
}

void HearingForm::showEvent(QShowEvent* event) {
  BrowserForm::showEvent(event);
  guarded(objectName(), "Form_Activate", [this] { fillLists(); });
}

}  // namespace velmar
