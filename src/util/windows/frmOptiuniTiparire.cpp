#include "util/windows/frmOptiuniTiparire.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "util/Settings.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

constexpr int kMostCopies = 99;
constexpr int kWidestMargin = 80;  // millimetres
const QString kLastPrinter = QStringLiteral("frmOptiuniTiparire/cboImprimanta");
const QString kPdf = QStringLiteral("PDF");

struct Sheet {
  QPageSize::PageSizeId size;
  const char* caption;
};

constexpr Sheet kSheets[] = {{QPageSize::A4, "A4 (210 x 297 mm)"},
                             {QPageSize::A3, "A3 (297 x 420 mm)"},
                             {QPageSize::A5, "A5 (148 x 210 mm)"},
                             {QPageSize::Letter, "Letter (216 x 279 mm)"},
                             {QPageSize::Legal, "Legal (216 x 356 mm)"}};

QSpinBox* pageBox(const QString& name) {
  auto* box = named(new QSpinBox, name);
  box->setMinimum(1);
  return box;
}

}  // namespace

frmOptiuniTiparire::frmOptiuniTiparire(PrintJob& job, bool leadsToPreview, QWidget* parent)
    : QDialog(parent), job_(job), before_(job.pageLayout()) {
  setObjectName("frmOptiuniTiparire");
  setWindowTitle(leadsToPreview ? "Optiuni de tiparire" : "Selectati mod de obtinere raport");
  auto* all = new QVBoxLayout(this);
  all->addWidget(printerFrame());
  all->addWidget(pagesFrame());
  if (job.canSetPage()) all->addWidget(sheetFrame());
  all->addWidget(buttonRow(leadsToPreview));
  all->setSizeConstraint(QLayout::SetFixedSize);
  showPrinter();
  countPages();
  giveMnemonics(this);
}

QWidget* frmOptiuniTiparire::printerFrame() {
  auto* frame = new QGroupBox("Imprimanta");
  cboImprimanta_ = named(new QComboBox, "cboImprimanta", "Unde se tipareste");
  for (const QString& printer : installedPrinters()) cboImprimanta_->addItem(printer, printer);
  const bool none = cboImprimanta_->count() == 0;
  cboImprimanta_->addItem(kPdf, QString());
  const QString last = settings::look(kLastPrinter).toString();
  const QString usual = printFolder().isEmpty() ? QPrinterInfo::defaultPrinterName() : QString();
  const int wanted = cboImprimanta_->findText(last.isEmpty() ? usual : last);
  cboImprimanta_->setCurrentIndex(std::max(0, wanted));
  txtCopii_ = named(new QSpinBox, "txtCopii", "Numar de exemplare");
  txtCopii_->setRange(1, kMostCopies);
  lblImprimanta_ = named(new QLabel, "lblImprimanta");
  lblImprimanta_->setText(none ? "Nu exista imprimante instalate. Paginile se salveaza in fisier PDF."
                               : "Paginile se salveaza in fisier PDF.");
  auto* rows = new QFormLayout(frame);
  rows->addRow("Nume", cboImprimanta_);
  rows->addRow("Exemplare", txtCopii_);
  rows->addRow(lblImprimanta_);
  connect(cboImprimanta_, &QComboBox::currentIndexChanged, this, &frmOptiuniTiparire::showPrinter);
  return frame;
}

QWidget* frmOptiuniTiparire::pagesFrame() {
  auto* frame = new QGroupBox("Pagini");
  optToate_ = named(new QRadioButton("Toate paginile"), "optToate");
  optPagini_ = named(new QRadioButton("De la pagina"), "optPagini");
  txtDeLa_ = pageBox("txtDeLa");
  txtPanaLa_ = pageBox("txtPanaLa");
  optToate_->setChecked(true);
  auto* row = new QHBoxLayout;
  row->addWidget(optPagini_);
  row->addWidget(txtDeLa_);
  row->addWidget(new QLabel("pana la"));
  row->addWidget(txtPanaLa_);
  row->addStretch();
  auto* rows = new QVBoxLayout(frame);
  rows->addWidget(optToate_);
  rows->addLayout(row);
  // Typing a page number selects the option for a range.
  const auto some = [this] { optPagini_->setChecked(true); };
  connect(txtDeLa_, &QSpinBox::valueChanged, this, [this, some](int page) {
    if (!txtDeLa_->hasFocus()) return;
    some();
    txtPanaLa_->setValue(std::max(page, txtPanaLa_->value()));
  });
  connect(txtPanaLa_, &QSpinBox::valueChanged, this, [this, some](int page) {
    if (!txtPanaLa_->hasFocus()) return;
    some();
    txtDeLa_->setValue(std::min(page, txtDeLa_->value()));
  });
  return frame;
}

