#include "catalogue/windows/ArticleCard.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>

#include "catalogue/Articles.h"
#include "config/Lists.h"
#include "config/Session.h"
#include "config/windows/CodeBox.h"
#include "config/windows/ComboFill.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kCodeWidth = 9;
constexpr int kShownName = 28;  // characters
const QString kUnit = QStringLiteral("Buc");
const QString kNotANumber = QStringLiteral("Va rog introduceti o valoare numerica");

struct Field {
  const char* caption;
  const char* column;
};

// Indexed by the number of the box txtCamp.
const Field kFields[] = {{"Cod", "CODART"},
                         {"Cod produs furnizor", "CODPRODFUR"},
                         {"Denumire 1", "DENART"},
                         {"Familie", "FAMART"},
                         {"Cod valuta", "CODDEVIZAVANZ"},
                         {"U.M.", "UM"},
                         {"Furnizor", "CODFURNIZO"},
                         {"Cota TVA", "COTATVA"},
                         {"Cost:", "COST"},
                         {"Adaos", "ADAOS"},
                         {"Pret de vanzare fara TVA", "PRETVFT"},
                         {"Pret de vanzare cu TVA", "PRETVTTI"},
                         {"Stoc", "STOC"},
                         {"Pret vanzare valuta", "PRETDEVIZAVANZ"}};
enum FieldIndex {
  kCode,
  kSupplierCode,
  kName,
  kFamily,
  kCurrency,
  kUnitBox,
  kSupplier,
  kVat,
  kCost,
  kMarkup,
  kNet,
  kGross,
  kStock,
  kCurrencyPrice
};

// Rejects characters that are not allowed in a code and converts the others to upper case.
class CodeKeys : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& input, int& position) const override {
    const auto before = input.size();
    input.remove(QRegularExpression(QStringLiteral("['\\s_-]")));
    position = std::max(0, position - static_cast<int>(before - input.size()));
    input = input.toUpper();
    return Acceptable;
  }
};

}  // namespace

ArticleCard::ArticleCard(Card& card)
    : card_(card), txtControl_(named(new QLineEdit(this), "txtControl")), unit_(kUnit) {
  txtControl_->hide();
  auto* left = new QVBoxLayout;
  left->addWidget(identityFrame());
  left->addStretch();
  auto* right = new QVBoxLayout;
  for (QWidget* frame : {vatFrame(), basisFrame(), priceFrame()}) right->addWidget(frame);
  right->addStretch();
  auto* all = new QHBoxLayout(this);
  all->addLayout(left, 3);
  all->addLayout(right, 2);
  if (session().ModAudio) {
    auto* hearing = new QVBoxLayout;
    hearing->addWidget(hearingFrame());
    hearing->addStretch();
    all->addLayout(hearing, 2);
  }
  const std::pair<int, Value> defaults[] = {{kUnitBox, unit_}, {kVat, 19}, {kCost, 0}, {kCurrencyPrice, 0}};
  for (const auto& [index, value] : defaults) card_.setDefault(kFields[index].column, value);
  card_.setDefault("PROVENIENTA", "M");
  card_.setDefault("PALET", " ");
  basisChanged();
  refreshLists();
}

QLineEdit* ArticleCard::textField(QFormLayout* rows, int index) {
  const Field& field = kFields[index];
  const int width = companyTable("G_ARTMAG").column(field.column)->width;
  auto* box = card_.add(
      field.column, makeTextBox(QStringLiteral("txtCamp(%1)").arg(index), width > 0 ? width : kCodeWidth));
  rows->addRow(field.caption, box);
  return box;
}

NumberBox* ArticleCard::numberField(QFormLayout* rows, int index) {
  // Quantities are shown as stored, amounts with two decimals.
  const int decimals = index == kStock ? -1 : 2;
  auto* box = card_.add(kFields[index].column,
                        named(new NumberBox(decimals), QStringLiteral("txtCamp(%1)").arg(index)));
  rows->addRow(kFields[index].caption, box);
  return box;
}

// A box for a code with a list of the names beside it.
SearchCombo* ArticleCard::listFor(QFormLayout* rows, int index, const QString& name, const QString& kind) {
  const Field& field = kFields[index];
  const int width = companyTable("G_ARTMAG").column(field.column)->width;
  auto* box = card_.add(
      field.column, makeTextBox(QStringLiteral("txtCamp(%1)").arg(index), width > 0 ? width : kCodeWidth));
  auto* list = new SearchCombo(name, {}, kShownName, this);
  moveOnWithEnter(list);
  pairWithCombo(box, list);
  requireKnownCodeWhenLeft(box, kind);
  auto* row = new QHBoxLayout;
  row->addWidget(box);
  row->addWidget(list, 1);
  rows->addRow(field.caption, row);
  static_cast<QLabel*>(rows->labelForField(row))->setBuddy(list);
  return list;
}

