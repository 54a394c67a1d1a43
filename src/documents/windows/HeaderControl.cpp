#include "documents/windows/HeaderControl.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>

#include "catalogue/windows/frmTerti.h"
#include "config/Lists.h"
#include "config/Lookups.h"
#include "config/windows/CodeBox.h"
#include "config/windows/ComboFill.h"
#include "store/Schema.h"
#include "util/Errors.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Forms.h"
#include "util/windows/KeyFilter.h"
#include "util/windows/SearchCombo.h"
#include "util/windows/WindowHost.h"

namespace velmar {

namespace {

constexpr int kNumberLength = 15;
constexpr int kCodeLength = 9;
constexpr int kPaletLength = 20;
constexpr int kShownCode = 8;  // characters
constexpr int kShownChoice = 12;
constexpr int kShownPartner = 14;
const QString kNotANumber = QStringLiteral("Va rog introduceti o valoare numerica");
const QString kOwnJournal = QStringLiteral("(jurnalul societatii)");

int longestText(const DocumentKind& kind, const HeaderField& field) {
  if (field.longest > 0) return field.longest;
  if (field.type == HeaderFieldType::Text && field.column.isEmpty()) return kPaletLength;
  const Column* column = companyTable(kind.headerTable).column(field.column);
  return column && column->type == ColumnType::Text ? column->width : kNumberLength;
}

class TextControl : public HeaderControl {
 public:
  TextControl(const DocumentKind& kind, const HeaderField& field, QWidget* form)
      : HeaderControl(field),
        box_(named(new QLineEdit(form), field.control, field.toolTip)),
        longest_(longestText(kind, field)) {
    box_->setMaxLength(longest_);
    const bool mayHoldBlanks = field.type == HeaderFieldType::Remark || field.type == HeaderFieldType::Text;
    KeyFilter::install(box_, mayHoldBlanks ? KeyFilter::Options(KeyFilter::NoQuote)
                                           : KeyFilter::NoQuote | KeyFilter::NoBlank);
    connect(box_, &QLineEdit::textEdited, this, &HeaderControl::touched);
    connect(box_, &QLineEdit::editingFinished, this, [this] { choose(); });
  }

  QString text() const override { return box_->text(); }
  QList<QWidget*> boxes() const override { return {box_}; }

 protected:
  // What is stored may have characters that cannot be typed, or more of them; it is then not a change.
  void put(const QString& text) override {
    box_->setMaxLength(std::max(longest_, static_cast<int>(text.size())));
    KeyFilter::showUnfiltered(box_, text);
  }

 private:
  QLineEdit* box_;
  int longest_;
};

class NumberControl : public HeaderControl {
 public:
  NumberControl(const HeaderField& field, int decimals, QWidget* form)
      : HeaderControl(field), box_(named(new NumberBox(decimals, form), field.control, field.toolTip)) {
    box_->setMaxLength(kNumberLength);
    box_->setMinimumWidth(box_->fontMetrics().averageCharWidth() * kShownCode);
    KeyFilter::install(box_, KeyFilter::NoQuote | KeyFilter::NoBlank);
    if (field.type != HeaderFieldType::Percent) requireNumberWhenLeft(box_, kNotANumber);
    connect(box_, &QLineEdit::textEdited, this, &HeaderControl::touched);
    connect(box_, &QLineEdit::editingFinished, this, [this] { choose(); });
  }

  QString text() const override { return box_->typed(); }
  QList<QWidget*> boxes() const override { return {box_}; }

 protected:
  void put(const QString& text) override { box_->setTyped(text); }

 private:
  NumberBox* box_;
};

class DateControl : public HeaderControl {
 public:
  DateControl(const HeaderField& field, QWidget* form)
      : HeaderControl(field), box_(named(new DateBox(form), field.control, field.toolTip)) {
    connect(box_, &QDateEdit::dateChanged, this, [this] {
      emit touched();
      choose();
    });
  }

  QString text() const override { return box_->date().toString(Qt::ISODate); }
  void settle() override { box_->takeTyped(); }
  QList<QWidget*> boxes() const override { return {box_}; }

 protected:
  void put(const QString& text) override { box_->showDate(QDate::fromString(text, Qt::ISODate)); }

 private:
  DateBox* box_;
};

class FlagControl : public HeaderControl {
 public:
  FlagControl(const HeaderField& field, QWidget* form)
      : HeaderControl(field),
        box_(named(new QCheckBox(field.caption.trimmed(), form), field.control, field.toolTip)) {
    connect(box_, &QCheckBox::clicked, this, [this] {
      emit touched();
      choose();
    });
  }

