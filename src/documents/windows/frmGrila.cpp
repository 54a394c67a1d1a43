#include "documents/windows/frmGrila.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "config/windows/frmParamSoc.h"
#include "documents/LineSource.h"
#include "documents/OpenOrders.h"
#include "documents/Validation.h"
#include "documents/windows/frmLst.h"
#include "documents/windows/HeaderForm.h"
#include "documents/windows/LineGrid.h"
#include "documents/windows/SourceLists.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/Look.h"
#include "util/windows/WindowHost.h"

namespace velmar {

namespace {

constexpr int kWidest = 1180;  // fits beside the tool bars of the smallest screen
constexpr int kFooterDecimals = 2;
constexpr int kTall = 45;          // of a window, in lines of text
constexpr int kShortestLines = 9;  // of the lines with heading and footer, as above
constexpr int kListHeight = 7;     // of a list beside the header, as above

// The header determines the height of its row; the lists beside it share that height.
void fitBesideHeader(QWidget* list) {
  list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  list->setMinimumHeight(list->fontMetrics().height() * kListHeight);
}

}  // namespace

frmGrila::frmGrila(const QString& prefix, QWidget* parent)
    : QWidget(parent),
      editor_(prefix),
      header_(new HeaderForm(editor_.kind(), this)),
      commands_(new QHBoxLayout),
      lists_(new QVBoxLayout),
      besideCheck_(new QHBoxLayout),
      sources_(new SourceLists(this)) {
  if (editor_.kind().isSale) repairDeliveredQuantities();
  setObjectName(editor_.kind().window);
  setWindowTitle(editor_.kind().texts.title);
  connect(header_, &HeaderForm::touched, this, &frmGrila::followHeader);
  connect(header_, &HeaderForm::chosen, this, &frmGrila::followChoice);
  connect(sources_, &SourceLists::chosen, this,
          [this](const LineSource* source, const QString& number, const QString& list) {
            run(list, [this, source, number] { addLines(*source, number); });
          });
  bySupplierCode_ = new QCheckBox("Cod produs &furnizor", this);
  bySupplierCode_->setObjectName("CheckCODP");
  bySupplierCode_->setToolTip("Daca se bifeaza, cautarea articolului se va face dupa cod produs furnizor ");
  buildLines();
  bySupplierCode_->setVisible(editor_.kind().hasDraft);
  besideCheck_->addWidget(bySupplierCode_);
  besideCheck_->addStretch();
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(8, 8, 8, 8);
  all->addLayout(commandRow());
  all->addLayout(headerRow());
  all->addLayout(besideCheck_);
  all->addWidget(lines_, 1);
  header_->refreshLists();
  newDocument();
}

// A command without a tool tip is one that the kind lacks.
void frmGrila::addCommand(const QString& name, const QString& caption, const QString& toolTip,
                          const QString& picture, void (frmGrila::*action)()) {
  if (toolTip.isEmpty()) return;
  auto* button = new QPushButton(icon(picture), caption, this);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this,
          [this, name, action] { run(name, [this, action] { (this->*action)(); }); });
  commands_->addWidget(button);
}

QBoxLayout* frmGrila::commandRow() {
  const KindTexts& texts = editor_.kind().texts;
  QHBoxLayout* row = commands_;
  addCommand("cmdFacturaNoua", "Document &nou", texts.newTip, "new", &frmGrila::beginDocument);
  addCommand("cmdSalvare", "Sa&lvare", texts.saveTip, "save", &frmGrila::save);
  addCommand("cmdValidare", "Vali&dare", texts.validateTip, "validate", &frmGrila::validate);
  addCommand("cmdSterge", "S&tergere", texts.deleteTip, "delete", &frmGrila::sterge);
  addCommand("cmdTiparire", "Ti&parire", texts.printTip, "print", &frmGrila::print);
  row->addStretch();
  auto* close = new QPushButton(icon("close"), "I&esire", this);
  close->setObjectName("cmdClose");
  close->setToolTip("Inchidere fereastra");
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, [this] {
    if (lines_->commitPending()) closeForm(this);
  });
  row->addWidget(close);
  shortcut(QKeySequence::Print, "cmdTiparire");
  shortcut(QKeySequence::Save, "cmdSalvare");
  shortcut(QKeySequence::New, "cmdFacturaNoua");
  return row;
}