QWidget* ArticleCard::identityFrame() {
  auto* frame = new QGroupBox("Articol");
  auto* rows = new QFormLayout(frame);
  QLineEdit* code = textField(rows, kCode);
  code->setValidator(new CodeKeys(code));
  QLineEdit* supplierCode = textField(rows, kSupplierCode);
  QLineEdit* name = textField(rows, kName);
  KeyFilter::install(name, KeyFilter::NoQuote);
  QLineEdit* otherName = card_.add("DenAltaLimba", makeTextBox("txtDenAltaLimba", 35));
  rows->addRow("Denumire 2", otherName);
  for (QLineEdit* box : {code, supplierCode, name, otherName}) fitCapitals(box);
  DataCombo2_ = listFor(rows, kFamily, "DataCombo2", "CodFamilie");
  DataCombo1_ = listFor(rows, kSupplier, "DataCombo1", "CodTert");
  QLineEdit* unit = textField(rows, kUnitBox);
  connect(unit, &QLineEdit::textEdited, this, [this](const QString& text) {
    unit_ = text;
    card_.setDefault(kFields[kUnitBox].column, unit_);
  });
  auto* origin = card_.add("PROVENIENTA", named(new QComboBox, "cboProv", "Marfa sau Productie"));
  for (const char* each : {"M", "P"}) origin->addItem(each, each);
  rows->addRow("Provenienta", origin);
  rows->addRow("Palet", card_.add("PALET", makeTextBox("TextPalet", 20)));
  chkFaraStoc_ = card_.add("FARASTOC", named(new QCheckBox("Fara stoc"), "chkFaraStoc"));
  rows->addRow(QString(), chkFaraStoc_);
  cboCodDevizaDenumire_ = listFor(rows, kCurrency, "cboCodDevizaDenumire", "CodValuta");
  numberField(rows, kCurrencyPrice);
  return frame;
}

QWidget* ArticleCard::vatFrame() {
  Frame5_ = named(new QGroupBox("TVA"), "Frame5");
  requireNumberWhenLeft(numberField(new QFormLayout(Frame5_), kVat));
  return Frame5_;
}

QWidget* ArticleCard::basisFrame() {
  Frame10_ = named(new QGroupBox("Mod de calcul"), "Frame10");
  auto* row = new QHBoxLayout(Frame10_);
  fromNet_ = named(new QRadioButton("TTI"), "optModCalc(0)");
  fromGross_ = named(new QRadioButton("Fara taxe"), "optModCalc(1)");
  fromNet_->setChecked(true);
  for (QRadioButton* basis : {fromNet_, fromGross_}) {
    moveOnWithEnter(basis);
    row->addWidget(basis);
  }
  row->addStretch();
  connect(fromNet_, &QRadioButton::toggled, this, &ArticleCard::basisChanged);
  return Frame10_;
}

QWidget* ArticleCard::priceFrame() {
  picPreturi_ = named(new QGroupBox("Preturi"), "picPreturi");
  auto* rows = new QFormLayout(picPreturi_);
  numberField(rows, kCost);
  lockBox(numberField(rows, kMarkup));
  for (const int index : {kNet, kGross}) {
    NumberBox* box = numberField(rows, index);
    requireNumberWhenLeft(box);
    connect(box, &QLineEdit::editingFinished, this, [this, box] {
      if (!box->isReadOnly() && box->isModified()) recalculate();
      box->setModified(false);
    });
  }
  lockBox(numberField(rows, kStock));
  return picPreturi_;
}

QWidget* ArticleCard::hearingFrame() {
  frmAudio_ = named(new QGroupBox("Caracteristici aparate auditive"), "frmAudio");
  hearingRows_ = new QFormLayout(frmAudio_);
  hearingRows_->addRow("Tip aparat", card_.add("TipAparat", makeTextBox("txtTipAparat", 50)));
  hearingRows_->addRow("Tip baterie", card_.add("TipBaterie", makeTextBox("txtTipBaterie", 50)));
  hearingRows_->addRow("Model", card_.add("TipEmitator", makeTextBox("txtModel", 50)));
  const auto amount = [this](const QString& caption, const QString& column, const QString& name) {
    auto* box = card_.add(column, named(new NumberBox(2), name));
    requireNumberWhenLeft(box, kNotANumber, 0, {}, [this, box] {
      box->setNumber(Decimal(0));
      showDifference();
    });
    connect(box, &QLineEdit::editingFinished, this, &ArticleCard::showDifference);
    hearingRows_->addRow(caption, box);
    card_.setDefault(column, 0);
    return box;
  };
  txtPretVanzare_ = amount("Pret vanzare FT", "PretVanzare", "txtPretVanzare");
  txtCompensareCAS_ = amount("Compensare CAS", "CompensareCAS", "txtCompensareCAS");
  txtDiferenta_ = named(new NumberBox(2), "txtDiferenta");
  lockBox(txtDiferenta_);
  hearingRows_->addRow("Diferenta pacient", txtDiferenta_);
  chkDeviza_ = named(new QCheckBox("Pret in Deviza"), "chkDeviza");
  cboDeviza_ = named(new QComboBox, "cboDeviza");
  cboDeviza_->setEnabled(false);
  connect(chkDeviza_, &QCheckBox::toggled, cboDeviza_, &QWidget::setEnabled);
  for (QWidget* control : {static_cast<QWidget*>(chkDeviza_), static_cast<QWidget*>(cboDeviza_)})
    moveOnWithEnter(control);
  hearingRows_->addRow(chkDeviza_, cboDeviza_);
  return frmAudio_;
}