  QString text() const override { return box_->isChecked() ? QStringLiteral("-1") : QStringLiteral("0"); }
  QList<QWidget*> boxes() const override { return {box_}; }

 protected:
  void put(const QString& text) override { box_->setChecked(!text.isEmpty() && text != QStringLiteral("0")); }

 private:
  QCheckBox* box_;
};

// The partner: its code beside the list of names, and the name in full below.
class PartnerControl : public HeaderControl {
 public:
  PartnerControl(const DocumentKind& kind, const HeaderField& field, QWidget* form)
      : HeaderControl(field),
        kind_(kind),
        code_(named(new QLineEdit(form), field.control, field.toolTip)),
        names_(new SearchCombo(field.list, field.toolTip, kShownPartner, form)) {
    code_->setMaxLength(kCodeLength);
    code_->setFixedWidth(form->fontMetrics().averageCharWidth() * kShownCode);
    KeyFilter::install(code_, KeyFilter::NoQuote | KeyFilter::NoBlank);
    connect(code_, &QLineEdit::textEdited, this, &HeaderControl::touched);
    connect(code_, &QLineEdit::editingFinished, this, [this] {
      showName();
      choose();
    });
    connect(names_, &SearchCombo::settled, this, [this] { takeName(); });
    requireChoiceWhenLeft(names_);
    const bool isMain = field.column == kind.partnerColumn;
    add_ = makeButton(isMain ? "cmdAdaugaTert1" : "cmdAdaugaTert3", {}, "Adaugare tert nou", "add-partner");
    add_->setParent(form);
    connect(add_, &QPushButton::clicked, this, [this] { openPartners(); });
    if (!isMain) return;
    name_ = named(new ElidedLabel(form), QStringLiteral("Label2"));
  }

  QString text() const override { return code_->text(); }

  void settle() override {
    if (!names_->hasFocus()) return;
    names_->settle();
    takeName();
  }

  void refresh() override {
    const QSignalBlocker quiet(names_);
    LegaCombo(*names_, kind_.partnersAreSuppliers ? kSupplierList : kCustomerList);
    showName();
  }

  QList<QWidget*> boxes() const override { return {code_, names_}; }
  QWidget* entry() const override { return names_; }
  QWidget* besides() const override { return add_; }
  QWidget* below() const override { return name_; }

 protected:
  void put(const QString& text) override {
    code_->setText(text);
    showName();
  }

 private:
  QVariant number() const { return text().isEmpty() ? QVariant() : QVariant(text().toLongLong()); }

  void showName() {
    names_->showData(number());
    showFullName();
  }

  void showFullName() {
    if (!name_) return;
    QString name;
    if (!names_->choice().isNull())
      name = names_->currentText();
    else if (!text().isEmpty())  // a partner that the list leaves out, or one that does not exist
      guarded(kind_.window, QStringLiteral("Label2"), [this, &name] {
        name = ValoareSql("SELECT NUME FROM kt_ter WHERE COD = ?", {text().toLongLong()});
      });
    name_->setText(name);
    name_->setToolTip(name);  // in case the name is too long for the label
  }

  // An emptied name empties the code. A code or a name that is not in the list remains for the user to
  // correct.
  void takeName() {
    const QString code = names_->choice().toString();
    const bool isEmptied = names_->currentText().trimmed().isEmpty() && names_->findData(number()) >= 0;
    if (text() == code || (code.isEmpty() && !isEmptied)) return;
    code_->setText(code);
    showFullName();
    emit touched();
    choose();
  }

  void openPartners() {
    showName();  // a name that is not in the list yet is no fault here
    const bool suppliers = kind_.partnersAreSuppliers;
    QWidget* window = windowHost()->showOne(suppliers ? "frmTerti F" : "frmTerti C", [suppliers] {
      return suppliers ? makeSuppliers(nullptr) : makeCustomers(nullptr);
    });
    const QPointer<PartnerControl> alive(this);
    static_cast<frmTerti*>(window)->addFor([alive](const QString& code) {
      if (alive) alive->bringBack(code);
    });
  }

  // Selects the new partner in this document and activates its window.
  void bringBack(const QString& code) {
    QWidget* form = code_;
    while (form->parentWidget() && !qobject_cast<QMdiSubWindow*>(form->parentWidget()))
      form = form->parentWidget();
    activateForm(form);
    names_->setFocus();
    if (!code_->isEnabled()) return;
    code_->setText(code);
    refresh();
    emit touched();
    choose();
  }

