#include "hearing/RepairVouchers.h"
#include "hearing/Links.h"

#include "config/Numbers.h"
#include "config/Session.h"
#include "documents/HeaderChecks.h"
#include "hearing/Completeness.h"
#include "hearing/HearingDrafts.h"
#include "hearing/Issue.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const Table& vouchers() { return companyTable("G_BonReparatii"); }

const HearingDrafts& drafts() {
  static const HearingDrafts them(vouchers(), companyTable("G_BonReparatii_Detalii"));
  return them;
}

LedgerKey keyOf(const Row& header) { return {KindId::RepairVoucher, header.text("Nr")}; }

Row stored(const Row& header) {
  Completeness(header)
      .require("Nr", ": Nr Bon Reparatie")
      .require("ID_Client", ": Client")
      .require("ID_Aparat", ": Aparat")
      .require("TipAparat", ": Tip Aparat")
      .require("SerieAparat", ": Serie Aparat")
      .require("Defectiune", ": Defectiune")
      .check();
  QStringList columns = ofTable(vouchers(), header).columns();
  for (const char* own : {"UserName", "Validat", "DataOperare"})
    if (!columns.contains(QLatin1String(own), Qt::CaseInsensitive)) columns.append(QLatin1String(own));
  Row row = rowOf(columns, header);
  row.set("Nr", row.text("Nr").trimmed());
  row.set("UserName", session().gUtilizator);
  row.set("Validat", false);
  row.set("DataOperare", clock::today());
  return row;
}

void requireFreeNumber(const Row& row, qint64 own) {
  const QString number = row.text("Nr");
  if (!OpenRs("SELECT Nr FROM G_BonReparatii WHERE Nr = ? AND ID_BonReparatie <> ?", {number, own})
           .isEmpty() ||
      !OpenRs("SELECT ID FROM G_DOCUME WHERE ID = ?", {keyOf(row).text()}).isEmpty())
    throw RuleError(QStringLiteral("Exista bon cu numarul: ") + number, "Nr");
}

void requireNotBilled(qint64 voucher) {
  if (const QString invoice = invoiceWithVoucher(voucher, MarkedLinks::Count); !invoice.isEmpty())
    throw RuleError(QStringLiteral("Bonul este pe factura %1. Nu poate fi sters !").arg(invoice));
}

LedgerDocument ledgerOf(const Row& header, const std::vector<Row>& lines) {
  LedgerDocument ledger;
  ledger.key = keyOf(header);
  ledger.direction = QStringLiteral("E");
  ledger.warehouse = session().gMagazie;
  ledger.partner = header.integer("ID_Client");
  ledger.date = header.date("DataTerminare");
  for (const Row& line : lines) {
    ledger.value += line.decimal("Valoare");
    ledger.cost += line.decimal("Cost");
    ledger.lines.push_back(ledgerLineOf(line, {}));
  }
  return ledger;
}

// Under guarantee the parts are an expense; what the patient pays is posted by the invoice.
std::vector<Note> notesOf(const Row& header, const std::vector<Row>& lines, const ArticleTable& articles) {
  if (header.flag("IsContraCost")) return {};
  NoteTerms terms;
  terms.dueDate = header.date("DataTerminare").addMonths(1);
  terms.inCurrencyForm = true;
  terms.rate = 1;
  const std::vector<Row> posted = postedLines(lines);
  const Row parameters = companyParameters();
  return oneNote(SalvareDateContabile(
      {costRule(terms, kVatPercent)},
      {ledgerKind(KindId::RepairVoucher).prefix, header.text("Nr"), header.date("DataTerminare"),
       header.text("Observatie"), posted, articles, parameters}));
}

}  // namespace

const ListQuery kVouchers = joinedList(
    QStringLiteral(
        "R.ID_BonReparatie, R.Nr, R.ID_Client, T.NUME AS Client, R.ID_Aparat, A.DENART AS Aparat, "
        "R.TipAparat, R.SerieAparat, R.Defectiune, R.Observatie, R.DataReceptie, R.DataTerminare, "
        "R.IsTerminat, R.IsContraCost, R.Validat, R.UserName, R.DataOperare, CASE WHEN R.IsTerminat <> "
        "0 THEN R.DataTerminare END AS DataTerm, CASE WHEN R.IsContraCost <> 0 THEN 'Contra Cost' ELSE "
        "'Garantie' END AS Tip"),
    QStringLiteral(
        "G_BonReparatii R %1 JOIN kt_ter T ON T.COD = R.ID_Client %1 JOIN G_ARTMAG A ON A.CODART = "
        "R.ID_Aparat"),
    {QStringLiteral("T.COD"), QStringLiteral("A.CODART")}, QStringLiteral("R.ID_BonReparatie"));

QList<FilterField> voucherFilter() {
  QList<FilterField> fields = filterFields(vouchers(),
                                           {{"ID_Client", "CLIENT"},
                                            {"ID_Aparat", "APARAT"},
                                            {"DataOperare", "DATA OPERARE"},
                                            {"DataReceptie", "DATA RECEPTIE"},
                                            {"DataTerminare", "DATA TERMINARE"},
                                            {"IsContraCost", "TIP"},
                                            {"IsTerminat", "TERMINAT"},
                                            {"TipAparat", "TIP APARAT"},
                                            {"SerieAparat", "SERIE APARAT"}},
                                           {"ID_BonReparatie"});
  offerChoices(fields, "ID_Client", "SELECT COD, NUME FROM kt_ter ORDER BY NUME NULLS FIRST, COD");
  offerChoices(fields, "ID_Aparat", "SELECT CODART, DENART FROM G_ARTMAG ORDER BY CODART");
  offerFlag(fields, "IsContraCost", "Contra Cost", "Garantie");
  offerYesNo(fields, "Validat");
  offerYesNo(fields, "IsTerminat");
  return fields;
}

