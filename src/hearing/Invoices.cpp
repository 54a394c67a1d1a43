#include "hearing/Invoices.h"

#include "config/Session.h"
#include "documents/HeaderChecks.h"
#include "documents/Numbering.h"
#include "hearing/Completeness.h"
#include "hearing/HearingDrafts.h"
#include "hearing/Issue.h"
#include "hearing/Links.h"
#include "hearing/RepairVouchers.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kVatDecimals = 2;
constexpr int kOrderVat = 19;  // of the lines of orders, whatever the invoice's rate is

const Table& invoices() { return companyTable("G_FacturiClientiAudio"); }

const HearingDrafts& drafts() {
  static const HearingDrafts them(invoices(), companyTable("G_FacturaClientiAudio_Detalii"));
  return them;
}

Row stored(const Row& header, BilledBy by) {
  Completeness required(header);
  required.require("Nr", ": Nr Comanda").require("ID_Client", ": Client").require("CotaTVA", ": Cota TVA");
  if (by == BilledBy::Insurer) required.require("ID_PunctLucru", ": Punct de lucru");
  required.check();
  QStringList columns = ofTable(invoices(), header).columns();
  for (const char* own : {"UserName", "Validat", "DataOperare", "ID_PunctLucru"})
    if (!columns.contains(QLatin1String(own), Qt::CaseInsensitive)) columns.append(QLatin1String(own));
  Row row = rowOf(columns, header);
  row.set("Nr", row.text("Nr").trimmed());
  if (by != BilledBy::Insurer) row.set("ID_PunctLucru", nullptr);
  row.set("UserName", session().gUtilizator);
  row.set("Validat", false);
  row.set("DataOperare", clock::today());
  return row;
}

void requireFreeNumber(const QString& number, qint64 own) {
  if (isInvoiceNumberTaken(number, own)) throw RuleError(invoiceNumberTakenText(), "Nr");
}

Decimal vatOf(const Decimal& value, const Decimal& percent) {
  return Round(value * percent / 100, kVatDecimals);
}

// The lines of the invoice's orders, one for each device.
std::vector<Row> linesOfOrders(const Row& invoice) {
  const std::vector<DeviceAmount> devices = attachedDevices(invoice);
  QStringList codes;
  for (const DeviceAmount& each : devices) codes.append(each.device);
  QHash<QString, QString> names;
  for (const Row& article : rowsOfKeys("SELECT CODART, DENART FROM G_ARTMAG WHERE CODART IN (%1)", codes))
    names.insert(article.text("CODART"), article.text("DENART"));
  std::vector<Row> lines;
  for (const DeviceAmount& each : devices) {
    if (!names.contains(each.device)) continue;
    Row line = emptyInvoiceLine();
    line.set("ID_Articol", each.device);
    line.set("Articol", names.value(each.device));
    line.set("Cant", Decimal(1));
    line.set("PretUnitar", each.price);
    computeLine(line, kOrderVat);
    lines.push_back(std::move(line));
  }
  return lines;
}

std::vector<Row> linesOfVouchers(const Row& invoice) {
  std::vector<Row> lines;
  for (const Row& part : OpenRs("SELECT V.ID_Articol AS ID_Articol, V.Articol AS Articol, SUM(V.Valoare) AS "
                                "Valoare, SUM(V.Cant) AS "
                                "Cant FROM G_AsocieriBonuriFacturiAudio L INNER JOIN G_BonReparatii_Detalii "
                                "V ON V.ID_BonReparatie "
                                "= L.ID_BonReparatie WHERE L.ID_Factura = ? GROUP BY V.ID_Articol, V.Articol "
                                "ORDER BY V.ID_Articol, "
                                "V.Articol",
                                {invoice.integer("ID_Factura")})) {
    const Decimal quantity = Round(part.decimal("Cant"), 3);
    Row line = emptyInvoiceLine();
    line.set("ID_Articol", part.text("ID_Articol"));
    line.set("Articol", part.text("Articol"));
    line.set("Cant", quantity);
    const Decimal value = storedMoney(part.decimal("Valoare"));
    if (!quantity.isZero()) line.set("PretUnitar", storedMoney(value / quantity));
    line.set("Valoare", value);
    line.set("TVA", vatOf(value, invoice.decimal("CotaTVA")));
    line.set("Total", value + line.decimal("TVA"));
    lines.push_back(std::move(line));
  }
  return lines;
}