// The key presses the button of the active window.
void frmGrila::shortcut(const QKeySequence& key, const QString& button) {
  auto* pressed = findChild<QPushButton*>(button);
  if (!pressed) return;
  auto* made = new QShortcut(key, this);
  connect(made, &QShortcut::activated, pressed, &QPushButton::click);
}

QBoxLayout* frmGrila::headerRow() {
  lists_->addWidget(draftsFrame(), 1);
  for (const LineSource* source : editor_.kind().sources)
    if (QGroupBox* frame = sources_->add(*source, this)) lists_->addWidget(frame, 1);
  for (QWidget* list : sources_->lists()) fitBesideHeader(list);
  added_ += sources_->lists();
  auto* row = new QHBoxLayout;
  row->addWidget(header_, header_->hasTwoColumns() ? 5 : 3);
  row->addLayout(lists_, header_->hasTwoColumns() ? 3 : 4);
  return row;
}

void frmGrila::addCommand(QPushButton* button) {
  commands_->insertWidget(commands_->indexOf(findChild<QWidget*>("cmdClose")) - 1, button);
  added_.append(button);
}

void frmGrila::addLines(const LineSource& source, const QString& number) {
  const QHash<QString, QString> typed = header_->typed();
  if (editor_.addLines(source, number, typed)) showDocument();
}

void frmGrila::refreshSources() { sources_->refresh(editor_.onScreen()); }

void frmGrila::addBesideCheck(QWidget* widget) { besideCheck_->addWidget(widget); }

QWidget* frmGrila::draftsFrame() {
  const DocumentKind& kind = editor_.kind();
  auto* frame = new QGroupBox(kind.texts.draftsCaption, this);
  drafts_ = new TDBGrid("TDBGrid2", frame);
  const bool isShort = kind.draftColumns.isEmpty();
  QList<GridColumn> columns{{kind.numberColumn, "Numar", CellFormat::Text, isShort ? 12 : 9},
                            {kind.dateColumn, "Data", CellFormat::Date, 11}};
  if (!kind.partnerColumn.isEmpty()) columns.append({"NUME", "Tert", CellFormat::Text, isShort ? 30 : 20});
  for (const HeaderField& field : kind.headerFields) {
    if (!kind.draftColumns.contains(field.column)) continue;
    const bool isDate = field.type == HeaderFieldType::DueDate;
    columns.append({field.column, QString(field.caption).remove(u'&'),
                    isDate ? CellFormat::Date : CellFormat::Text, isDate ? 13 : 9});
  }
  if (kind.partnerColumn.isEmpty())
    columns.append({kind.remarkColumn, "Observatii", CellFormat::Text, isShort ? 30 : 20});
  drafts_->setColumns(columns);
  fitBesideHeader(drafts_);
  drafts_->setEmptyText(kind.hasDraft
                            ? "Nu exista documente nevalidate. Completati antetul si apasati Salvare."
                            : "Nu exista facturi de stornat.");
  connect(drafts_, &TDBGrid::currentRecordChanged, this, &frmGrila::openSelected);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(drafts_);
  return frame;
}

