#include "documents/windows/frmLDoc.h"

#include <algorithm>
#include <QDir>
#include <QPushButton>
#include <QSplitter>

#include "config/Session.h"
#include "documents/BackToEntry.h"
#include "documents/EInvoiceState.h"
#include "documents/LedgerLists.h"
#include "documents/Numbering.h"
#include "documents/OtherTrade.h"
#include "documents/Undo.h"
#include "documents/windows/frmIntroNrFact.h"
#include "documents/windows/frmLst.h"
#include "documents/windows/frmStornare.h"
#include "store/Database.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

const QList<GridColumn> kDocumentColumns = {{"TIP", "Tip ", CellFormat::Text, 4},
                                            {"ID", "Document", CellFormat::Text, 12},
                                            {"SERIE", "Seria", CellFormat::Text, 6},
                                            {"NUME", "Tert", CellFormat::Text, 30},
                                            {"DATADOC", "Data", CellFormat::Date, 11},
                                            {"DATASCAD", "Data Scadenta", CellFormat::Date, 11},
                                            {"TOTALFT", "Valoare FT", CellFormat::Number, 12},
                                            {"TOTALTVA", "Valoare TVA", CellFormat::Number, 12},
                                            {"TOTALDOC", "Valoare document", CellFormat::Number, 12},
                                            {"TOTALCOST", "Valoare cost", CellFormat::Number, 12},
                                            {"CODDEV", "Cod valuta", CellFormat::Text, 6},
                                            {"CURS", "Curs", CellFormat::Number, 8, 4},
                                            {"TOTALDEV", "Valoare in valuta", CellFormat::Number, 12},
                                            {"PROCRABAT", "Rabat %", CellFormat::Number, 8},
                                            {"VALRABAT", "Rabat", CellFormat::Number, 8},
                                            {"REF", "Referinte", CellFormat::Text, 12},
                                            {"OBS", "Observatii", CellFormat::Text, 24},
                                            {"DATAINTROD", "Data validarii", CellFormat::Date, 11},
                                            {"VALIDAT", "Facturat", CellFormat::Flag, 8},
                                            {"TIPIE", "Tip IE", CellFormat::Text, 5},
                                            {"UTILIZATOR", "Utilizator", CellFormat::Text, 10},
                                            {"TIMP", "Timp", CellFormat::Text, 9},
                                            {"CODMAG", "Cod magazie", CellFormat::Integer, 8},
                                            {"NUMFACTR", "Factura transport", CellFormat::Text, 12},
                                            {"FURTR", "Furnizor transport", CellFormat::Integer, 10},
                                            {"TRANSTTI", "Valoare transport", CellFormat::Number, 12},
                                            {"MODREG", "Modalitate de plata", CellFormat::Integer, 10}};

const QList<GridColumn> kLineColumns = {{"DOCID", "Document", CellFormat::Text, 12},
                                        {"LINIE", "Nr. crt.", CellFormat::Integer, 6},
                                        {"DENART", "Denumire articol", CellFormat::Text, 35},
                                        {"CANT", "Cantitate", CellFormat::Number, 10, 3},
                                        {"PRETFT", "Pret FT", CellFormat::Number, 10},
                                        {"PRETTTI", "Pret TTI", CellFormat::Number, 10},
                                        {"PRETDEV", "Pret devize", CellFormat::Number, 10},
                                        {"REFERINTA", "Referinta", CellFormat::Text, 12},
                                        {"DATASOLD", "Data Referinta", CellFormat::Date, 11},
                                        {"VALTVA", "Valoare TVA", CellFormat::Number, 10},
                                        {"CODTVA", "TVA %", CellFormat::Number, 6},
                                        {"COST", "Cost", CellFormat::Number, 10},
                                        {"VALCOST", "Valoare cost", CellFormat::Number, 10},
                                        {"COSTDEV", "Cost valuta", CellFormat::Number, 10},
                                        {"VALCOSTDEV", "Valoare cost valuta", CellFormat::Number, 10},
                                        {"PRETVA", "Pret Vanzare", CellFormat::Number, 10},
                                        {"PALET", "PALET", CellFormat::Text, 10},
                                        {"PROCRAB", "% Discount", CellFormat::Number, 8},
                                        {"VALRAB", "Pret cu Disc.", CellFormat::Number, 10}};