void storeTotals(qint64 invoice) {
  Decimal value, vat, total;
  for (const Row& line : drafts().lines(invoice)) {
    value += line.decimal("Valoare");
    vat += line.decimal("TVA");
    total += line.decimal("Total");
  }
  database().execute("UPDATE G_FacturiClientiAudio SET TotalFT = ?, TVA = ?, Total = ? WHERE ID_Factura = ?",
                     {value, vat, total, invoice});
}

// Makes the lines of all orders and vouchers anew; typed ones stay.
void makeLines(const Row& invoice) {
  const qint64 key = invoice.integer("ID_Factura");
  database().execute("DELETE FROM G_FacturaClientiAudio_Detalii WHERE ID_Factura = ? AND DinComanda <> 0",
                     {key});
  std::vector<Row> lines = linesOfOrders(invoice);
  for (Row& line : linesOfVouchers(invoice)) lines.push_back(std::move(line));
  const QStringList columns = {"ID_Factura", "ID_Articol", "Articol", "Cant",      "PretUnitar",
                               "Valoare",    "TVA",        "Total",   "DinComanda"};
  std::vector<Values> rows;
  for (Row& line : lines) {
    line.set("ID_Factura", key);
    line.set("DinComanda", true);
    Values cells;
    for (const QString& column : columns) cells.push_back(Value::raw(line.value(column)));
    rows.push_back(std::move(cells));
  }
  if (!rows.empty()) database().insertRows("G_FacturaClientiAudio_Detalii", columns, rows);
  storeTotals(key);
}

// The rate has changed: typed lines and those of vouchers follow it.
void followRate(const Row& invoice) {
  const qint64 key = invoice.integer("ID_Factura");
  if (!attachedVouchers(key).empty()) makeLines(invoice);
  std::vector<Values> changed;
  for (Row& line : drafts().lines(key)) {
    if (line.flag("DinComanda")) continue;
    computeLine(line, invoice.decimal("CotaTVA"));
    changed.push_back({line.decimal("TVA"), line.decimal("Total"), line.integer("ID_Detaliu")});
  }
  database().executeEach("UPDATE G_FacturaClientiAudio_Detalii SET TVA = ?, Total = ? WHERE ID_Detaliu = ?",
                         changed);
  storeTotals(key);
}

void requireSamePartners(const Row& row, const Row& shown, qint64 invoice) {
  for (const char* column : {"ID_Client", "ID_PunctLucru"})
    if (row.integer(column) != shown.integer(column) && hasSources(invoice))
      throw RuleError(QStringLiteral("Factura are comenzi sau bonuri. Clientul si punctul de lucru nu se mai "
                                     "pot modifica !"),
                      column);
}

// A line of orders or vouchers goes with them only: what stays attached would be billed for nothing.
void requireTyped(const Row& invoice, qint64 line) {
  const Row stored = record(companyTable("G_FacturaClientiAudio_Detalii"), line);
  if (stored.isEmpty() || !stored.flag("DinComanda")) return;
  for (const DeviceAmount& each : attachedDevices(invoice))
    if (each.device.compare(stored.text("ID_Articol"), Qt::CaseInsensitive) == 0)
      throw RuleError(
          QStringLiteral(
              "Linia este din comanda %1. Pentru a o sterge scoateti comanda de pe factura in lista "
              "\"Comenzi\" !")
              .arg(each.orders.join(QStringLiteral(", "))));
  if (!attachedVouchers(invoice.integer("ID_Factura")).empty())
    throw RuleError(QStringLiteral(
        "Linia este din bonuri de reparatie. Pentru a o sterge scoateti bonul de pe factura in "
        "lista \"Bonuri de reparatii\" !"));
}

LedgerDocument ledgerOf(const Row& header, const std::vector<Row>& lines) {
  LedgerDocument ledger;
  ledger.key = {KindId::DeviceInvoice, header.text("Nr")};
  ledger.direction = QStringLiteral("E");
  ledger.warehouse = session().gMagazie;
  ledger.partner = header.integer("ID_Client");
  ledger.date = header.date("Data");
  ledger.dueDate = header.date("DataScadenta");
  if (session().gSerieFC != kNoSeries) ledger.series = session().gSerieFC;
  for (const Row& line : lines) {
    ledger.value += line.decimal("Valoare");
    ledger.vat += line.decimal("TVA");
    ledger.cost += line.decimal("Cost");
    ledger.lines.push_back(ledgerLineOf(line, header.decimal("CotaTVA")));
  }
  return ledger;
}

}  // namespace

