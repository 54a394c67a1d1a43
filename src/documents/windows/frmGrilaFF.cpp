#include "documents/windows/frmGrilaFF.h"

#include <QLabel>
#include <QPushButton>

#include "documents/windows/frmImportXLS.h"
#include "documents/windows/LineModel.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

const QString kMargin = QStringLiteral("TextMarja");

QLabel* legend(const QString& name, const QString& text, const LineColours& colours) {
  auto* label = named(new QLabel(text), name);
  label->setAutoFillBackground(true);
  label->setFrameShape(QFrame::StyledPanel);
  label->setMargin(2);
  QPalette palette = label->palette();
  palette.setColor(QPalette::Window, colours.back);
  palette.setColor(QPalette::WindowText, colours.text);
  label->setPalette(palette);
  return label;
}

}  // namespace

frmGrilaFF::frmGrilaFF(QWidget* parent) : frmGrila(QStringLiteral("FF"), parent) {
  auto* import =
      makeButton("cmdImport", "Import",
                 "Import detalii din fisier EXCEL cu structura: COD,DENUMIRE,PRET,CANTITATE,ADAOS");
  connect(import, &QPushButton::clicked, this, [this] { run("cmdImport_Click", [this] { importLines(); }); });
  addCommand(import);
  addLegend();
}

void frmGrilaFF::importLines() {
  LineImport invoice;
  invoice.number = numberForImport(kNoInvoice, kHasLines);
  invoice.supplier = editor().header().integer("CODFUR");
  frmImportXLS(invoice, editor().header().date("DATAFAC"), this).exec();
  showImported();
}

void frmGrilaFF::addLegend() {
  const LineColours dearer = lineColours(LineMark::Dearer);
  auto* swatch = legend("LabelRosu", "    ", {dearer.back, dearer.text});
  addBesideCheck(swatch);
  addBesideCheck(legend("LabelDepasiri", "Depasiri", dearer));
  addBesideCheck(legend("LabelNoi", " Intrari noi", lineColours(LineMark::First)));
}

void frmGrilaFF::headerTouched() {
  const QString margin = editor().headerTexts().value(kMargin);
  if (margin == margin_) return;
  margin_ = margin;
  recolourLines();
}

}  // namespace velmar