QWidget* frmOptiuniTiparire::sheetFrame() {
  auto* frame = new QGroupBox("Foaie");
  cboHartie_ = named(new QComboBox, "cboHartie", "Marimea foii");
  for (const Sheet& sheet : kSheets) cboHartie_->addItem(sheet.caption, sheet.size);
  optPortret_ = named(new QRadioButton("Portret"), "optPortret");
  optPeisaj_ = named(new QRadioButton("Peisaj"), "optPeisaj");
  auto* orientation = new QHBoxLayout;
  orientation->addWidget(optPortret_);
  orientation->addWidget(optPeisaj_);
  orientation->addStretch();
  auto* margins = new QGridLayout;
  const char* captions[] = {"Stanga", "Sus", "Dreapta", "Jos"};
  for (int side = 0; side < 4; ++side) {
    auto* box = named(new QSpinBox, QStringLiteral("txtMargini(%1)").arg(side), "Margine in milimetri");
    box->setRange(0, kWidestMargin);
    box->setSuffix(" mm");
    txtMargini_[static_cast<size_t>(side)] = box;
    auto* label = new QLabel(captions[side]);
    label->setBuddy(box);
    margins->addWidget(label, side / 2, side % 2 * 2);
    margins->addWidget(box, side / 2, side % 2 * 2 + 1);
  }
  margins->setColumnStretch(4, 1);
  showSheet();
  auto* rows = new QFormLayout(frame);
  rows->addRow("Marime", cboHartie_);
  rows->addRow("Orientare", orientation);
  rows->addRow("Margini", margins);
  connect(cboHartie_, &QComboBox::currentIndexChanged, this, &frmOptiuniTiparire::sheetChanged);
  connect(optPeisaj_, &QRadioButton::toggled, this, &frmOptiuniTiparire::sheetChanged);
  for (QSpinBox* box : txtMargini_)
    connect(box, &QSpinBox::valueChanged, this, &frmOptiuniTiparire::sheetChanged);
  return frame;
}

void frmOptiuniTiparire::showSheet() {
  int size = cboHartie_->findData(before_.pageSize().id());
  if (size < 0) {
    cboHartie_->addItem(before_.pageSize().name(), before_.pageSize().id());
    size = cboHartie_->count() - 1;
  }
  cboHartie_->setCurrentIndex(size);
  (before_.orientation() == QPageLayout::Landscape ? optPeisaj_ : optPortret_)->setChecked(true);
  const QMarginsF margins = before_.margins(QPageLayout::Millimeter);
  const qreal sides[] = {margins.left(), margins.top(), margins.right(), margins.bottom()};
  for (size_t side = 0; side < txtMargini_.size(); ++side) txtMargini_[side]->setValue(qRound(sides[side]));
}

QWidget* frmOptiuniTiparire::buttonRow(bool leadsToPreview) {
  auto* row = new QWidget;
  auto* cmdOK = makeButton("cmdOK", "OK", leadsToPreview ? "Previzualizare" : "Tiparire", "print");
  auto* cmdAnulare = makeButton("cmdAnulare", "Anulare", "Renunta la tiparire", "close");
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdAnulare, &QPushButton::clicked, this, &QDialog::reject);
  auto* inside = new QHBoxLayout(row);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addStretch();
  inside->addWidget(cmdOK);
  inside->addWidget(cmdAnulare);
  return row;
}

// A PDF file has no copies.
void frmOptiuniTiparire::showPrinter() {
  const bool pdf = cboImprimanta_->currentData().toString().isEmpty();
  txtCopii_->setEnabled(!pdf);
  lblImprimanta_->setVisible(pdf);
}

QPageLayout frmOptiuniTiparire::chosenLayout() const {
  const auto size = QPageSize::PageSizeId(cboHartie_->currentData().toInt());
  const QMarginsF margins(txtMargini_[0]->value(), txtMargini_[1]->value(), txtMargini_[2]->value(),
                          txtMargini_[3]->value());
  return QPageLayout(size == before_.pageSize().id() ? before_.pageSize() : QPageSize(size),
                     optPeisaj_->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait, margins,
                     QPageLayout::Millimeter);
}

void frmOptiuniTiparire::sheetChanged() {
  job_.setPageLayout(chosenLayout());
  countPages();
}

void frmOptiuniTiparire::countPages() {
  const int before = std::exchange(pageCount_, velmar::countPages(job_, this));
  txtDeLa_->setMaximum(pageCount_);
  const bool toTheEnd = txtPanaLa_->value() == before || before == 0;
  txtPanaLa_->setMaximum(pageCount_);
  if (toTheEnd) txtPanaLa_->setValue(pageCount_);
  optToate_->setText(pageCount_ == 1 ? QStringLiteral("Toate paginile (o pagina)")
                                     : QStringLiteral("Toate paginile (%1)").arg(pageCount_));
}

PrintTarget frmOptiuniTiparire::target() const {
  PrintTarget chosen;
  chosen.printer = cboImprimanta_->currentData().toString();
  chosen.copies = txtCopii_->value();
  if (optPagini_->isChecked()) {
    chosen.first = txtDeLa_->value() - 1;
    chosen.last = txtPanaLa_->value() - 1;
  }
  return chosen;
}

void frmOptiuniTiparire::accept() {
  settings::setLook(kLastPrinter, cboImprimanta_->currentText());
  QDialog::accept();
}

void frmOptiuniTiparire::reject() {
  if (job_.canSetPage()) job_.setPageLayout(before_);
  QDialog::reject();
}

}  // namespace velmar
