#include "documents/windows/frmGrila.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDateEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "config/Lists.h"
#include "config/Session.h"
#include "config/windows/ComboFill.h"
#include "documents/Validation.h"
#include "documents/windows/LineGrid.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/KeyFilter.h"
#include "util/windows/Look.h"

namespace velmar {

frmGrila::frmGrila(const QString& prefix, const ArticleList& articles, QWidget* parent)
    : QWidget(parent), editor_(prefix) {
  setObjectName(editor_.kind().window);
  setWindowTitle(editor_.kind().texts.title);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  buildCommands();
  auto* top = new QHBoxLayout;
  layout->addLayout(top);
  buildHeader();
  buildLists(articles);
  giveMnemonics(this);
  orderTabs();
  refreshLists();
  newDocument();
}

QPushButton* frmGrila::command(const QString& name, const QString& caption, const QString& toolTip,
                               const QString& picture, void (frmGrila::*action)()) {
  auto* button = new QPushButton(icon(picture), caption, this);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this,
          [this, name, action] { run(name, [this, action] { (this->*action)(); }); });
  return button;
}

void frmGrila::buildCommands() {
  const KindTexts& texts = editor_.kind().texts;
  auto* row = new QHBoxLayout;
  row->addWidget(command("cmdFacturaNoua", "Document &nou", texts.newTip, "new", &frmGrila::newDocument));
  row->addWidget(command("cmdSalvare", "&Salvare", texts.saveTip, "save", &frmGrila::save));
  row->addWidget(command("cmdValidare", "&Validare", texts.validateTip, "validate", &frmGrila::validate));
  row->addWidget(command("cmdSterge", "S&tergere", texts.deleteTip, "delete", &frmGrila::sterge));
  row->addWidget(command("cmdTiparire", "Ti&parire", texts.printTip, "print", &frmGrila::print));
  row->addStretch();
  auto* close = new QPushButton(icon("close"), "&Iesire", this);
  close->setObjectName("cmdClose");
  close->setToolTip("Inchidere fereastra");
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, [this] {
    if (lines_->commitPending()) closeForm(this);
  });
  row->addWidget(close);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  auto* printShortcut = new QShortcut(QKeySequence::Print, this);
  printShortcut->setContext(Qt::WidgetWithChildrenShortcut);
  connect(printShortcut, &QShortcut::activated, this, [this] { run("cmdTiparire", [this] { print(); }); });
}

void frmGrila::buildHeader() {
  auto* frame = new QGroupBox("Antet", this);
  auto* form = new QFormLayout(frame);
  for (const HeaderField& field : editor_.kind().headerFields) {
    switch (field.type) {
      case HeaderFieldType::Date:
      case HeaderFieldType::DueDate: {
        auto* date = new DateBox(frame);
        date->setObjectName(field.control);
        date->setToolTip(field.toolTip);
        connect(date, &QDateEdit::dateChanged, this, &frmGrila::headerTouched);
        controls_.insert(field.column, date);
        form->addRow(field.caption, date);
        break;
      }
      case HeaderFieldType::Partner:
        addPartnerField(field, form);
        break;
      default:
        addTextField(field, form);
    }
  }
  for (QWidget* widget : std::as_const(controls_)) moveOnWithEnter(widget);
  state_ = new QLabel(frame);
  state_->setObjectName("lblStare");
  form->addRow(QString(), state_);
  static_cast<QHBoxLayout*>(layout()->itemAt(1)->layout())->addWidget(frame, 3);
}

void frmGrila::addTextField(const HeaderField& field, QFormLayout* form) {
  auto* box = new QLineEdit(form->parentWidget());
  box->setObjectName(field.control);
  box->setToolTip(field.toolTip);
  const Column* column = companyTable(editor_.kind().headerTable).column(field.column);
  box->setMaxLength(column->type == ColumnType::Text ? column->width : 15);
  KeyFilter::install(box, field.type == HeaderFieldType::Remark ? KeyFilter::NoQuote
                                                                : KeyFilter::NoQuote | KeyFilter::NoBlank);
  connect(box, &QLineEdit::textEdited, this, &frmGrila::headerTouched);
  controls_.insert(field.column, box);
  form->addRow(field.caption, box);
}

