#include "catalogue/windows/FrmActPretVanz.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCompleter>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "catalogue/SalePrices.h"
#include "catalogue/windows/ArticleCombo.h"
#include "config/windows/ComboFill.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("FrmActPretVanz");
constexpr int kCurrencyWidth = 3;
constexpr int kComboCharacters = 40;
constexpr int kBoxCharacters = 12;

}  // namespace

FrmActPretVanz::FrmActPretVanz(QWidget* parent) : QWidget(parent) {
  setObjectName(kForm);
  setWindowTitle(QStringLiteral("Actualizare Pret Vanzare"));
  auto* all = new QVBoxLayout(this);
  all->addWidget(articleFrame());
  all->addLayout(basisBlock());
  all->addStretch();
  all->addLayout(commandLine());
  auto* cmdOK = findChild<QPushButton*>("cmdOK");
  setUpKeys(this, cmdOK, findChild<QPushButton*>("cmdAnulare"));
  giveMnemonics(this);
  setFocusProxy(optToateArt_);
  guarded(kForm, "Form_Load", [this] {
    optToateArt_->setChecked(true);
    CheckAdaos_->setChecked(true);
  });
}

QGroupBox* FrmActPretVanz::articleFrame() {
  // No access key: it would be that of a menu.
  auto* frame = named(new QGroupBox(QStringLiteral("Articole")), "fraSelArt");
  optToateArt_ = named(new QRadioButton(QStringLiteral("&Toate")), "optToateArt");
  optFamilie_ = named(new QRadioButton(QStringLiteral("Familie")), "optFamilie");
  optArticol_ = named(new QRadioButton(QStringLiteral("&Articol")), "optArticol");
  cboFamilie_ = named(new QComboBox, "cboFamilie", "Familia ale carei preturi se actualizeaza");
  cboFamilie_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cboFamilie_->setMinimumContentsLength(kComboCharacters);
  guarded(kForm, "Form_Load", [this] { IncarcaCombo(*cboFamilie_); });
  cboArticol_ = new ArticleCombo("cboArticol", articleList("D"));
  cboArticol_->setToolTip(
      QStringLiteral("Articolul al carui pret se actualizeaza: scrieti din nume sau cod"));
  for (QRadioButton* option : {optToateArt_, optFamilie_, optArticol_})
    connect(option, &QRadioButton::toggled, this, [this](bool on) {
      if (on) guarded(kForm, "optArticole_Click", [this] { showScope(); });
    });
  auto* grid = new QGridLayout(frame);
  grid->addWidget(optToateArt_, 0, 0);
  grid->addWidget(optFamilie_, 1, 0);
  grid->addWidget(cboFamilie_, 1, 1);
  grid->addWidget(optArticol_, 2, 0);
  grid->addWidget(cboArticol_, 2, 1);
  grid->setColumnStretch(1, 1);
  return frame;
}

