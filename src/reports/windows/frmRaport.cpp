#include "reports/windows/frmRaport.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "config/Lists.h"
#include "config/Session.h"
#include "config/windows/ComboFill.h"
#include "reports/windows/frmEcran.h"
#include "reports/windows/ListingCommands.h"
#include "store/windows/LongRead.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/Settings.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/SearchCombo.h"
#include "util/windows/WindowHost.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

using Kind = ReportControl::Kind;

constexpr int kListWidth = 34;  // characters
constexpr int kTextWidth = 35;
constexpr int kNumberWidth = 10;
const QString kInverted =
    QStringLiteral("Data de inceput trebuie sa fie mai mica sau egala decat data de sfarsit");

// All articles as "CODART-DENART".
std::vector<ListEntry> articles(bool byCode) {
  std::vector<ListEntry> all;
  for (const Row& row :
       OpenRs(QStringLiteral("SELECT CODART, DENART FROM G_ARTMAG ORDER BY %1 NULLS FIRST, CODART")
                  .arg(byCode ? "CODART" : "DENART")))
    all.push_back({row.text("CODART") + u'-' + row.text("DENART"), row.text("CODART")});
  return all;
}

// Also the only one of its group.
void untick(QAbstractButton* option) {
  QButtonGroup* group = option->group();
  if (group) group->setExclusive(false);
  option->setChecked(false);
  if (group) group->setExclusive(true);
}

}  // namespace

frmRaport::frmRaport(const StockReport& report, QWidget* parent) : QWidget(parent), report_(report) {
  setObjectName(report.window);
  setWindowTitle(report.caption);
  auto* all = new QVBoxLayout(this);
  for (const ReportFrame& each : report.frames) all->addWidget(frame(each));
  if (report.compute) all->addWidget(lblStare_ = named(new QLabel, "lblStare"));
  all->addStretch();
  all->addLayout(commandLine());
  giveMnemonics(this);
  showDefaults();
  restoreChoice();
  if (report.compute) dates_[report.from]->setFocus();
  if (!note_) return;
  const auto changed = [this] { guarded(objectName(), "Form_Change", [this] { showNote(); }); };
  for (DateBox* date : std::as_const(dates_)) connect(date, &QDateEdit::dateChanged, this, changed);
  for (QAbstractButton* tick : std::as_const(ticks_)) connect(tick, &QAbstractButton::toggled, this, changed);
}

// Other windows may have saved documents meanwhile.
void frmRaport::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  guarded(objectName(), "Form_Activate", [this] { showNote(); });
}

void frmRaport::showNote() {
  if (note_) note_->setText(report_.note(shownChoice()));
}

QWidget* frmRaport::frame(const ReportFrame& frame) {
  QWidget* box = frame.caption.isEmpty() ? new QWidget : new QGroupBox(frame.caption);
  box->setObjectName(frame.name);
  auto* rows = new QFormLayout(box);
  if (frame.caption.isEmpty()) rows->setContentsMargins(0, 0, 0, 0);
  for (const ReportControl& control : frame.controls) addControl(control, rows);
  const bool isPeriod = !frame.controls.empty() && frame.controls.front().name == report_.from;
  if (report_.losesFirstDay && isPeriod) {
    if (!ticks_.contains(kTakesFirstDay)) addControl({Kind::Check, kTakesFirstDay, "Si prima zi"}, rows);
    auto* note = named(new QLabel, "lblZile");
    rows->addRow(note);
    const auto tell = [this, note] {
      const QDate shown = dates_[report_.from]->date(), to = dates_[report_.to]->date();
      const QDate from = ticks_[kTakesFirstDay]->isChecked() ? shown : shown.addDays(1);
      const QString pattern = QStringLiteral("dd.MM.yyyy");
      note->setText(
          from > to
              ? QStringLiteral("Nu se numara nici o zi")
              : QStringLiteral("Se numara zilele %1 - %2").arg(from.toString(pattern), to.toString(pattern)));
    };
    for (const QString& date : {report_.from, report_.to})
      connect(dates_[date], &QDateEdit::dateChanged, note, tell);
    connect(ticks_[kTakesFirstDay], &QAbstractButton::toggled, note, tell);
  }
  if (!report_.comparison.value.isEmpty() && isPeriod)
    addControl({Kind::Check, kComparesYears, "Si anul trecut"}, rows);
  makeExclusive(frame);
  return box;
}