void frmGrila::addPartnerField(const HeaderField& field, QFormLayout* form) {
  auto* row = new QHBoxLayout;
  auto* code = new QLineEdit(form->parentWidget());
  code->setObjectName(field.control);
  code->setMaxLength(9);
  code->setToolTip(field.toolTip);
  code->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
  KeyFilter::install(code, KeyFilter::NoQuote | KeyFilter::NoBlank);
  controls_.insert(field.column, code);
  partner_ = new QComboBox(form->parentWidget());
  partner_->setObjectName("DataCombo1");
  partner_->setToolTip(field.toolTip);
  partner_->setEditable(true);
  partner_->setInsertPolicy(QComboBox::NoInsert);
  partner_->completer()->setFilterMode(Qt::MatchContains);
  partner_->completer()->setCompletionMode(QCompleter::PopupCompletion);
  partner_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  partner_->setMinimumContentsLength(24);
  auto* add = new QPushButton(icon("add-partner"), QString(), form->parentWidget());
  add->setObjectName("cmdAdaugaTert1");
  add->setToolTip("Adaugare tert nou");
  add->setEnabled(false);
  row->addWidget(code);
  row->addWidget(partner_, 1);
  row->addWidget(add);
  form->addRow(field.caption, row);
  static_cast<QLabel*>(form->labelForField(row))->setBuddy(partner_);
  partnerName_ = new QLabel(form->parentWidget());
  partnerName_->setObjectName("Label2");
  partnerName_->setTextFormat(Qt::PlainText);
  form->addRow(QString(), partnerName_);
  moveOnWithEnter(partner_);
  connect(partner_, &QComboBox::activated, this, &frmGrila::partnerPicked);
  connect(partner_->lineEdit(), &QLineEdit::editingFinished, this, &frmGrila::partnerPicked);
  connect(code, &QLineEdit::textEdited, this, &frmGrila::headerTouched);
  connect(code, &QLineEdit::editingFinished, this, &frmGrila::partnerTyped);
}

void frmGrila::buildLists(const ArticleList& articles) {
  const DocumentKind& kind = editor_.kind();
  auto* frame = new QGroupBox(kind.texts.draftsCaption, this);
  auto* inside = new QVBoxLayout(frame);
  drafts_ = new TDBGrid("TDBGrid2", frame);
  drafts_->setColumns({{kind.numberColumn, "Numar", CellFormat::Text, 12},
                       {kind.dateColumn, "Data", CellFormat::Date, 11},
                       {"NUME", "Tert", CellFormat::Text, 30}});
  drafts_->setEmptyText("Nu exista documente nevalidate. Completati antetul si apasati Salvare.");
  inside->addWidget(drafts_);
  static_cast<QHBoxLayout*>(layout()->itemAt(1)->layout())->addWidget(frame, 4);
  connect(drafts_, &TDBGrid::currentRecordChanged, this, &frmGrila::openSelected);

  bySupplierCode_ = new QCheckBox("Cod produs &furnizor", this);
  bySupplierCode_->setObjectName("CheckCODP");
  bySupplierCode_->setToolTip("Daca se bifeaza, cautarea articolului se va face dupa cod produs furnizor ");
  layout()->addWidget(bySupplierCode_);
  lineModel_ = new LineModel(
      editor_, [this] { return bySupplierCode_->isChecked(); }, this);
  lines_ = new LineGrid("TDBGrid1", lineModel_, articles, kind.window, this);
  lines_->setColumns(LineModel::gridColumns(kind));
  lines_->setEmptyText("Liniile se adauga dupa salvarea antetului.");
  static_cast<QVBoxLayout*>(layout())->addWidget(lines_, 1);
  connect(lines_, &LineGrid::refusedByStore, this, &frmGrila::refreshDrafts);
  connect(lineModel_, &LineModel::totalsChanged, this, &frmGrila::GridFooterText);
}

void frmGrila::run(const QString& procedure, const std::function<void()>& work) {
  if (!lines_->commitPending()) return;
  guarded(editor_.kind().window, procedure, [this, &work] {
    try {
      work();
    } catch (const RuleError& rule) {
      showRule(rule);
      // A rule that no field broke was broken by a colleague: the draft is gone.
      if (rule.field().isEmpty()) refreshDrafts();
    }
  });
}