QLayout* FrmActPretVanz::basisBlock() {
  CheckAdaos_ = named(new QCheckBox(QStringLiteral(" Pe baza de adaos comercial")), "CheckAdaos");
  CheckDeviza_ =
      named(new QCheckBox(QStringLiteral(" Pe baza Pretului de vanzare in valuta")), "CheckDeviza");
  connect(CheckAdaos_, &QCheckBox::toggled, this, [this](bool on) { CheckDeviza_->setChecked(!on); });
  connect(CheckDeviza_, &QCheckBox::toggled, this, [this](bool on) { CheckAdaos_->setChecked(!on); });
  TextAdaos_ = named(new NumberBox(-1), "TextAdaos", "Adaosul aplicat costului, in procente");
  requireNumberWhenLeft(TextAdaos_);
  TextDeviza_ = makeTextBox("TextDeviza", kCurrencyWidth, {}, KeyFilter::NoQuote | KeyFilter::UpperCase);
  for (QLineEdit* box : {static_cast<QLineEdit*>(TextAdaos_), TextDeviza_})
    box->setFixedWidth(fontMetrics().averageCharWidth() * kBoxCharacters);
  guarded(kForm, "Form_Load", [this] {
    QStringList known;
    for (const Row& row : OpenRs("SELECT COD FROM kt_val ORDER BY COD")) known.append(row.text("COD"));
    auto* completer = new QCompleter(known, TextDeviza_);
    completer->setCompletionMode(QCompleter::InlineCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    TextDeviza_->setCompleter(completer);
    TextDeviza_->setToolTip(QStringLiteral("Codul valutei, la cursul de astazi: ") + known.join(", "));
  });
  auto* LabelValuta = named(new QLabel(QStringLiteral(" Valuta")), "LabelValuta");
  auto* grid = new QGridLayout;
  const int margin = fontMetrics().averageCharWidth();
  grid->setContentsMargins(margin, margin, margin, margin);
  grid->addWidget(CheckAdaos_, 0, 0);
  grid->addWidget(TextAdaos_, 0, 1);
  grid->addWidget(new QLabel(QStringLiteral(" %")), 0, 2);
  grid->addWidget(CheckDeviza_, 1, 0);
  grid->addWidget(TextDeviza_, 1, 1);
  grid->addWidget(LabelValuta, 1, 2);
  grid->setColumnStretch(3, 1);
  return grid;
}

QLayout* FrmActPretVanz::commandLine() {
  auto* cmdOK = makeButton("cmdOK", "OK", "Actualizarea preturilor de vanzare");
  connect(cmdOK, &QPushButton::clicked, this,
          [this] { guarded(kForm, "cmdOK_Click", [this] { updatePrices(); }); });
  auto* cmdAnulare = makeButton("cmdAnulare", "Anulare");
  setUpExitButton(cmdAnulare, this);
  auto* line = new QHBoxLayout;
  line->addStretch();
  line->addWidget(cmdOK);
  line->addWidget(cmdAnulare);
  return line;
}

void FrmActPretVanz::showScope() {
  cboFamilie_->setEnabled(optFamilie_->isChecked());
  if (!optFamilie_->isChecked()) cboFamilie_->setCurrentIndex(-1);
  cboArticol_->setEnabled(optArticol_->isChecked());
  if (!optArticol_->isChecked()) cboArticol_->clearChoice();
}

PricedArticles FrmActPretVanz::chosen() const {
  PricedArticles articles;
  if (optFamilie_->isChecked()) {
    articles.scope = PricedArticles::Scope::Family;
    if (cboFamilie_->currentIndex() >= 0)
      articles.family = cboFamilie_->currentText().section(u'-', 0, 0).toLongLong();
  } else if (optArticol_->isChecked()) {
    articles.scope = PricedArticles::Scope::Article;
    articles.article = cboArticol_->code();
  }
  return articles;
}

void FrmActPretVanz::updatePrices() {
  if (!entriesAccepted(this)) return;
  int count = 0;
  try {
    const Hourglass hourglass;
    count = CheckAdaos_->isChecked() ? updatePricesByMarkup(chosen(), TextAdaos_->number())
                                     : updatePricesByRate(chosen(), TextDeviza_->text());
  } catch (const RuleError& rule) {
    Mesaj(rule.text(), rule.icon(), rule.title());
    goTo(rule.field());
    return;
  }
  Mesaj(QStringLiteral("Actualizarea s-a efectuat cu succes pentru %1 articole").arg(count));
}

void FrmActPretVanz::goTo(const QString& column) {
  if (column == QStringLiteral("ADAOS")) return TextAdaos_->setFocus();
  if (column == QStringLiteral("CURS")) return TextDeviza_->setFocus();
  if (column != QStringLiteral("FAMART")) return cboArticol_->drop();
  cboFamilie_->setFocus();
  cboFamilie_->showPopup();
}

}  // namespace velmar