const ListQuery kInvoiceDrafts =
    joinedList(QStringLiteral("F.ID_Factura, F.Data, F.Nr, T.NUME AS Client, F.ID_PunctLucru, F.Validat"),
               QStringLiteral("G_FacturiClientiAudio F %1 JOIN kt_ter T ON T.COD = F.ID_Client"),
               {QStringLiteral("T.COD")}, QStringLiteral("F.ID_Factura"));

Condition draftsOf(BilledBy by) {
  return {by == BilledBy::Insurer ? QStringLiteral("Validat = 0 AND ID_PunctLucru IS NOT NULL")
                                  : QStringLiteral("Validat = 0 AND ID_PunctLucru IS NULL"),
          {}};
}

QString clientsSql(BilledBy by) {
  const QString clients =
      QStringLiteral("SELECT COD, NUME FROM kt_ter WHERE %1 ORDER BY NUME NULLS FIRST, COD");
  return clients.arg(by == BilledBy::Insurer
                         ? QStringLiteral("TIP = 'C' AND CodTert = 'CAS'")
                         : QStringLiteral("TIP = 'C' OR (TIP = 'P' AND COALESCE(CodTert, '') <> 'CAS')"));
}

const QString& workPointsSql() {
  static const QString sql = QStringLiteral(
      "SELECT COD, NUME FROM kt_ter WHERE TIP = 'C' AND COALESCE(CodTert, '') <> 'CAS' ORDER BY NUME NULLS "
      "FIRST, COD");
  return sql;
}

Row storedInvoice(qint64 invoice) { return drafts().stored(invoice); }

Row newInvoice() {
  Row row = invoices().emptyRow();
  row.set("Data", clock::today());
  row.set("DataScadenta", clock::today().addMonths(1));
  row.set("CotaTVA", kOrderVat);
  for (const char* flag : {"Validat", "IsStorno"}) row.set(flag, false);
  return row;
}

qint64 addInvoice(const Row& header, BilledBy by) {
  const Row row = stored(header, by);
  Transaction transaction(database());
  requireFreeNumber(row.text("Nr"), 0);
  const qint64 key = insertNumbered(invoices(), row);
  transaction.commit();
  return key;
}

void saveInvoice(const Row& header, BilledBy by, const Row& shown) {
  const Row row = stored(header, by);
  const qint64 key = shown.integer("ID_Factura");
  Transaction transaction(database());
  drafts().requireDraft(key);
  requireFreeNumber(row.text("Nr"), key);
  requireSamePartners(row, shown, key);
  drafts().saveHeader(
      row, shown,
      QStringLiteral("Factura a fost modificata intre timp de alt utilizator ! Antetul arata acum "
                     "valorile lui; verificati si salvati din nou."));
  if (row.decimal("CotaTVA") != shown.decimal("CotaTVA")) followRate(storedInvoice(key));
  transaction.commit();
}

void removeInvoice(qint64 invoice) {
  Transaction transaction(database());
  drafts().requireDraft(invoice);
  removeLinks(invoice);
  drafts().remove(invoice);
  transaction.commit();
}

std::vector<Row> invoiceLines(qint64 invoice) { return drafts().lines(invoice); }

Row emptyInvoiceLine() {
  Row line = companyTable("G_FacturaClientiAudio_Detalii").emptyRow();
  line.set("DinComanda", false);
  return line;
}

Row lineWithArticle(Row line, const QString& article) {
  const Recordset found = OpenRs("SELECT CODART, DENART, PRETVFT FROM G_ARTMAG WHERE CODART = ?", {article});
  if (found.isEmpty()) throw RuleError(QStringLiteral("Articolul %1 nu exista !").arg(article), "ID_Articol");
  line.set("ID_Articol", found.first().text("CODART"));
  line.set("Articol", found.first().text("DENART"));
  line.set("Cant", Decimal(1));
  line.set("PretUnitar", storedMoney(found.first().decimal("PRETVFT")));
  return line;
}

void computeLine(Row& line, const Decimal& vatPercent) {
  const Decimal value = storedMoney(line.decimal("Cant") * line.decimal("PretUnitar"));
  line.set("Valoare", value);
  line.set("TVA", vatOf(value, vatPercent));
  line.set("Total", value + line.decimal("TVA"));
}

qint64 addInvoiceLine(qint64 invoice, const Row& line) {
  Transaction transaction(database());
  drafts().requireDraft(invoice);
  const qint64 key = drafts().addLine(invoice, line);
  storeTotals(invoice);
  transaction.commit();
  return key;
}

