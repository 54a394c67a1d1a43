#include "documents/windows/frmGrilaFC2.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "config/Session.h"
#include "documents/windows/frmGrilaFC.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/WindowHost.h"

namespace velmar {

frmGrilaFC2::frmGrilaFC2(QWidget* parent) : QDialog(parent) {
  setObjectName("frmGrilaFC2");
  setWindowTitle("Alegere document sursa pentru factura");
  auto* notes = makeButton("cmdAE", "Aviz de expeditie", "Creare Facturi din Avize de Expeditie sau Direct",
                           "invoice-out");
  notes->setDefault(true);
  auto* orders =
      makeButton("cmdCC", "Comanda client", "Creare Facturi din Comenzi Client sau Direct", "sales");
  connect(notes, &QPushButton::clicked, this, [this] { choose(kFromNotes); });
  connect(orders, &QPushButton::clicked, this, [this] { choose(kFromOrders); });
  auto* all = new QVBoxLayout(this);
  for (QPushButton* button : {notes, orders}) {
    button->setMinimumHeight(fontMetrics().height() * 2);
    button->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    all->addWidget(button);
  }
  giveMnemonics(this);
}

void frmGrilaFC2::choose(int source) {
  accept();
  guarded("frmGrilaFC2", "choose", [source] {
    session().gModFactura = source;
    QWidget* window = windowHost()->showOne("frmGrilaFC", [] { return new frmGrilaFC; });
    auto* invoices = qobject_cast<frmGrilaFC*>(window);
    invoices->refreshLists();
  });
}

}  // namespace velmar