void frmRaport::addControl(const ReportControl& control, QFormLayout* rows) {
  switch (control.kind) {
    case Kind::Date: {
      auto* box = named(new DateBox, control.name, control.tip);
      box->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
      dates_[control.name] = box;
      return rows->addRow(control.caption, box);
    }
    case Kind::Option:
    case Kind::Check: {
      QAbstractButton* tick = control.kind == Kind::Option
                                  ? static_cast<QAbstractButton*>(new QRadioButton(control.caption))
                                  : new QCheckBox(control.caption);
      named(tick, control.name, control.tip);
      ticks_[control.name] = tick;
      connect(tick, &QAbstractButton::toggled, this, [this, cleared = control.clears](bool isOn) {
        if (isOn)
          for (const QString& option : cleared) untick(ticks_[option]);
        enableChoices();
      });
      return rows->addRow(tick);
    }
    case Kind::Choice:
    case Kind::Article:
      lists_[control.name] = listOf(control);
      break;
    case Kind::Text:
      texts_[control.name] =
          makeTextBox(control.name, kTextWidth, "Inceputul denumirii; cu % in fata, orice parte a ei");
      break;
    case Kind::Number: {
      auto* box = named(new NumberBox(0), control.name, control.tip);
      box->setMaximumWidth(fontMetrics().averageCharWidth() * kNumberWidth);
      if (control.mayBeEmpty) requireNumberWhenLeft(box);
      numbers_[control.name] = box;
      return rows->addRow(control.caption, box);
    }
    case Kind::Note:
      note_ = named(new QLabel, control.name);
      return rows->addRow(note_);
  }
  QWidget* box =
      control.kind == Kind::Text ? static_cast<QWidget*>(texts_[control.name]) : lists_[control.name];
  rows->addRow(control.caption, box);
}

SearchCombo* frmRaport::listOf(const ReportControl& control) {
  auto* list = new SearchCombo(control.name, {}, kListWidth);
  if (control.kind == Kind::Choice) guarded(objectName(), "Form_Load", [list] { IncarcaCombo(*list); });
  list->clearEditText();
  return list;
}

// A click on the chosen one of the options that need not be chosen takes the choice off.
void frmRaport::makeExclusive(const ReportFrame& frame) {
  auto* group = new QButtonGroup(this);
  for (const ReportControl& control : frame.controls) {
    if (control.kind != Kind::Option) continue;
    QAbstractButton* option = ticks_[control.name];
    group->addButton(option);
    if (!frame.ticked.isEmpty()) continue;
    auto wasOn = std::make_shared<bool>(false);
    connect(option, &QAbstractButton::pressed, this, [option, wasOn] { *wasOn = option->isChecked(); });
    connect(option, &QAbstractButton::clicked, this, [option, wasOn] {
      if (!*wasOn) return;
      *wasOn = false;
      untick(option);
    });
  }
}

QLayout* frmRaport::commandLine() {
  QHBoxLayout* line =
      listingCommands(this, QStringLiteral("Iesire"),
                      {[this] { run(&frmRaport::list); }, [this] { run(&frmRaport::design); }});
  const auto add = [this, line](int place, const QString& name, const QString& caption,
                                const QString& toolTip, const std::function<void()>& action) {
    QPushButton* button = makeButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this,
            [this, name, action] { guarded(objectName(), name + QStringLiteral("_Click"), action); });
    line->insertWidget(place, button);
  };
  add(0, "cmdImplicit", "Implicit", "Alegerile de la inceput", [this] { showDefaults(); });
  if (!report_.isLabels)
    add(2, "cmdEcran", "Pe ecran", "Randurile raportului intr-o lista, cu totaluri si export",
        [this] { run(&frmRaport::showOnScreen); });
  if (report_.compute)
    add(2, "cmdCalcul", "Calcule", "Calculul jurnalului pentru perioada aleasa",
        [this] { run(&frmRaport::compute); });
  if (report_.canPrint)
    add(line->indexOf(findChild<QPushButton*>("cmdVisualizare")) + 1, "cmdPrint", "Tiparire",
        "Tiparirea la imprimanta", [this] { run(&frmRaport::print); });
  return line;
}