  const DocumentKind& kind_;
  QLineEdit* code_;
  SearchCombo* names_;
  QPushButton* add_ = nullptr;
  QLabel* name_ = nullptr;
};

// An empty list says so in one row.
std::vector<ListEntry> orNoRecords(std::vector<ListEntry> entries) {
  if (entries.empty()) entries.push_back({kNoRecords, {}});
  return entries;
}

// A code of a short list, typed or chosen: VAT rate, journal.
class CodeControl : public HeaderControl {
 public:
  using Entries = std::function<std::vector<ListEntry>()>;

  CodeControl(const DocumentKind& kind, const HeaderField& field, Entries entries, QWidget* form)
      : HeaderControl(field),
        entries_(std::move(entries)),
        code_(named(new QLineEdit(form), field.control, field.toolTip)),
        list_(new SearchCombo(field.list, field.toolTip, kShownChoice, form)) {
    const bool mayBeBlank = field.type == HeaderFieldType::Journal;
    code_->setMaxLength(longestText(kind, field));
    code_->setMaximumWidth(form->fontMetrics().averageCharWidth() * kShownCode);
    KeyFilter::install(code_, mayBeBlank ? KeyFilter::NoQuote | KeyFilter::UpperCase
                                         : KeyFilter::NoQuote | KeyFilter::NoBlank);
    pairWithCombo(code_, list_);
    if (mayBeBlank) requireKnownCodeWhenLeft(code_, QStringLiteral("CodJurnal"));
    if (mayBeBlank) connect(code_, &QLineEdit::textChanged, this, [this] { showOwnJournal(); });
    connect(code_, &QLineEdit::textEdited, this, &HeaderControl::touched);
    connect(code_, &QLineEdit::editingFinished, this, [this] { choose(); });
    connect(list_, &SearchCombo::settled, this, [this] { choose(); });
  }

  QString text() const override { return code_->text(); }

  void refresh() override {
    const QSignalBlocker quiet(list_);
    LegaCombo(*list_, orNoRecords(entries_()));
    emit code_->textChanged(code_->text());  // selects the code in the list again
  }

  QList<QWidget*> boxes() const override { return {code_, list_}; }

 protected:
  void put(const QString& text) override { code_->setText(text); }

 private:
  void showOwnJournal() {
    if (code_->text() == QStringLiteral(" ")) list_->lineEdit()->setPlaceholderText(kOwnJournal);
  }

  Entries entries_;
  QLineEdit* code_;
  SearchCombo* list_;
};

// A choice from a list that shows no code; a label beside it may show the code.
class ChoiceControl : public HeaderControl {
 public:
  using Fill = std::function<void(QComboBox&)>;

  ChoiceControl(const HeaderField& field, Fill fill, int shown, QWidget* form)
      : HeaderControl(field),
        fill_(std::move(fill)),
        list_(new SearchCombo(field.control, field.toolTip, shown, form)) {
    connect(list_, &SearchCombo::settled, this, [this] { take(); });
    requireChoiceWhenLeft(list_);
  }

  QString text() const override { return text_; }

  void settle() override {
    if (!list_->hasFocus()) return;
    list_->settle();
    take();
  }

  void refresh() override {
    fill_(*list_);
    list_->showData(text_);
  }

  QList<QWidget*> boxes() const override { return {list_}; }
  QWidget* besides() const override { return code_; }

  void showCodeIn(QLabel* label) { code_ = label; }

 protected:
  void put(const QString& text) override {
    text_ = text;
    list_->showData(text);
    showCode();
  }

 private:
  // A text that matches no entry remains for correction; the row of an empty list is not an entry.
  void take() {
    const QString choice = list_->choice().toString();
    if (list_->currentText() == kNoRecords) return list_->showData(text_);
    if (choice.isEmpty() && !list_->currentText().trimmed().isEmpty()) return;
    if (choice == text_) return;
    text_ = choice;
    showCode();
    emit touched();
    choose();
  }

  void showCode() {
    if (code_) code_->setText(text_);
  }

  Fill fill_;
  QLabel* code_ = nullptr;
  SearchCombo* list_;
  QString text_;
};

// The payment method, one of four words. Without a choice the kind's default applies.
class PaymentControl : public HeaderControl {
 public:
  PaymentControl(const HeaderField& field, QWidget* form)
      : HeaderControl(field), list_(named(new QComboBox(form), field.control, field.toolTip)) {
    list_->setEditable(true);
    list_->setInsertPolicy(QComboBox::NoInsert);
    list_->addItems(paymentWords());
    list_->setCurrentIndex(-1);
    KeyFilter::install(list_->lineEdit(), KeyFilter::NoQuote | KeyFilter::UpperCase);
    connect(list_, &QComboBox::activated, this, [this] { take(); });
    connect(list_->lineEdit(), &QLineEdit::textEdited, this, [this] {
      isEdited_ = true;
      emit touched();
    });
    connect(list_->lineEdit(), &QLineEdit::editingFinished, this, [this] { take(); });
    checkWhenLeft(
        list_, [this] { return objection(); }, 0, QStringLiteral("Valoare incorecta!"),
        [this] {
          put({});
          isEdited_ = true;
        });
  }

