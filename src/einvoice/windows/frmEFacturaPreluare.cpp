#include "einvoice/windows/frmEFacturaPreluare.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "catalogue/windows/ArticleCombo.h"
#include "config/windows/ComboFill.h"
#include "einvoice/PurchaseFiles.h"
#include "store/windows/EntryGrid.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/StatusText.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmEFacturaPreluare");
constexpr int kNumberWidth = 40;
constexpr int kKeyWidth = 22;

}  // namespace

frmEFacturaPreluare::frmEFacturaPreluare(qint64 id, QWidget* parent)
    : QDialog(parent),
      purchase_(storedPurchase(id, source_)),
      txtFurnizor_(makeTextBox("txtFurnizor", 0, "Furnizorul, dupa codul fiscal din factura")),
      cmdFurnizorNou_(makeCommand(this, "cmdFurnizorNou", "Furnizor nou", "Adauga furnizorul din factura",
                                  "new", [this] { addSupplier(); })),
      txtNumar_(makeTextBox("txtNumar", kNumberWidth, "Numarul ciornei")),
      txtStornata_(makeTextBox("txtStornata", kKeyWidth,
                               "Documentul de intrare al marfii returnate, de exemplu FF12")),
      TDBGrid1_(new EntryGrid("TDBGrid1", EntryGrid::Refused::Reverted, kForm)),
      cboArticol_(new ArticleCombo("cboArticol", articleList("D"))),
      cboFamilie_(named(new QComboBox, "cboFamilie", "Familia articolului nou")),
      lblDiferenta_(named(new QLabel, "lblDiferenta")),
      lblStare_(new StatusText("lblStare")) {
  setObjectName(kForm);
  setWindowTitle(QStringLiteral("Preluare factura %1").arg(purchase_.invoice.number));
  TDBGrid1_->setColumns({{"COD_FURNIZOR", "Cod furnizor", CellFormat::Text, 14},
                         {"DENUMIRE", "Denumire", CellFormat::Text, 34},
                         {"UM", "UM", CellFormat::Text, 6},
                         {"CANT", "Cantitate", CellFormat::Number, 11, 3},
                         {"PRET", "Pret", CellFormat::Number, 11, 4},
                         {"VALOARE", "Valoare", CellFormat::Number, 12},
                         {"COTA", "Cota TVA", CellFormat::Text, 8},
                         {"CODART", "Articol", CellFormat::Text, 14, 0, true, true},
                         {"DENART", "Denumire articol", CellFormat::Text, 30}});
  TDBGrid1_->setKeptInView("DENART", {"DENUMIRE"});
  TDBGrid1_->setStore([this](const Row& row, const QString&, const QString& text) {
    choose(static_cast<size_t>(row.integer("LINIE")), text.trimmed());
  });
  connect(
      TDBGrid1_, &EntryGrid::cellStored, this,
      [this] { guarded(kForm, "TDBGrid1_AfterColEdit", [this] { show(); }); }, Qt::QueuedConnection);
  connect(cboArticol_, &QComboBox::activated, this, [this] {
    guarded(kForm, "cboArticol_Click", [this] {
      if (cboArticol_->code().isEmpty()) return;
      choose(currentLine(), cboArticol_->code());
      show();
    });
  });
  guarded(kForm, "Form_Load", [this] { IncarcaCombo(*cboFamilie_); });
  cboFamilie_->setCurrentIndex(0);
  connect(txtNumar_, &QLineEdit::textEdited, this, [this](const QString& text) {
    purchase_.number = text.trimmed();
    guarded(kForm, "txtNumar_Change", [this] { show(); });
  });
  connect(txtStornata_, &QLineEdit::textEdited, this, [this](const QString& text) {
    purchase_.turned = text.trimmed();
    guarded(kForm, "txtStornata_Change", [this] { show(); });
  });
  auto* choice = new QHBoxLayout;
  const std::pair<const char*, QWidget*> boxes[] = {{"Articolul liniei", cboArticol_},
                                                    {"Familie", cboFamilie_}};
  for (const auto& [caption, box] : boxes) {
    auto* label = new QLabel(QLatin1String(caption));
    label->setBuddy(box);
    choice->addWidget(label);
    choice->addWidget(box, 1);
  }
  choice->addWidget(makeCommand(this, "cmdArticolNou", "Articol nou",
                                "Adauga articolul liniei curente in familia aleasa", "new",
                                [this] { addArticle(); }));
  auto* cmdPreia = makeCommand(this, "cmdPreia", "Preia", "Face ciornele facturii furnizorului", "save",
                               [this] { takeOverNow(); });
  auto* cmdAnulare = makeButton("cmdAnulare", "Anulare", "Inchidere fara preluare", "close");
  connect(cmdAnulare, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(lblDiferenta_, 1);
  buttons->addWidget(cmdPreia);
  buttons->addWidget(cmdAnulare);
  for (QPushButton* each : findChildren<QPushButton*>()) each->setAutoDefault(false);
  auto* all = new QVBoxLayout(this);
  all->addLayout(head());
  all->addWidget(TDBGrid1_, 1);
  all->addLayout(choice);
  all->addWidget(lblStare_);
  all->addLayout(buttons);
  giveMnemonics(this);
  show();
  resize(fontMetrics().averageCharWidth() * 175, fontMetrics().height() * 32);
  TDBGrid1_->setFocus();
}

QLayout* frmEFacturaPreluare::head() {
  const ReceivedInvoice& invoice = purchase_.invoice;
  lockBox(txtFurnizor_);
  auto* rows = new QFormLayout;
  auto* supplier = new QHBoxLayout;
  supplier->addWidget(txtFurnizor_, 1);
  supplier->addWidget(cmdFurnizorNou_);
  rows->addRow("Furnizor", supplier);
  auto* numbers = new QHBoxLayout;
  numbers->addWidget(txtNumar_);
  auto* figures = new QLabel(QStringLiteral("din %1, scadenta %2, total %3 %4")
                                 .arg(formatDate(invoice.date), formatDate(invoice.due),
                                      formatNumber(invoice.total(), 2), invoice.currency));
  figures->setTextFormat(Qt::PlainText);
  numbers->addWidget(figures);
  numbers->addStretch();
  const bool goesBack = std::any_of(invoice.lines.begin(), invoice.lines.end(),
                                    [](const ReceivedLine& line) { return line.quantity.isNegative(); });
  auto* label = new QLabel("Factura stornata");
  label->setBuddy(txtStornata_);
  numbers->addWidget(label);
  numbers->addWidget(txtStornata_);
  label->setVisible(goesBack);
  txtStornata_->setVisible(goesBack);
  txtStornata_->setText(purchase_.turned);
  txtNumar_->setText(purchase_.number);
  rows->addRow("Numar", numbers);
  return rows;
}

void frmEFacturaPreluare::show() {
  const ReceivedInvoice& invoice = purchase_.invoice;
  txtFurnizor_->setText(QStringLiteral("%1, %2").arg(invoice.supplier.name, invoice.supplier.fiscalCode));
  cmdFurnizorNou_->setEnabled(purchase_.supplier == 0);
  const int place = TDBGrid1_->currentIndex().isValid() ? TDBGrid1_->currentIndex().row() : 0;
  source_.readArticles(purchase_.articles);
  Recordset shown(std::make_shared<Columns>(QStringList{"LINIE", "COD_FURNIZOR", "DENUMIRE", "UM", "CANT",
                                                        "PRET", "VALOARE", "COTA", "CODART", "DENART"}));
  for (size_t i = 0; i < invoice.lines.size(); ++i) {
    const ReceivedLine& line = invoice.lines[i];
    const auto article = source_.article(purchase_.articles[static_cast<qsizetype>(i)]);
    shown.append({static_cast<qint64>(i), line.code, line.name, line.unit, line.quantity.toDouble(),
                  (line.value / line.quantity).toDouble(), line.value.toDouble(),
                  line.rate.percent.toString(), article ? article->code : QString(),
                  article ? article->name : QString()});
  }
  TDBGrid1_->setRecordset(std::move(shown));
  TDBGrid1_->selectPlace(place);
  lblDiferenta_->setText(
      QStringLiteral("Diferenta: %1 lei").arg(formatNumber(differenceOf(purchase_, source_), 2)));
  QStringList texts = remarksOn(purchase_, source_);
  if (const QString exists = existsText(purchase_); !exists.isEmpty())
    texts.prepend(exists);
  else if (const QStringList missing = missingIn(purchase_, source_); !missing.isEmpty())
    texts.prepend(QStringLiteral("Lipseste: ") + missing.join(QStringLiteral("; ")));
  lblStare_->setText(texts.join(u'\n'));
}

size_t frmEFacturaPreluare::currentLine() const {
  const Row* row = TDBGrid1_->currentRecord();
  if (!row) throw RuleError("Va rog selectati o linie");
  return static_cast<size_t>(row->integer("LINIE"));
}

void frmEFacturaPreluare::choose(size_t line, const QString& code) {
  source_.readArticles({code});
  const auto article = source_.article(code);
  if (!code.isEmpty() && !article) throw RuleError(QStringLiteral("Articolul %1 nu exista !").arg(code));
  purchase_.articles[static_cast<qsizetype>(line)] = article ? article->code : QString();
}

void frmEFacturaPreluare::addSupplier() {
  const ReceivedInvoice& invoice = purchase_.invoice;
  if (Mesaj(QStringLiteral("Adaugati furnizorul %1, cod fiscal %2?")
                .arg(invoice.supplier.name, invoice.supplier.fiscalCode),
            kQuestion + kYesNo, windowTitle()) != kResultYes)
    return;
  purchase_.supplier = addSupplierOf(invoice, source_);
  source_ = PurchaseSource();
  // What the new supplier makes known; the choices of the user stay.
  const Purchase again = storedPurchase(purchase_.id, source_);
  for (qsizetype i = 0; i < purchase_.articles.size(); ++i)
    if (purchase_.articles[i].isEmpty()) purchase_.articles[i] = again.articles[i];
  if (purchase_.number == invoice.number) purchase_.number = again.number;
  txtNumar_->setText(purchase_.number);
  show();
}

void frmEFacturaPreluare::addArticle() {
  if (purchase_.supplier == 0) throw RuleError("Adaugati intai furnizorul.");
  const qint64 family = cboFamilie_->currentText().section(u'-', 0, 0).toLongLong();
  if (family == 0) throw RuleError("Selectati familia articolului nou !");
  const size_t line = currentLine();
  const QString known = purchase_.articles[static_cast<qsizetype>(line)];
  if (!known.isEmpty() &&
      Mesaj(QStringLiteral("Linia are deja articolul %1. Doriti sa creati altul ?").arg(known),
            kYesNo + kQuestion + kSecondDefault, windowTitle()) != kResultYes)
    return;
  choose(line, addArticleFor(purchase_.invoice.lines[line], purchase_.supplier, family, source_));
  // Further lines of the same goods.
  const QStringList found = source_.articlesOf(purchase_.supplier, purchase_.invoice);
  for (qsizetype i = 0; i < found.size(); ++i)
    if (purchase_.articles[i].isEmpty()) purchase_.articles[i] = found[i];
  show();
}

void frmEFacturaPreluare::takeOverNow() {
  takeOver(purchase_, source_);
  accept();
}

void frmEFacturaPreluare::done(int result) {
  if (result != Accepted)
    guarded(kForm, "Form_Unload", [this] {
      keepChoices(purchase_, source_);
      judgeAgain(purchase_.id, source_);
    });
  QDialog::done(result);
}

}  // namespace velmar
