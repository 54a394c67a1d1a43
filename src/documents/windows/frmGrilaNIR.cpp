#include "documents/windows/frmGrilaNIR.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>

#include "documents/LineSource.h"
#include "documents/windows/frmReceptieXLS.h"
#include "documents/windows/HeaderForm.h"
#include "documents/windows/LineGrid.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

const QString kReturn = QStringLiteral("chkReturMf");
const QString kTicked = QStringLiteral("-1");

}  // namespace

frmGrilaNIR::frmGrilaNIR(QWidget* parent) : frmGrila(QStringLiteral("NR"), parent) {
  const std::pair<const char*, const char*> imports[] = {
      {"cmdImportP",
       "Genereaza NIR de constatare plusuri (daca exista) prin comparare  FFI din lotul indicat in campul "
       "Observatii si fisier RECEPTIE.XLS"},
      {"cmdImportM",
       "Genereaza NIR de constatare minusuri (daca exista) prin comparare  FFI din lotul indicat in campul "
       "Observatii si fisier RECEPTIE.XLS"}};
  for (const auto& [name, toolTip] : imports) {
    auto* button = makeButton(name, QLatin1String(name).endsWith(u'P') ? "Plusuri" : "Minusuri", toolTip);
    const bool ofSurpluses = QLatin1String(name).endsWith(u'P');
    connect(button, &QPushButton::clicked, this, [this, name, ofSurpluses] {
      run(QLatin1String(name) + "_Click", [this, ofSurpluses] { importLot(ofSurpluses); });
    });
    addCommand(button);
  }
  header()->control("OBS")->installEventFilter(this);
  enableReturn();
}

void frmGrilaNIR::importLot(bool ofSurpluses) {
  const QString note = numberForImport(
      "Va rog selectati un document NIR",
      "Va rugam stergeti liniile de detalii inaintea importului, sau creati un document NIR nou");
  frmReceptieXLS(note, ofSurpluses, this).exec();
  showImported();
}

bool frmGrilaNIR::isReturn() { return header()->texts().value(kReturn) == kTicked; }

// A return is chosen before there are lines, and not for opening stock, which may be of products too.
void frmGrilaNIR::enableReturn() {
  const bool isOpening = header()->texts().value("STOCINITIAL") == kTicked;
  lines()->setArticles(articleListWithPrice(isOpening));
  header()->setFieldEnabled(kReturn, editor().lines().empty() && !isOpening);
}

// A note with goods of a delivery note is a return.
void frmGrilaNIR::documentShown() {
  const bool is = comesFrom(editor().onScreen(), KindId::DeliveryNote);
  header()->showChanges({{kReturn, is ? kTicked : QString()}});
  enableReturn();
}

void frmGrilaNIR::totalsShown() { enableReturn(); }

void frmGrilaNIR::fieldChosen(const QString& key) {
  if (key == QStringLiteral("STOCINITIAL")) enableReturn();
  if (key != kReturn || !isReturn() || !editor().lines().empty()) return;
  Mesaj(
      "Introduceti numarul Avizului de Expeditie in campul de Observatii din fereastra principala si apasati "
      "tasta < Enter > ! ",
      kOk, "Numar Aviz Expeditie");
  header()->control("OBS")->setFocus();
}

bool frmGrilaNIR::eventFilter(QObject* watched, QEvent* event) {
  if (watched == header()->control("OBS") && event->type() == QEvent::KeyPress && isReturn()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      for (const LineSource* source : editor().kind().sources)
        if (source->kind() == KindId::DeliveryNote)
          run("txtFields(3)",
              [this, source] { addLines(*source, header()->typed().value("OBS").trimmed()); });
      return true;
    }
  }
  return frmGrila::eventFilter(watched, event);
}

}  // namespace velmar