// From the header to its saving, then the other commands, the drafts and the lines.
void frmGrila::orderTabs() {
  QWidget* before = nullptr;
  const auto next = [this, &before](QWidget* widget) {
    if (before && widget) setTabOrder(before, widget);
    if (widget) before = widget;
  };
  for (const HeaderField& field : editor_.kind().headerFields) {
    next(control(field.key()));
    if (field.type == HeaderFieldType::Partner) next(partner_);
  }
  for (const char* name :
       {"cmdSalvare", "cmdValidare", "cmdSterge", "cmdTiparire", "cmdClose", "cmdFacturaNoua"})
    next(findChild<QWidget*>(name));
  for (QWidget* widget : std::initializer_list<QWidget*>{drafts_, bySupplierCode_, lines_}) next(widget);
}

void frmGrila::showRule(const RuleError& rule) {
  Mesaj(rule.text(), rule.icon(), rule.title());
  QWidget* at = control(rule.field());
  if (!at && rule.field() == QStringLiteral("CODART")) at = lines_;
  if (!at) return;
  at->setFocus();
  if (auto* box = qobject_cast<QLineEdit*>(at)) box->selectAll();
}

void frmGrila::refreshLists() {
  if (partner_) {
    const QSignalBlocker quiet(partner_);
    LegaCombo(*partner_, editor_.kind().partnersAreSuppliers ? kSupplierList : kCustomerList);
    showPartner(typedHeader().value(editor_.kind().partnerColumn));
  }
  refreshDrafts();
}

void frmGrila::refreshDrafts() {
  const QSignalBlocker quiet(drafts_);
  drafts_->setRecordset(editor_.drafts().list());
  if (editor_.isNew() || !drafts_->selectRecord(editor_.kind().numberColumn, editor_.number()))
    drafts_->setCurrentIndex({});
}

void frmGrila::newDocument() {
  const QString warning = editor_.newDocument();
  AfisareAntet();
  DetaliiFactura();
  refreshDrafts();
  if (!warning.isEmpty()) Mesaj(warning);
  if (QWidget* number = control(editor_.kind().numberColumn)) number->setFocus();
}

void frmGrila::save() {
  Salvare();
  AfisareAntet();
  DetaliiFactura();
  refreshDrafts();
  lines_->startNewLine();
}

void frmGrila::Salvare() { editor_.save(typedHeader()); }

void frmGrila::openSelected() {
  const Row* record = drafts_->currentRecord();
  if (!record) return;
  const QString number = record->text(editor_.kind().numberColumn);
  if (!editor_.isNew() && number == editor_.number()) return;
  run("TDBGrid2", [this, &number] {
    try {
      editor_.open(number);
    } catch (const RuleError&) {
      refreshDrafts();
      throw;
    }
    AfisareAntet();
    DetaliiFactura();
  });
}

void frmGrila::validate() {
  const QHash<QString, QString> typed = typedHeader();
  editor_.checkValidation(typed);
  const KindTexts& texts = editor_.kind().texts;
  if (Mesaj(texts.confirmValidation.arg(editor_.number()), kYesNo + kQuestion, "Confirmare validare") !=
      kResultYes)
    return;
  {
    const Hourglass wait;
    if (!editor_.checkLines()) return;
  }
  try {
    const Hourglass wait;
    editor_.validate(typed);
  } catch (const StepError& error) {
    Mesaj(QStringLiteral("%1 - %2 Linia: %3")
              .arg(QString::number(error.number()), error.text(), QString::number(error.line())),
          kCritical, error.title());
    return;
  }
  AfisareAntet();
  DetaliiFactura();
  refreshDrafts();
  Mesaj(texts.validated, kOk, texts.validatedTitle);
  control(editor_.kind().numberColumn)->setFocus();
}

void frmGrila::sterge() {
  const QString number = typedHeader().value(editor_.kind().numberColumn).trimmed();
  if (number.isEmpty() || editor_.isNew()) throw RuleError(editor_.kind().texts.nothingToDelete);
  if (Mesaj(editor_.kind().texts.confirmDeletion.arg(number), kYesNo + kQuestion, "Confirmare stergere") !=
      kResultYes)
    return;
  editor_.remove();
  newDocument();
}

void frmGrila::print() {
  editor_.checkPrinting(typedHeader());
  state_->setText("Tiparirea documentelor nu este disponibila inca.");
}

