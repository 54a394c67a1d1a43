#include "shell/windows/frmSelMagazie.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "config/Warehouses.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

frmSelMagazie::frmSelMagazie(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmSelMagazie"));
  setWindowTitle(QStringLiteral("Selectie Magazie"));
  auto* caption = new QLabel(QStringLiteral("Denumire magazie"));
  caption->setObjectName(QStringLiteral("Label1"));
  combo_ = new QComboBox;
  combo_->setObjectName(QStringLiteral("DataCombo1"));
  combo_->setMinimumContentsLength(28);
  caption->setBuddy(combo_);
  picked_ = new QLabel;
  picked_->setObjectName(QStringLiteral("Label2"));
  picked_->setTextFormat(Qt::PlainText);
  auto* cmdOK = new QPushButton(QStringLiteral("OK"));
  cmdOK->setObjectName(QStringLiteral("cmdOK"));
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this,
          [this] { guarded("frmSelMagazie", "cmdOK_Click", [this] { confirm(); }); });
  auto* cmdIesire = new QPushButton(QStringLiteral("Iesire"));
  cmdIesire->setObjectName(QStringLiteral("cmdIesire"));
  cmdIesire->setToolTip(QStringLiteral("Inchidere fereastra"));
  cmdIesire->setAutoDefault(false);
  connect(cmdIesire, &QPushButton::clicked, this, &QDialog::reject);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdIesire);
  auto* all = new QVBoxLayout(this);
  all->addWidget(caption);
  all->addWidget(combo_);
  all->addWidget(picked_);
  all->addSpacing(fontMetrics().height());
  all->addLayout(buttons);
  combo_->installEventFilter(this);
  combo_->setFocus();
  load();
  connect(combo_, &QComboBox::activated, this, &frmSelMagazie::pick);
  connect(combo_, &QComboBox::currentIndexChanged, this, &frmSelMagazie::pick);
}

void frmSelMagazie::load() {
  try {
    warehouses_ = workingWarehouses();
    for (const Row& warehouse : warehouses_) combo_->addItem(warehouse.text("DENUMIRE"));
  } catch (const Cancelled&) {
    // The list stays empty; the user may leave and start again.
  } catch (const Error& error) {
    Mesaj(QStringLiteral("%1 - %2 -  Eroare incarcare").arg(QString::number(error.number()), error.text()));
  }
}

void frmSelMagazie::pick(int row) {
  if (row < 0) return;
  row_ = row;
  picked_->setText(combo_->itemText(row));
}

void frmSelMagazie::confirm() {
  if (!row_) {
    Mesaj(QStringLiteral("Va rugam alegeti o magazie pentru activitate!"), kOk, QStringLiteral("Atentie!"));
    return;
  }
  const Row& warehouse = warehouses_[*row_];
  accept();
  emit warehouseChosen(warehouse.integer("COD"), warehouse.text("DENUMIRE"));
}

bool frmSelMagazie::eventFilter(QObject* watched, QEvent* event) {
  // The arrow keys cannot move within a list of one row, yet they pick it.
  if (!row_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Up) {
      pick(combo_->currentIndex());
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace velmar