  QString text() const override { return list_->currentText().trimmed(); }
  QList<QWidget*> boxes() const override { return {list_}; }

 protected:
  void put(const QString& text) override {
    const QSignalBlocker quiet(list_);
    list_->setCurrentIndex(list_->findText(text));
    list_->setEditText(text);
    isEdited_ = false;
  }

 private:
  QString objection() const {
    const bool isUntouched = text().isEmpty() && !isEdited_;
    return isUntouched || paymentWords().contains(text()) ? QString()
                                                          : QStringLiteral("Selectati o modalitate de plata");
  }

  void take() {
    if (!paymentWords().contains(text())) return;
    put(text());
    emit touched();
    choose();
  }

  QComboBox* list_;
  bool isEdited_ = false;
};

void fillCurrencies(QComboBox& combo) {
  std::vector<ListEntry> entries;
  for (const QString& code : currencyCodes()) entries.push_back({code, code});
  LegaCombo(combo, orNoRecords(std::move(entries)));
}

}  // namespace

void HeaderControl::show(const QString& text) {
  put(text);
  known_ = text;
}

void HeaderControl::choose() {
  const QString now = text();
  if (now == known_) return;
  known_ = now;
  emit chosen();
}

std::unique_ptr<HeaderControl> makeHeaderControl(const DocumentKind& kind, const HeaderField& field,
                                                 QWidget* form) {
  const bool ofPurchases = kind.partnersAreSuppliers;
  switch (field.type) {
    case HeaderFieldType::Date:
    case HeaderFieldType::DueDate:
    case HeaderFieldType::DeliveryDate:
      return std::make_unique<DateControl>(field, form);
    case HeaderFieldType::Partner:
      return std::make_unique<PartnerControl>(kind, field, form);
    case HeaderFieldType::VatRate:
      return std::make_unique<CodeControl>(
          kind, field, [ofPurchases] { return vatRates(ofPurchases); }, form);
    case HeaderFieldType::Journal:
      return std::make_unique<CodeControl>(
          kind, field, [ofPurchases] { return journals(ofPurchases); }, form);
    case HeaderFieldType::PaymentMode:
      return std::make_unique<PaymentControl>(field, form);
    case HeaderFieldType::Foreign:
    case HeaderFieldType::Flag:
      return std::make_unique<FlagControl>(field, form);
    case HeaderFieldType::Currency:
      if (!field.list.isEmpty()) return std::make_unique<CodeControl>(kind, field, currencies, form);
      return std::make_unique<ChoiceControl>(field, fillCurrencies, kShownCode, form);
    case HeaderFieldType::CostCentre:
      return std::make_unique<ChoiceControl>(
          field, [](QComboBox& combo) { LegaCombo(combo, kCostCentreList); }, kShownChoice, form);
    case HeaderFieldType::Warehouse: {
      auto warehouse = std::make_unique<ChoiceControl>(
          field, [](QComboBox& combo) { LegaCombo(combo, kWarehouseList); }, kShownChoice, form);
      auto* code = named(new QLabel(form), QStringLiteral("Label2"));
      code->setMinimumWidth(form->fontMetrics().averageCharWidth() * kShownCode / 2);
      warehouse->showCodeIn(code);
      return warehouse;
    }
    case HeaderFieldType::Rate:
      return std::make_unique<NumberControl>(field, kRateDecimals, form);
    case HeaderFieldType::Amount:
      return std::make_unique<NumberControl>(field, -1, form);
    case HeaderFieldType::Percent:
      if (field.decimals >= 0) return std::make_unique<NumberControl>(field, field.decimals, form);
      if (field.list.isEmpty()) break;
      return std::make_unique<CodeControl>(
          kind, field, [ofPurchases] { return vatPercents(ofPurchases); }, form);
    case HeaderFieldType::Number:
    case HeaderFieldType::Remark:
    case HeaderFieldType::Text:
      break;
  }
  return std::make_unique<TextControl>(kind, field, form);
}

}  // namespace velmar