bool isOf(const Row& document, KindId kind) {
  return document.text("TIP").compare(ledgerKind(kind).prefix, Qt::CaseInsensitive) == 0;
}

}  // namespace

frmLDoc::frmLDoc(QWidget* parent)
    : BrowserForm("frmLDoc", "Lista Documente", parent), grdChild_(new TDBGrid("grdChild")) {
  setListed({.grid = "grdParent",
             .columns = kDocumentColumns,
             .query = documentList(),
             .order = "DATADOC, DATAINTROD, TIMP",
             .descending = true,
             .tables = {"G_DOCUME"},
             .staysOnRecord = true,
             .emptyText = "Nu exista documente validate pentru conditia cautarii."});
  setTotals({{"TOTALFT", {"TOTALFT"}},
             {"TOTALTVA", {"TOTALTVA"}},
             {"TOTALCOST", {"TOTALCOST"}},
             {"TOTALDOC", {"TOTALFT"}},
             {"TOTALDOC", {"TOTALTVA"}}},
            {.name = "Documente",
             .header = "R A P O R T",
             .footer = "Editat de Tarvon       \\tPagina: \\p",
             .boldHeader = true,
             .orientation = QPageLayout::Landscape,
             .repeatFooters = true,
             .htmlCopy = QDir(session().gCaleAplicatie).filePath("Documente.htm")});
  grdChild_->setColumns(kLineColumns);
  grdChild_->setEmptyText("Documentul nu are linii.");
  auto* lists = new QSplitter(Qt::Vertical);
  lists->setChildrenCollapsible(false);
  lists->addWidget(list());
  lists->addWidget(grdChild_);
  lists->setStretchFactor(0, 2);
  lists->setStretchFactor(1, 1);
  layOutBrowser(documentFilter(), "DATADOC", lists, commands());
}

QList<QPushButton*> frmLDoc::commands() {
  QList<QPushButton*> all = {searchCommand("Cautare dupa conditiile stabilite mai sus")};
  all += sortCommands("Sortare crescatoare", "Sortare descrescatoare");
  // Only invoices of hearing devices can be turned round from here.
  cmdStornare_ =
      command("cmdStornare", "Stornare", "Stornare factura client validata", {}, [this] { cancelInvoice(); });
  cmdFacturare_ = command("cmdFacturare", "Facturare",
                          "Copiaza factura proforma selectata in grila de culegere facturi de vanzare", {},
                          [this] { invoiceProforma(); });
  auto* cmdCopy = command("cmdCopy", "Copiere",
                          "Copiaza factura de stornare selectata in grila de culegere facturi de vanzare", {},
                          [this] { copyTurnedInvoice(); });
  cmdCopy->setVisible(!session().ModAudio);
  auto* cmdSterge =
      command("cmdSterge", "Stergere",
              "Mutare document selectat in lista de antete din tabela Documente, in grila in care a fost "
              "creat,modificare stoc, stergere formula contabila",
              "delete", [this] { remove(); });
  setKeys(nullptr, cmdSterge);
  all += {cmdStornare_,
          cmdFacturare_,
          cmdCopy,
          cmdSterge,
          printCommand("cmdListare", "Listare", "Listare pe ecran sau pe imprimanta liniii selectate"),
          command("cmdTiparireDocument", "Tiparire", "Tiparire document selectat ", "print",
                  [this] { reprint(); }),
          exitCommand("CommandButton1", "Inchidere fereastra")};
  return all;
}

void frmLDoc::showRecord(const Row* record) {
  BrowserForm::showRecord(record);
  grdChild_->setRecordset(record ? OpenRs(documentLinesSql(), {record->text("ID")}) : Recordset());
  cmdStornare_->setEnabled(record && isOf(*record, KindId::DeviceInvoice) && record->flag("IsAudio"));
  cmdFacturare_->setEnabled(record && isOf(*record, KindId::Proforma) && !record->flag("VALIDAT"));
}

