#include "documents/windows/frmLst.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "reports/windows/ListingCommands.h"
#include "util/Clock.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"

namespace velmar {

namespace {

constexpr int kLongest = 45;     // characters of a box, as of a remark
constexpr int kShownWidth = 34;  // of a box, in characters

bool isTicked(const QCheckBox* box) { return box && box->isChecked(); }

}  // namespace

frmLst::frmLst(const Printout& printout, QWidget* parent)
    : QDialog(parent),
      kind_(*printout.form),
      document_(readListed(printout)),
      own_(printout.own),
      foreign_(printout.foreign) {
  setObjectName(kind_.form);
  setWindowTitle(kind_.caption);
  auto* all = new QVBoxLayout(this);
  if (kind_.offersReceipt || kind_.offersCurrency || !kind_.preprinted.isEmpty())
    all->addWidget(optionsFrame());
  if (!kind_.boxes.isEmpty()) all->addWidget(delegateFrame());
  all->addLayout(
      listingCommands(this, QStringLiteral("Anulare"), {[this] { list(); }, [this] { design(); }}));
  giveMnemonics(this);
  findChild<QPushButton*>("cmdVisualizare")->setFocus();
}

QGroupBox* frmLst::optionsFrame() {
  auto* frame = named(new QGroupBox(QStringLiteral("Optiuni de listare")), "Frame2");
  auto* row = new QHBoxLayout(frame);
  if (kind_.offersReceipt)
    row->addWidget(CheckChitanta_ = named(new QCheckBox(QStringLiteral(" Chitanta")), "CheckChitanta",
                                          "Bifati daca doriti chitanta"));
  if (kind_.offersCurrency) {
    row->addWidget(CheckDeviza_ = named(new QCheckBox(QStringLiteral(" Deviza")), "CheckDeviza",
                                        "Valorile se tiparesc in valuta documentului"));
    CheckDeviza_->setChecked(foreign_);
  }
  if (!kind_.preprinted.isEmpty())
    row->addWidget(chkTiparire_ = named(new QCheckBox(QStringLiteral("Listare pe formular tipizat")),
                                        "chkTiparire", "Se tiparesc numai valorile"));
  row->addStretch();
  return frame;
}

QGroupBox* frmLst::delegateFrame() {
  auto* frame = named(new QGroupBox(QStringLiteral("Date despre delegat")), "Frame1");
  auto* rows = new QFormLayout(frame);
  for (const ListingBox& box : kind_.boxes) {
    if (QLatin1String(box.variable) == QLatin1String(kDispatchDate)) {
      auto* date = named(new DateBox, box.control);
      date->setDate(clock::today());
      rows->addRow(box.caption, date);
      continue;
    }
    QLineEdit* text = makeTextBox(box.control, kLongest);
    text->setMinimumWidth(fontMetrics().averageCharWidth() * kShownWidth);
    rows->addRow(box.caption, text);
  }
  return frame;
}

ListingOptions frmLst::options() const {
  ListingOptions options;
  options.own = own_;
  options.receipt = isTicked(CheckChitanta_);
  options.foreign = CheckDeviza_ ? CheckDeviza_->isChecked() : foreign_;
  options.preprinted = isTicked(chkTiparire_);
  for (const ListingBox& box : kind_.boxes) {
    const auto* control = findChild<QWidget*>(box.control);
    if (const auto* date = qobject_cast<const DateBox*>(control))
      options.boxes[box.variable] = date->date();
    else
      options.boxes[box.variable] = qobject_cast<const QLineEdit*>(control)->text().trimmed();
  }
  return options;
}

PreparedReport frmLst::prepare() const {
  if (!kind_.partner.isEmpty() && document_.partner.isEmpty())
    for (const QString& text : missingPartnerTexts(kind_)) Mesaj(text);
  return {listingFile(kind_, options()), listingData(kind_, document_, options())};
}

// Takes over a date that is still being typed; one that does not exist lists nothing.
bool frmLst::settle() {
  if (!entriesAccepted(this)) return false;
  for (DateBox* date : findChildren<DateBox*>()) date->takeTyped();
  return true;
}

void frmLst::list() {
  if (!settle()) return;
  const PreparedReport report = prepare();
  if (document_.lines.isEmpty()) {
    Mesaj(QStringLiteral("Nu exista inregistrari"));
    return;
  }
  listReport(report, kind_.choosesTarget, this);
}

void frmLst::design() {
  if (settle()) designReport(prepare(), this);
}

void listDocument(const Printout& printout, QWidget* parent) { frmLst(printout, parent).exec(); }

}  // namespace velmar