void frmGrila::buildLines() {
  const DocumentKind& kind = editor_.kind();
  lineModel_ = new LineModel(
      editor_, [this] { return bySupplierCode_->isChecked(); }, this);
  lines_ =
      new LineGrid("TDBGrid1", lineModel_, articleListWithCostOrPrice(kind.articleList), kind.window, this);
  lines_->setColumns(LineModel::gridColumns(kind));
  lines_->setMinimumHeight(fontMetrics().height() * kShortestLines);
  // The value stays in view; of an import, which has many columns, that of the goods.
  const auto keeps = [&kind](const QString& field) { return velmar::lineColumn(kind, field) != nullptr; };
  lines_->setKeptInView(keeps("VALOARETTI") ? "VALOARETTI"
                        : keeps("VALOARE")  ? "VALOARE"
                                            : "VALOAREFT",
                        {"DENUMIRE"});
  lines_->setEmptyText(kind.hasDraft ? "Liniile se adauga dupa salvarea antetului."
                                     : "Se arata liniile documentului ales din lista.");
  connect(lines_, &LineGrid::refusedByStore, this, [this] {
    try {
      changedElsewhere();
    } catch (const StoreError&) {
      // The same cause has just been reported; the list is unchanged.
    }
  });
  connect(lineModel_, &LineModel::totalsChanged, this, &frmGrila::GridFooterText);
}