Row storedVoucher(qint64 voucher) { return drafts().stored(voucher); }

Row newVoucher() {
  Row row = vouchers().emptyRow();
  row.set("Nr", QString::number(NumarUrmator("G_BonReparatii")));
  for (const char* date : {"DataReceptie", "DataTerminare"}) row.set(date, clock::today());
  for (const char* flag : {"IsTerminat", "IsContraCost", "Validat"}) row.set(flag, false);
  return row;
}

qint64 addVoucher(const Row& header) {
  const Row row = stored(header);
  Transaction transaction(database());
  requireFreeNumber(row, 0);
  const qint64 key = insertNumbered(vouchers(), row);
  transaction.commit();
  return key;
}

void saveVoucher(const Row& header, const Row& shown) {
  const Row row = stored(header);
  Transaction transaction(database());
  drafts().requireDraft(shown.integer("ID_BonReparatie"));
  requireFreeNumber(row, shown.integer("ID_BonReparatie"));
  drafts().saveHeader(
      row, shown,
      QStringLiteral("Bonul a fost modificat intre timp de alt utilizator ! Antetul arata acum "
                     "valorile lui; verificati si salvati din nou."));
  transaction.commit();
}

void removeVoucher(qint64 voucher) {
  Transaction transaction(database());
  drafts().requireDraft(voucher);
  requireNotBilled(voucher);
  drafts().remove(voucher);
  transaction.commit();
}

Recordset devicesOf(qint64 patient) {
  return OpenRs(
      "SELECT A.CODART AS CODART, A.DENART AS DENART, A.TipAparat AS TIP, C.SerieDispozitiv AS SERIE FROM "
      "G_COMANDA_AUDIO C INNER JOIN G_ARTMAG A ON A.CODART = C.ID_Dispozitiv WHERE C.ID_Pacient = ? AND NOT "
      "EXISTS "
      "(SELECT 1 FROM G_COMANDA_AUDIO L WHERE L.ID_Pacient = C.ID_Pacient AND L.ID_Dispozitiv = "
      "C.ID_Dispozitiv "
      "AND (L.Data > C.Data OR (L.Data = C.Data AND L.ID_Comanda > C.ID_Comanda))) ORDER BY C.Data DESC "
      "NULLS "
      "LAST, C.ID_Comanda DESC",
      {patient});
}

std::vector<Row> voucherLines(qint64 voucher) { return drafts().lines(voucher); }

Row emptyVoucherLine() { return companyTable("G_BonReparatii_Detalii").emptyRow(); }

void computeVoucherLine(Row& line) {
  line.set("Valoare", storedMoney(line.decimal("Cant") * line.decimal("PretUnitar")));
}

qint64 addVoucherLine(qint64 voucher, const Row& line) {
  Transaction transaction(database());
  drafts().requireDraft(voucher);
  const qint64 key = drafts().addLine(voucher, line);
  transaction.commit();
  return key;
}

void saveVoucherLine(qint64 voucher, const Row& line, const Row& shown) {
  Transaction transaction(database());
  drafts().requireDraft(voucher);
  drafts().saveLine(line, shown);
  transaction.commit();
}

void removeVoucherLine(qint64 voucher, qint64 line) {
  Transaction transaction(database());
  drafts().requireDraft(voucher);
  drafts().removeLine(line);
  transaction.commit();
}

void requireFinished(const Row& header) {
  if (!header.flag("IsTerminat"))
    throw RuleError(QStringLiteral("Va rog completati data terminare"), "IsTerminat");
  if (header.date("DataReceptie") > header.date("DataTerminare"))
    throw RuleError(QStringLiteral("Data terminare trebuie sa fie mai mare decat data receptie"),
                    "DataTerminare");
  if (header.date("DataTerminare") < session().DataIC) throw RuleError(periodText(), "DataTerminare");
}

void validateVoucher(const Row& header, const std::vector<Row>& shown) {
  Transaction transaction(database());
  InitParaSoc();  // as they are now
  requireFinished(header);
  std::vector<Row> lines = drafts().requireAsShown(header, shown);
  requireCompleteLines(lines, QStringLiteral("Va rog introduceti articole pe detalii bon"));
  const ArticleTable articles = readArticles(articlesOfLines(lines));
  requireInStock(lines, header.date("DataTerminare"), articles);
  Plan plan = issueOf(keyOf(header), lines, articles);
  plan.ledger = {ledgerOf(header, lines)};
  plan.notes = notesOf(header, lines, articles);
  executePlan(plan, clock::now());
  drafts().storeCosts(lines);
  database().execute("UPDATE G_BonReparatii SET Validat = -1 WHERE ID_BonReparatie = ?",
                     {header.integer("ID_BonReparatie")});
  transaction.commit();
}

}  // namespace velmar