// The key of the current document, which must be of that kind.
LedgerKey frmLDoc::currentOf(KindId kind, const QString& missing, const QString& another) const {
  const Row* current = list()->currentRecord();
  if (!current) throw RuleError(missing);
  if (!isOf(*current, kind)) throw RuleError(another);
  return {kind, current->text("ID").mid(2)};
}

void frmLDoc::invoiceProforma() {
  const QString select = QStringLiteral("Va rog selectati o factura proforma");
  const LedgerKey proforma = currentOf(KindId::Proforma, select, select);
  QString number = NumarDocument("FC");
  if (number.isEmpty()) number = askedNumber();
  if (number.isEmpty()) return;
  velmar::invoiceProforma(proforma, number);
  Mesaj("Factura Proforma a fost copiata in grila de culgeri Facturi-Vanzari");
  search();
}

void frmLDoc::copyTurnedInvoice() {
  const LedgerKey storno =
      currentOf(KindId::Storno, "Va rog selectati o factura", "Va rog selectati o factura storno");
  const QString number = askedNumber();
  if (number.isEmpty()) return;
  velmar::copyTurnedInvoice(storno, number);
  Mesaj("Factura a fost copiata in grila de culgeri Facturi-Vanzari");
  search();
}

// The number of a new invoice; empty when the user cancelled.
QString frmLDoc::askedNumber() {
  frmIntroNrFact asked(this);
  asked.exec();
  return asked.number();
}

void frmLDoc::cancelInvoice() {
  const Row* current = list()->currentRecord();
  if (!current || !isOf(*current, KindId::DeviceInvoice))
    throw RuleError("Va rog selectati o factura client");
  const auto invoice = LedgerKey::of(current->text("ID"), current->flag("IsAudio"));
  if (!otherTrade() || !invoice || invoice->kind != KindId::DeviceInvoice) return;
  frmStornare asked(current->date("DATADOC"), this);
  asked.exec();
  if (!asked.OkPressed()) return;
  otherTrade()->cancelInvoice(*invoice, asked.Nr(), asked.Data());
  search();
  Mesaj("Factura a fost stornata cu succes");
}

void frmLDoc::reprint() {
  const Row* current = list()->currentRecord();
  if (!current) throw RuleError("Va rog selectati un document");
  listDocument(reprintOf(current->text("ID")), this);
  search();
}

void frmLDoc::remove() {
  const Row* current = list()->currentRecord();
  if (!current) throw RuleError("Va rog selectati un document");
  const QString id = current->text("ID");
  const auto key = LedgerKey::of(id, current->flag("IsAudio"));
  if (!key) throw RuleError(QStringLiteral("Documentul %1 nu are un fel cunoscut.").arg(id));
  if (!confirmed(QStringLiteral("Sigur doriti sa stergeti documentul %1?").arg(id), "Confirmare stergere..."))
    return;
  for (const QString& notice : checkRemoval(*key)) Mesaj(notice);
  if (eInvoiceState(*key) == einvoice::kSent &&
      !confirmed(
          QStringLiteral("Factura electronica a documentului %1 a fost trimisa. O stergeti totusi?").arg(id),
          "Confirmare stergere..."))
    return;
  const int place = list()->currentIndex().row();
  const bool hadNotes = velmar::takeBack(*key);
  Mesaj(QStringLiteral("Echivalentul contabil al documentului %1 %2 sters din contabilitate")
            .arg(key->number, hadNotes ? QStringLiteral("a fost") : QStringLiteral("nu a putut fi")));
  Mesaj(QStringLiteral("Documentul %1 a fost mutat in grila de culegere").arg(id));
  search();
  if (!list()->currentRecord() && list()->rows().size() > 0)
    list()->selectPlace(std::clamp(place, 0, list()->rows().size() - 1));
}

}  // namespace velmar
