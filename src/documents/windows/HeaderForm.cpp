#include "documents/windows/HeaderForm.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "catalogue/windows/frmTerti.h"
#include "config/Lists.h"
#include "config/windows/ComboFill.h"
#include "store/Schema.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/KeyFilter.h"
#include "util/windows/SearchCombo.h"
#include "util/windows/WindowHost.h"

namespace velmar {

namespace {

constexpr int kNumberLength = 15;
constexpr int kCodeLength = 9;
constexpr int kShownPartner = 24;  // characters

QString shownText(const HeaderField& field, const Row& header) {
  if (field.type == HeaderFieldType::Percent && !header.isNull(field.column))
    return editNumber(header.decimal(field.column));
  return header.text(field.column);
}

}  // namespace

HeaderForm::HeaderForm(const DocumentKind& kind, QWidget* parent)
    : QGroupBox("Antet", parent), kind_(kind), form_(new QFormLayout(this)), state_(new QLabel(this)) {
  for (const HeaderField& field : kind_.headerFields) {
    switch (field.type) {
      case HeaderFieldType::Date:
      case HeaderFieldType::DueDate:
        addDateField(field);
        break;
      case HeaderFieldType::Partner:
        addPartnerField(field);
        break;
      default:
        addTextField(field);
    }
  }
  for (QWidget* widget : std::as_const(controls_)) moveOnWithEnter(widget);
  state_->setObjectName("lblStare");
  form_->addRow(QString(), state_);
}

void HeaderForm::addDateField(const HeaderField& field) {
  auto* date = new DateBox(this);
  date->setObjectName(field.control);
  date->setToolTip(field.toolTip);
  connect(date, &QDateEdit::dateChanged, this, &HeaderForm::touched);
  controls_.insert(field.column, date);
  form_->addRow(field.caption, date);
}

void HeaderForm::addTextField(const HeaderField& field) {
  auto* box = new QLineEdit(this);
  box->setObjectName(field.control);
  box->setToolTip(field.toolTip);
  const Column* column = companyTable(kind_.headerTable).column(field.column);
  box->setMaxLength(column && column->type == ColumnType::Text ? column->width : kNumberLength);
  KeyFilter::install(box, field.type == HeaderFieldType::Remark ? KeyFilter::NoQuote
                                                                : KeyFilter::NoQuote | KeyFilter::NoBlank);
  connect(box, &QLineEdit::textEdited, this, &HeaderForm::touched);
  controls_.insert(field.column, box);
  form_->addRow(field.caption, box);
}

void HeaderForm::addPartnerField(const HeaderField& field) {
  auto* code = new QLineEdit(this);
  code->setObjectName(field.control);
  code->setToolTip(field.toolTip);
  code->setMaxLength(kCodeLength);
  code->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
  KeyFilter::install(code, KeyFilter::NoQuote | KeyFilter::NoBlank);
  connect(code, &QLineEdit::textEdited, this, &HeaderForm::touched);
  connect(code, &QLineEdit::editingFinished, this, [this, code] { showPartner(code->text()); });
  controls_.insert(field.column, code);
  partner_ = new SearchCombo("DataCombo1", field.toolTip, kShownPartner, this);
  moveOnWithEnter(partner_);
  connect(partner_, &SearchCombo::settled, this, &HeaderForm::takePartner);
  auto* add = makeButton("cmdAdaugaTert1", {}, "Adaugare tert nou", "add-partner");
  connect(add, &QPushButton::clicked, this, [this] {
    const bool suppliers = kind_.partnersAreSuppliers;
    windowHost()->showOne(suppliers ? "frmTerti F" : "frmTerti C", [suppliers] {
      return suppliers ? makeSuppliers(nullptr) : makeCustomers(nullptr);
    });
  });
  auto* row = new QHBoxLayout;
  row->addWidget(code);
  row->addWidget(partner_, 1);
  row->addWidget(add);
  form_->addRow(field.caption, row);
  static_cast<QLabel*>(form_->labelForField(row))->setBuddy(partner_);
  partnerName_ = new QLabel(this);
  partnerName_->setObjectName("Label2");
  partnerName_->setTextFormat(Qt::PlainText);
  form_->addRow(QString(), partnerName_);
}

QLineEdit* HeaderForm::partnerCode() const { return qobject_cast<QLineEdit*>(control(kind_.partnerColumn)); }

void HeaderForm::fill(const Row& header, bool numberLocked) {
  const QSignalBlocker quiet(this);
  for (const HeaderField& field : kind_.headerFields) {
    // A new document goes on with the rate of the one before.
    const bool isRate = field.type == HeaderFieldType::Percent || field.type == HeaderFieldType::VatRate;
    if (isRate && header.isNull(field.column)) continue;
    if (auto* date = qobject_cast<DateBox*>(control(field.column)))
      date->setDate(header.date(field.column));
    else if (auto* box = qobject_cast<QLineEdit*>(control(field.column)))
      box->setText(shownText(field, header));
  }
  auto* number = qobject_cast<QLineEdit*>(control(kind_.numberColumn));
  number->setReadOnly(numberLocked);
  markLocked(number, numberLocked);
  if (partner_) showPartner(header.text(kind_.partnerColumn));
}

void HeaderForm::refreshPartners() {
  if (!partner_) return;
  const QSignalBlocker quiet(partner_);
  LegaCombo(*partner_, kind_.partnersAreSuppliers ? kSupplierList : kCustomerList);
  showPartner(partnerCode()->text());
}

void HeaderForm::showPartner(const QString& code) {
  partner_->showData(code.isEmpty() ? QVariant() : QVariant(code.toLongLong()));
  partnerName_->setText(partner_->currentText());
}

void HeaderForm::takePartner() {
  const QString code = partner_->choice().toString();
  partnerName_->setText(code.isEmpty() ? QString() : partner_->currentText());
  if (partnerCode()->text() == code) return;
  partnerCode()->setText(code);
  emit touched();
}

QHash<QString, QString> HeaderForm::typed() {
  if (partner_ && partner_->hasFocus()) {
    partner_->settle();
    takePartner();
  }
  QHash<QString, QString> texts;
  for (auto it = controls_.cbegin(); it != controls_.cend(); ++it) {
    if (auto* date = qobject_cast<DateBox*>(it.value())) {
      date->takeTyped();
      texts.insert(it.key(), date->date().toString(Qt::ISODate));
    } else if (auto* box = qobject_cast<QLineEdit*>(it.value())) {
      texts.insert(it.key(), box->text());
    }
  }
  return texts;
}

void HeaderForm::showState(const QString& text) { state_->setText(text); }

void HeaderForm::focusNumber() { control(kind_.numberColumn)->setFocus(); }

QList<QWidget*> HeaderForm::tabChain() const {
  QList<QWidget*> chain;
  for (const HeaderField& field : kind_.headerFields) {
    chain.append(control(field.column));
    if (field.type == HeaderFieldType::Partner) chain.append(partner_);
  }
  return chain;
}

}  // namespace velmar