void frmGrila::AfisareAntet() {
  showing_ = true;
  for (const HeaderField& field : editor_.kind().headerFields) {
    QWidget* widget = control(field.column);
    if (auto* date = qobject_cast<QDateEdit*>(widget)) {
      date->setDate(editor_.header().date(field.column));
    } else if (auto* box = qobject_cast<QLineEdit*>(widget)) {
      const bool isPercent = field.type == HeaderFieldType::Percent && !editor_.header().isNull(field.column);
      box->setText(isPercent ? editNumber(editor_.header().decimal(field.column))
                             : editor_.header().text(field.column));
    }
  }
  auto* number = qobject_cast<QLineEdit*>(control(editor_.kind().numberColumn));
  number->setReadOnly(editor_.numberLocked());
  markLocked(number, editor_.numberLocked());
  showPartner(editor_.header().text(editor_.kind().partnerColumn));
  state_->setText(editor_.isNew() ? "Document nou, nesalvat" : "Document nevalidat");
  showing_ = false;
}

void frmGrila::DetaliiFactura() { lineModel_->documentChanged(); }

void frmGrila::GridFooterText() {
  for (const LineColumn& column : editor_.kind().lineColumns)
    if (editor_.isTotal(column.field))
      lines_->setFooter(column.field, formatNumber(editor_.total(column.field), 2));
}

void frmGrila::showPartner(const QString& code) {
  if (!partner_) return;
  const QSignalBlocker quiet(partner_);
  const int at = code.isEmpty() ? -1 : partner_->findData(code.toLongLong());
  partner_->setCurrentIndex(at);
  if (at < 0) partner_->setEditText(QString());
  partner_->lineEdit()->setCursorPosition(0);
  partnerName_->setText(at < 0 ? QString() : partner_->itemText(at));
}

void frmGrila::partnerPicked() {
  if (showing_) return;
  int at = partner_->findText(partner_->currentText(), Qt::MatchFixedString);
  // A part of the name is enough when only one partner's has it.
  QCompleter* completer = partner_->completer();
  completer->setCompletionPrefix(partner_->currentText());
  if (at < 0 && !partner_->currentText().trimmed().isEmpty() && completer->completionCount() == 1)
    at = partner_->findText(completer->currentCompletion(), Qt::MatchFixedString);
  if (at >= 0) partner_->setCurrentIndex(at);
  auto* code = qobject_cast<QLineEdit*>(control(editor_.kind().partnerColumn));
  const QString picked = at < 0 ? QString() : partner_->itemData(at).toString();
  if (code->text() != picked) headerTouched();
  code->setText(picked);
  partnerName_->setText(at < 0 ? QString() : partner_->itemText(at));
}

void frmGrila::headerTouched() {
  if (showing_) return;
  state_->setText(editor_.isNew() ? "Document nou, nesalvat"
                                  : "Document nevalidat, antet modificat si nesalvat");
}

void frmGrila::partnerTyped() {
  if (!showing_) showPartner(qobject_cast<QLineEdit*>(control(editor_.kind().partnerColumn))->text());
}

QHash<QString, QString> frmGrila::typedHeader() const {
  QHash<QString, QString> typed;
  for (auto it = controls_.cbegin(); it != controls_.cend(); ++it) {
    if (auto* date = qobject_cast<QDateEdit*>(it.value()))
      typed.insert(it.key(), date->date().toString(Qt::ISODate));
    else if (auto* box = qobject_cast<QLineEdit*>(it.value()))
      typed.insert(it.key(), box->text());
  }
  return typed;
}

QSize frmGrila::sizeHint() const {
  int width = 60;
  for (int i = 0; i < lines_->columns().size(); ++i)
    if (!lines_->isColumnHidden(i)) width += lines_->columnWidth(i);
  return {std::min(width, 1180), fontMetrics().height() * 34};
}

// Lists are read again whenever the window comes to the front: other windows and workstations may have added
// to them.
void frmGrila::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
  if (!frame || listening_) return;
  listening_ = true;
  connect(frame, &QMdiSubWindow::aboutToActivate, this,
          [this] { guarded(editor_.kind().window, "Form_Activate", [this] { refreshLists(); }); });
}

void frmGrila::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F5) {
    run("F5", [this] { refreshLists(); });
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace velmar