void saveInvoiceLine(qint64 invoice, const Row& line, const Row& shown) {
  Transaction transaction(database());
  drafts().requireDraft(invoice);
  drafts().saveLine(line, shown);
  storeTotals(invoice);
  transaction.commit();
}

void removeInvoiceLine(qint64 invoice, qint64 line) {
  Transaction transaction(database());
  requireTyped(drafts().requireDraft(invoice), line);
  drafts().removeLine(line);
  storeTotals(invoice);
  transaction.commit();
}

void attachOrder(qint64 invoice, qint64 order) {
  Transaction transaction(database());
  const Row header = drafts().requireDraft(invoice);
  linkOrder(header, order);
  makeLines(header);
  transaction.commit();
}

void detachOrder(qint64 invoice, qint64 order) {
  Transaction transaction(database());
  const Row header = drafts().requireDraft(invoice);
  database().execute(
      "DELETE FROM G_AsocieriComenziFacturiAudio WHERE ID_Factura = ? AND ID_ComandaAudio = ? AND ID_Client "
      "= ?",
      {invoice, order, header.integer("ID_Client")});
  makeLines(header);
  transaction.commit();
}

void attachVoucher(qint64 invoice, qint64 voucher) {
  Transaction transaction(database());
  const Row header = drafts().requireDraft(invoice);
  linkVoucher(header, voucher);
  makeLines(header);
  transaction.commit();
}

void detachVoucher(qint64 invoice, qint64 voucher) {
  Transaction transaction(database());
  const Row header = drafts().requireDraft(invoice);
  database().execute("DELETE FROM G_AsocieriBonuriFacturiAudio WHERE ID_Factura = ? AND ID_BonReparatie = ?",
                     {invoice, voucher});
  makeLines(header);
  transaction.commit();
}

std::vector<Note> notesOfInvoice(const Row& header, const std::vector<Row>& lines,
                                 const ArticleTable& articles) {
  NoteTerms terms;
  terms.partner = header.integer("ID_Client");
  terms.dueDate = header.date("Data").addMonths(1);
  terms.inCurrencyForm = true;
  terms.vatPercent = Round(header.decimal("CotaTVA"), 0);
  constexpr int kMarks = kPartner | kVatPercent;
  NoteRule sale;
  sale.totals = {.accounts = {"CONTVEN"}, .amount = lineValue, .vat = lineVat};
  sale.journal = QStringLiteral("JV");
  sale.perGroup = {{Side::Debit, {Account::From::Parameter, "CONTClienti"}, AmountOf::GroupGross, kMarks},
                   {Side::Credit, {Account::From::Totals, "CONTVEN"}, AmountOf::Group, kMarks},
                   {.side = Side::Credit,
                    .account = {Account::From::Parameter, "TVAVanzare"},
                    .amount = AmountOf::GroupVat,
                    .marks = kMarks,
                    .skipsZero = true}};
  sale.terms = terms;
  const std::vector<Row> posted = postedLines(lines);
  const Row parameters = companyParameters();
  return oneNote(
      SalvareDateContabile({sale, costRule(terms, kMarks)},
                           {ledgerKind(KindId::DeviceInvoice).prefix, header.text("Nr"), header.date("Data"),
                            header.text("Observatii"), posted, articles, parameters}));
}

void validateInvoice(const Row& header, const std::vector<Row>& shown) {
  const qint64 invoice = header.integer("ID_Factura");
  Transaction transaction(database());
  InitParaSoc();  // as they are now
  std::vector<Row> lines = drafts().requireAsShown(header, shown);
  requireOrdersBilled(header, lines);
  requireCompleteLines(lines, QStringLiteral("Va rog introduceti articole pe detalii factura"));
  if (header.date("Data") < session().DataIC) throw RuleError(periodText(), "Data");
  for (const LedgerKey& voucher : attachedVouchers(invoice)) withdraw(voucher);
  const ArticleTable articles = readArticles(articlesOfLines(lines));
  requireInStock(lines, header.date("Data"), articles);
  Plan plan = issueOf({KindId::DeviceInvoice, header.text("Nr")}, lines, articles);
  plan.ledger = {ledgerOf(header, lines)};
  plan.notes = notesOfInvoice(header, lines, articles);
  executePlan(plan, clock::now());
  drafts().storeCosts(lines);
  database().execute("UPDATE G_FacturiClientiAudio SET Validat = -1 WHERE ID_Factura = ?", {invoice});
  transaction.commit();
}

}  // namespace velmar