// From the header to its save button, then the other commands, the drafts and the lines. Enter in the header
// does not pass the button for a new partner.
void frmGrila::orderTabs() {
  QList<QWidget*> chain = header_->tabChain();
  for (const char* name : {"cmdSalvare", "cmdValidare", "cmdSterge", "cmdTiparire", "cmdClose",
                           "cmdFacturaNoua", "cmdAdaugaTert1"})
    if (auto* button = findChild<QWidget*>(name)) chain.append(button);
  chain.append(drafts_);
  chain += added_;
  chain.append({bySupplierCode_, lines_});
  for (int i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void frmGrila::run(const QString& procedure, const std::function<void()>& work) {
  if (!lines_->commitPending() || !entriesAccepted(header_)) return;
  guarded(editor_.kind().window, procedure, [this, &work] {
    try {
      work();
    } catch (const RuleError& rule) {
      showRule(rule);
      // A RuleError without a field may be caused by another user's change.
      if (rule.field().isEmpty()) changedElsewhere();
    }
  });
}

void frmGrila::changedElsewhere() {
  try {
    if (editor_.followStored(header_->texts()) || editor_.followReceipt()) return showDocument();
  } catch (const RuleError&) {
    // The draft no longer exists, as the message has just said.
  }
  refreshDrafts();
}

void frmGrila::showRule(const RuleError& rule) {
  Mesaj(rule.text(), rule.icon(), rule.title());
  QWidget* at = header_->control(rule.field());
  if (!at && rule.field() == QStringLiteral("CODART")) at = lines_;
  if (at) at->setFocus();
  if (auto* box = qobject_cast<QLineEdit*>(at)) box->selectAll();
  // Without a cost method nothing can be received: opens the window for choosing it.
  if (rule.field() == QStringLiteral("TCOST"))
    windowHost()->showOne("frmParamSoc", [] { return new frmParamSoc(nullptr); });
}

void frmGrila::followHeader() {
  if (editor_.headerTyped(header_->texts())) lineModel_->amountsChanged();
  if (!editor_.isNew() && editor_.kind().hasDraft)
    header_->showState("Document nevalidat, antet modificat si nesalvat");
  guarded(editor_.kind().window, "Antet", [this] { headerTouched(); });
}

void frmGrila::followChoice(const QString& key) {
  guarded(editor_.kind().window, key, [this, &key] {
    if (editor_.headerChosen(key, header_->texts())) lineModel_->amountsChanged();
    showHeaderChanges();
    if (key == editor_.kind().partnerColumn) refreshSources();
    fieldChosen(key);
  });
}

void frmGrila::showHeaderChanges() {
  const QHash<QString, QString> changes = editor_.takeHeaderChanges();
  if (!changes.isEmpty()) header_->showChanges(changes);
}

void frmGrila::recolourLines() {
  editor_.refreshMarks();
  lineModel_->marksChanged();
}

void frmGrila::refreshLists() {
  header_->refreshLists();
  refreshDrafts();
  refreshSources();
}

void frmGrila::refreshDrafts() {
  const QSignalBlocker quiet(drafts_);
  drafts_->setRecordset(storeOf(editor_.kind())->list());
  if (editor_.isNew() || !drafts_->selectRecord(editor_.kind().numberColumn, editor_.number()))
    drafts_->setCurrentIndex({});
}

void frmGrila::showDocument() {
  AfisareAntet();
  DetaliiFactura();
  refreshDrafts();
  refreshSources();
}

void frmGrila::newDocument() {
  const QString warning = editor_.newDocument();
  showDocument();
  if (!warning.isEmpty()) Mesaj(warning);
  header_->focusNumber();
}

void frmGrila::beginDocument() {
  if (leaveHeader()) startDocument();
}

bool frmGrila::leaveHeader() {
  if (!editor_.headerDiffers(header_->typed())) return true;
  const QString question = QStringLiteral("Antetul documentului %1 a fost modificat. Salvati modificarile ?")
                               .arg(editor_.number());
  const Leaving leaving = askLeaving(this, question);
  bool isStored = false;
  if (leaving == Leaving::Store)
    run("cmdSalvare", [this, &isStored] {
      saveHeader();
      isStored = true;
    });
  return isStored || leaving == Leaving::Discard;
}

void frmGrila::save() {
  Salvare();
  showDocument();
  if (editor_.fillFromHeader(header_->typed())) showDocument();
  lines_->startNewLine();
}

void frmGrila::saveHeader() {
  Salvare();
  header_->showState("Document nevalidat");
  refreshDrafts();
}

QString frmGrila::numberForImport(const QString& missing, const QString& filled) {
  if (editor_.isNew() || editor_.number().isEmpty()) throw RuleError(missing);
  if (!editor_.lines().empty()) throw RuleError(filled);
  return editor_.number();
}

void frmGrila::showImported() {
  editor_.open(QString(editor_.number()));
  showDocument();
  refreshDrafts();
}

void frmGrila::Salvare() { editor_.save(header_->typed()); }

void frmGrila::openSelected() {
  const Row* record = drafts_->currentRecord();
  if (!record) return;
  const QString number = record->text(editor_.kind().numberColumn);
  if (!editor_.isNew() && number == editor_.number()) return;
  if (!editor_.headerDiffers(header_->texts())) return openDraft(number);
  // The question is shown after the event that selected the row.
  QMetaObject::invokeMethod(
      this, [this, number] { openDraft(number); }, Qt::QueuedConnection);
}

void frmGrila::openDraft(const QString& number) {
  run("TDBGrid2", [this, &number] {
    if (!leaveHeader()) return;
    const QString warning = editor_.open(number);
    AfisareAntet();
    DetaliiFactura();
    refreshSources();
    {
      const QSignalBlocker quiet(drafts_);
      drafts_->selectRecord(editor_.kind().numberColumn, number);
    }
    if (!warning.isEmpty()) Mesaj(warning);
  });
  if (!editor_.isNew() && number == editor_.number()) return;
  // A refused field keeps its document on screen: the list selects it again.
  QMetaObject::invokeMethod(
      this, [this] { guarded(editor_.kind().window, "TDBGrid2", [this] { refreshDrafts(); }); },
      Qt::QueuedConnection);
}

void frmGrila::validate() {
  const QHash<QString, QString> typed = header_->typed();
  const KindTexts& texts = editor_.kind().texts;
  if (!editor_.checkValidation(typed)) return;
  QString question = texts.confirmValidation;
  question.replace(QStringLiteral("%1"), editor_.number());
  question.replace(QStringLiteral("%2"), typed.value(editor_.kind().numberColumn).trimmed());
  if (!question.isEmpty() && Mesaj(question, kYesNo + kQuestion, "Confirmare validare") != kResultYes) return;
  try {
    const Hourglass wait;
    if (!editor_.checkLines()) return;
    editor_.validate(typed);
  } catch (const StepError& error) {
    Mesaj(error.text(), kCritical, error.title());
    return;
  }
  const QString& fromNotes = texts.validatedFromNotes;
  const bool isFromNotes = !fromNotes.isEmpty() && comesFrom(editor_.onScreen(), KindId::DeliveryNote);
  // Errors from here on are not failures of the validation.
  guarded(editor_.kind().window, "cmdFacturaNoua", [this] { newDocument(); });
  Mesaj(isFromNotes ? fromNotes : texts.validated, kOk, texts.validatedTitle);
  header_->focusNumber();
}

void frmGrila::sterge() {
  editor_.headerTyped(header_->typed());
  editor_.checkDeletion();
  if (Mesaj(editor_.kind().texts.confirmDeletion.arg(editor_.number()), kYesNo + kQuestion,
            "Confirmare stergere") != kResultYes)
    return;
  editor_.remove();
  newDocument();
}

void frmGrila::print() {
  if (editor_.checkPrinting(header_->typed())) printStored();
}

void frmGrila::printStored() {
  const QHash<QString, QString> typed = header_->typed();
  const bool foreign = typed.value(QStringLiteral("chkDeviza")) == QStringLiteral("-1");
  const QString number = typed.value(editor_.kind().numberColumn).trimmed();
  Printout printout{&listingKind(editor_.kind().prefix), number, foreign};
  if (!editor_.kind().hasDraft) {  // it is made from another document
    printout.number = editor_.number();
    printout.own = stornoVariables(editor_.number(), number,
                                   QDate::fromString(typed.value(editor_.kind().dateColumn), Qt::ISODate));
  }
  listDocument(printout, this);
}

void frmGrila::AfisareAntet() {
  header_->fill(editor_.headerTexts(), editor_.numberLocked());
  if (editor_.kind().hasDraft)
    header_->showState(editor_.isNew() ? "Document nou, nesalvat" : "Document nevalidat");
  else
    lockOrigin();
  documentShown();
}

// A document made from another one has its own number and date; the rest is the other's.
void frmGrila::lockOrigin() {
  header_->showState(editor_.isNew() ? "Alegeti factura din lista" : "Factura aleasa: " + editor_.number());
  for (const HeaderField& field : editor_.kind().headerFields)
    if (field.type != HeaderFieldType::Number && field.type != HeaderFieldType::Date)
      header_->setFieldEnabled(field.key(), false);
  if (auto* newPartner = findChild<QPushButton*>("cmdAdaugaTert1")) newPartner->setEnabled(false);
}

void frmGrila::DetaliiFactura() { lineModel_->documentChanged(); }

void frmGrila::GridFooterText() {
  showHeaderChanges();  // setting an article may have set the rate
  for (const LineColumn& column : editor_.kind().lineColumns)
    if (editor_.isTotal(column.field))
      lines_->setFooter(column.field, formatNumber(editor_.total(column.field), kFooterDecimals));
  sources_->show(editor_.onScreen());
  totalsShown();
}

void frmGrila::closeEvent(QCloseEvent* event) {
  bool leaves = true;
  guarded(editor_.kind().window, "Form_Unload", [this, &leaves] { leaves = leaveHeader(); });
  if (leaves)
    QWidget::closeEvent(event);
  else
    event->ignore();
}

QSize frmGrila::sizeHint() const {
  int width = 60;
  for (int i = 0; i < lines_->columns().size(); ++i)
    if (!lines_->isColumnHidden(i)) width += lines_->columnWidth(i);
  return {std::min(width, kWidest), fontMetrics().height() * kTall};
}

// Lists are read again whenever the window is shown, since other windows and workstations may have added
// entries.
void frmGrila::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!ordered_) {
    ordered_ = true;
    giveMnemonics(this);
    orderTabs();
  }
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
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) return button->click();
  QWidget::keyPressEvent(event);
}

}  // namespace velmar