void frmRaport::showDefaults() {
  const QDate today = clock::today();
  const bool ofCalendar = report_.start == StockReport::Start::CalendarYear;
  const QDate first = ofCalendar ? QDate(today.year(), 1, 1) : session().DataIN;
  const QDate last = ofCalendar ? QDate(today.year(), 12, 31) : session().DataSN;
  const bool ofYear = report_.start != StockReport::Start::Today;
  for (auto date = dates_.cbegin(); date != dates_.cend(); ++date) {
    const bool isFrom = date.key() == report_.from;
    const bool isOfYear = isFrom ? ofYear : report_.start == StockReport::Start::Year || ofCalendar;
    date.value()->setDate(!isOfYear ? today : isFrom ? first : last);
  }
  for (const ReportFrame& each : report_.frames)
    for (const ReportControl& control : each.controls) {
      if (control.kind != Kind::Option && control.kind != Kind::Check) continue;
      if (control.name == each.ticked)
        ticks_[control.name]->setChecked(true);
      else
        untick(ticks_[control.name]);
    }
  for (const QString& own : {kTakesFirstDay, kComparesYears})
    if (QAbstractButton* tick = ticks_.value(own)) tick->setChecked(false);
  for (SearchCombo* list : std::as_const(lists_)) {
    list->setCurrentIndex(-1);
    list->clearEditText();
  }
  for (QLineEdit* text : std::as_const(texts_)) text->clear();
  for (NumberBox* number : std::as_const(numbers_)) number->setNumber(1);
  enableChoices();
}

// The choices of the last run or when the window was closed; dates always begin with their default.
void frmRaport::restoreChoice() {
  const QVariant kept = settings::look(objectName() + QStringLiteral("/alegeri"));
  if (kept.isNull()) return;
  const QVariantMap choice = kept.toMap();
  // Boxes first: one may take options off that were chosen after it.
  for (const bool isOption : {false, true})
    for (auto tick = ticks_.cbegin(); tick != ticks_.cend(); ++tick)
      if ((tick.value()->group() != nullptr) == isOption && choice.value(tick.key()).toBool())
        tick.value()->setChecked(true);
  enableChoices();
  for (auto list = lists_.cbegin(); list != lists_.cend(); ++list)
    list.value()->showData(choice.value(list.key()));
  for (auto text = texts_.cbegin(); text != texts_.cend(); ++text)
    text.value()->setText(choice.value(text.key()).toString());
}

void frmRaport::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  keepChoice(shownChoice());
}

void frmRaport::keepChoice(const ReportChoice& chosen) const {
  QVariantMap kept;
  for (const QString& tick : ticks_.keys()) kept[tick] = chosen.has(tick);
  for (const QString& list : lists_.keys()) kept[list] = chosen.codes[list];
  for (const QString& text : texts_.keys()) kept[text] = chosen.texts[text];
  settings::setLook(objectName() + QStringLiteral("/alegeri"), kept);
}

// A list works only with its option; that of the articles is read when it is needed.
void frmRaport::enableChoices() {
  for (const ReportFrame& each : report_.frames)
    for (const ReportControl& control : each.controls) {
      if (control.of.isEmpty()) continue;
      const bool isOn = ticks_[control.of]->isChecked();
      if (QLineEdit* text = texts_.value(control.name)) text->setEnabled(isOn);
      SearchCombo* list = lists_.value(control.name);
      if (!list) continue;
      list->setEnabled(isOn);
      if (!isOn) {
        list->setCurrentIndex(-1);
        list->clearEditText();
      }
      if (control.kind != Kind::Article || !isOn || list->count() > 0) continue;
      guarded(objectName(), "Form_Load",
              [&] { LegaCombo(*list, articles(control.name == "cboCodArticol")); });
      list->clearEditText();
    }
}

ReportChoice frmRaport::choice() const {
  for (DateBox* date : dates_) date->takeTyped();
  for (SearchCombo* list : lists_) list->settle();
  return shownChoice();
}

ReportChoice frmRaport::shownChoice() const {
  ReportChoice chosen;
  for (auto date = dates_.cbegin(); date != dates_.cend(); ++date)
    chosen.dates[date.key()] = date.value()->date();
  for (auto tick = ticks_.cbegin(); tick != ticks_.cend(); ++tick)
    if (tick.value()->isChecked()) chosen.ticked.insert(tick.key());
  for (auto each = lists_.cbegin(); each != lists_.cend(); ++each) {
    const SearchCombo* list = each.value();
    const bool isNone = list->currentText() == kNoRecords;
    if (list->choice().isNull() || isNone) continue;
    chosen.codes[each.key()] = list->choice().toString();
    chosen.texts[each.key()] = list->currentText();
  }
  for (auto text = texts_.cbegin(); text != texts_.cend(); ++text)
    chosen.texts[text.key()] = text.value()->text();
  return chosen;
}

