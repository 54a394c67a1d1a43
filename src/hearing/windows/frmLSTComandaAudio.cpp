#include "hearing/windows/frmLSTComandaAudio.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "hearing/OrderPaper.h"
#include "reports/windows/ListingCommands.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

frmLSTComandaAudio::frmLSTComandaAudio(qint64 order, QWidget* parent) : QDialog(parent), order_(order) {
  setObjectName("frmLSTComandaAudio");
  setWindowTitle("Comanda dispozitiv");
  auto* frame = new QGroupBox("Se tipareste");
  auto* row = new QHBoxLayout(frame);
  auto* front = named(new QRadioButton(" Fata"), "OptionFata");
  OptionVerso_ = named(new QRadioButton(" Verso"), "OptionVerso");
  front->setChecked(true);
  row->addWidget(front);
  row->addWidget(OptionVerso_);
  row->addStretch();
  auto* all = new QVBoxLayout(this);
  all->addWidget(frame);
  all->addLayout(listingCommands(
      this, QStringLiteral("Anulare"),
      {[this] { listReport(prepare(), false, this); }, [this] { designReport(prepare(), this); }}));
  giveMnemonics(this);
  findChild<QPushButton*>("cmdVisualizare")->setFocus();
}

PreparedReport frmLSTComandaAudio::prepare() const {
  return {orderLayout(OptionVerso_->isChecked()), orderPaper(order_)};
}

}  // namespace velmar