void ArticleCard::watchPrices() {
  for (const int index : {kNet, kGross}) number(index)->installEventFilter(this);
}

void ArticleCard::refreshLists() {
  fillCodeCombos({DataCombo1_}, kSupplierList);
  fillCodeCombos({DataCombo2_}, kFamilyList);
  fillCodeCombos({cboCodDevizaDenumire_}, codeList("kt_val", "COD", "TITLU"));
  if (cboCodDevizaDenumire_->count() == 0) LegaCombo(*cboCodDevizaDenumire_, {{kNoRecords, {}}});
  if (!cboDeviza_) return;
  const QString currency = cboDeviza_->currentText();
  IncarcaCombo(*cboDeviza_);
  cboDeviza_->setCurrentText(currency);
}

void ArticleCard::resetUnit() {
  unit_ = kUnit;
  card_.setDefault(kFields[kUnitBox].column, unit_);
}

NumberBox* ArticleCard::number(int index) const {
  return static_cast<NumberBox*>(card_.control(kFields[index].column));
}

PriceBasis ArticleCard::basis() const { return fromNet_->isChecked() ? PriceBasis::Net : PriceBasis::Gross; }

void ArticleCard::basisChanged() {
  const auto open = [](NumberBox* box, bool isOpen) {
    box->setReadOnly(!isOpen);
    markLocked(box, !isOpen);
  };
  open(number(kNet), basis() == PriceBasis::Net);
  open(number(kGross), basis() == PriceBasis::Gross);
}

void ArticleCard::recalculate() {
  for (const int index : {kVat, kCost, kNet, kGross})
    if (!number(index)->typed().trimmed().isEmpty() && !number(index)->number()) return;
  const auto amount = [this](int index) { return number(index)->number().value_or(Decimal(0)); };
  const bool held = !chkFaraStoc_->isChecked();
  const ArticlePrices prices = recalculated({amount(kCost), amount(kMarkup), amount(kNet), amount(kGross)},
                                            amount(kVat), basis(), held);
  number(kMarkup)->setNumber(prices.markup);
  number(kNet)->setNumber(prices.net);
  number(kGross)->setNumber(prices.gross);
}

void ArticleCard::showDifference() {
  txtDiferenta_->setNumber(txtPretVanzare_->number().value_or(Decimal(0)) -
                           txtCompensareCAS_->number().value_or(Decimal(0)));
}

void ArticleCard::recordShown(const Row* record) {
  txtControl_->setText(record ? record->text("CODART") : QString());
  auto* code = static_cast<QLineEdit*>(card_.control("CODART"));
  code->setReadOnly(record);
  markLocked(code, record);
  if (frmAudio_) {
    const QString currency = record ? record->text("CODDEVIZA") : QString();
    chkDeviza_->setChecked(!currency.isEmpty());
    cboDeviza_->setCurrentText(currency);
    showDifference();
  }
  showFrames(record);
}

void ArticleCard::showFrames(const Row* record) {
  const bool inStock = record && record->decimal("STOC") != Decimal(0);
  chkFaraStoc_->setEnabled(!inStock);
  Frame5_->setVisible(inStock);
  Frame10_->setVisible(inStock);
  picPreturi_->setVisible(inStock || (record && record->flag("FARASTOC")));
  if (frmAudio_) hearingRows_->setRowVisible(txtCompensareCAS_, inStock);
  if (frmAudio_) hearingRows_->setRowVisible(txtDiferenta_, inStock);
}

Row ArticleCard::article() const {
  const Row typed = card_.typed();
  const bool inCurrency = chkDeviza_ && chkDeviza_->isChecked() && !cboDeviza_->currentText().isEmpty();
  if (!inCurrency) return typed;
  Row row = rowOf(typed.columns() + QStringList("CODDEVIZA"), typed);
  row.set("CODDEVIZA", cboDeviza_->currentText());
  return row;
}

QWidget* ArticleCard::entryOf(const QString& column) const {
  if (column == QStringLiteral("FAMART")) return DataCombo2_;
  if (column == QStringLiteral("CODFURNIZO")) return DataCombo1_;
  if (column == QStringLiteral("CODDEVIZA")) return cboDeviza_;
  return card_.control(column);
}

// Enter in a price also proposes it as the price of the hearing device.
bool ArticleCard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const auto cost = number(kCost)->number();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && cost && *cost != Decimal(0)) {
      recalculate();
      if (txtPretVanzare_) {
        txtPretVanzare_->setNumber(number(kNet)->number());
        showDifference();
      }
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace velmar