void frmRaport::requireChoice(const ReportControl& control, const ReportChoice& chosen) const {
  const SearchCombo* list = lists_.value(control.name);
  if (!list || !list->isEnabled() || !chosen.codes[control.name].isEmpty()) return;
  if (!control.missing.isEmpty()) throw RuleError(control.missing, control.name);
  const QString text = list->currentText().trimmed();
  if (!text.isEmpty() && text != kNoRecords)
    throw RuleError(QStringLiteral("%1 nu este in lista !").arg(text), control.name);
}

ReportChoice frmRaport::acceptedChoice() const {
  ReportChoice chosen = choice();
  for (const ReportFrame& each : report_.frames)
    for (const ReportControl& control : each.controls) {
      requireChoice(control, chosen);
      if (control.kind == Kind::Number) chosen.numbers[control.name] = wholeNumber(control);
    }
  keepChoice(chosen);
  return chosen;
}

void frmRaport::showOnScreen() {
  Recordset rows;
  {
    const ReportChoice chosen = acceptedChoice();
    read([&](const Progress& progress) { rows = screenRows(report_, chosen, progress); });
  }
  auto* shown = new frmEcran(report_, std::move(rows));
  if (windowHost()) return windowHost()->showChild(shown);
  shown->setAttribute(Qt::WA_DeleteOnClose);
  shown->show();
}

int frmRaport::wholeNumber(const ReportControl& control) const {
  const NumberBox* box = numbers_[control.name];
  if (control.mayBeEmpty && box->typed().trimmed().isEmpty()) return 1;
  const std::optional<Decimal> number = box->number();
  if (!number || Round(*number, 0) != *number || *number < 1 || *number > control.most) {
    const QString general = QStringLiteral("Va rugam introduceti un numar intreg intre 1 si %1 !");
    throw RuleError((control.wrong.isEmpty() ? general : control.wrong).arg(control.most), control.name);
  }
  return static_cast<int>(number->toDouble());
}

PreparedReport frmRaport::prepared() {
  const ReportChoice chosen = acceptedChoice();
  LabelRun labels;
  if (report_.isLabels) labels = {chosen.numbers["TextNr"], chosen.numbers["TextPrima"]};
  const QString project = QStringLiteral("lst/%1.%2").arg(report_.project, report_.isLabels ? "lbl" : "lst");
  ReportData rows;
  read([&](const Progress& progress) { rows = reportData(report_, chosen, progress); });
  return {QDir(session().gCaleAplicatie).filePath(project), std::move(rows), labels};
}

// Work that only reads can be cancelled at any moment.
void frmRaport::read(const std::function<void(const Progress&)>& work) {
  const Hourglass wait;
  if (!report_.rowsInParts) return readLong(windowTitle(), this, [&work] { work({}); });
  WorkProgress progress(windowTitle(), this);
  work([&progress](int done, int of) { progress.show(done, of); });
}

void frmRaport::compute() {
  const ReportChoice chosen = acceptedChoice();
  const Hourglass wait;
  WorkProgress progress(windowTitle(), this);
  lblStare_->setText(report_.compute(chosen, [&progress](int done, int of) { progress.show(done, of); }));
}

void frmRaport::list() { listReport(prepared(), !report_.previewsOnly && !report_.isLabels, this); }

void frmRaport::print() { printReport(prepared(), report_.previewsOnly, this); }

void frmRaport::design() {
  const ReportChoice chosen = choice();
  if (report_.checksDates && chosen.dates[report_.from] > chosen.dates[report_.to])
    throw RuleError(kInverted, report_.from);
  designReport(prepared(), this);
}

void frmRaport::run(void (frmRaport::*command)()) {
  if (!entriesAccepted(this)) return;
  if (lblStare_) lblStare_->clear();
  showNote();
  try {
    (this->*command)();
  } catch (const RuleError& rule) {
    Mesaj(rule.text(), rule.icon(), rule.title());
    if (DateBox* date = dates_.value(rule.field())) date->setFocus();
    if (NumberBox* number = numbers_.value(rule.field())) number->setFocus();
    if (SearchCombo* list = lists_.value(rule.field())) {
      list->setFocus();
      list->showPopup();
    }
  }
}

}  // namespace velmar
