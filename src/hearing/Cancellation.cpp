#include "hearing/Cancellation.h"

#include <algorithm>

#include "config/Session.h"
#include "documents/HeaderChecks.h"
#include "documents/Numbering.h"
#include "hearing/Completeness.h"
#include "hearing/HearingDrafts.h"
#include "hearing/Invoices.h"
#include "hearing/Issue.h"
#include "hearing/Links.h"
#include "hearing/RepairVouchers.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kCostJournal = QStringLiteral("OD");

// The header of the invoice or storno with that number; an empty row when there is none.
Row invoiceOf(const QString& number, bool isStorno) {
  const Recordset found = OpenRs(
      "SELECT * FROM G_FacturiClientiAudio WHERE Nr = ? AND Validat <> 0 AND IsStorno = ? ORDER BY "
      "ID_Factura",
      {number, isStorno});
  return found.isEmpty() ? Row() : found.first();
}

Row requiredInvoice(const QString& number, bool isStorno) {
  Row header = invoiceOf(number, isStorno);
  if (header.isEmpty()) throw RuleError(QStringLiteral("Factura %1 nu mai exista !").arg(number));
  return header;
}

Row requiredVoucher(const QString& number) {
  const Recordset found =
      OpenRs("SELECT * FROM G_BonReparatii WHERE Nr = ? AND Validat <> 0 ORDER BY ID_BonReparatie", {number});
  if (found.isEmpty()) throw RuleError(QStringLiteral("Bonul %1 nu mai exista !").arg(number));
  return found.first();
}

// The invoice that the storno cancelled.
Row cancelledInvoice(const QString& storno) {
  return requiredInvoice(requiredInvoice(storno, true).text("Observatii").trimmed(), false);
}

QStringList articlesOf(const ValidatedDocument& document) {
  QStringList codes;
  for (const auto& line : document.lines) codes.append(line.article);
  return codes;
}

void removeFromLedger(const ValidatedDocument& document) {
  executePlan(undoOf(document, readArticles(articlesOf(document)), TIPCOST()), clock::now());
}

// The lines with the costs that their goods have when they leave again.
std::vector<Row> withCosts(std::vector<Row> lines, const std::vector<Decimal>& costs) {
  for (size_t i = 0; i < lines.size() && i < costs.size(); ++i) lines[i].set("Cost", costs[i]);
  return lines;
}

// Repairs that the patient paid leave the stock by their vouchers while no invoice has them.
void issueVouchersAgain(qint64 invoice) {
  const HearingDrafts drafts(companyTable("G_BonReparatii"), companyTable("G_BonReparatii_Detalii"));
  for (const LedgerKey& voucher : attachedVouchers(invoice)) {
    const Row header = requiredVoucher(voucher.number);
    const std::vector<Row> lines = drafts.lines(header.integer("ID_BonReparatie"));
    // Others may have taken what the invoice left out.
    requireInStock(lines, readValidated(voucher).date, readArticles(articlesOfLines(lines)));
    drafts.storeCosts(withCosts(lines, issueAgain(voucher)));
  }
}

// The invoice counts again. Under FIFO its goods may now come from other lots; then it costs what these cost,
// and its note says so.
void revive(const Row& header) {
  const qint64 invoice = header.integer("ID_Factura");
  const LedgerKey key{KindId::DeviceInvoice, header.text("Nr")};
  const HearingDrafts drafts(companyTable("G_FacturiClientiAudio"),
                             companyTable("G_FacturaClientiAudio_Detalii"));
  requireFreeAgain(header);
  markLinks(invoice, false);
  for (const LedgerKey& voucher : attachedVouchers(invoice)) withdraw(voucher);
  const std::vector<Row> lines = drafts.lines(invoice);
  const ArticleTable articles = readArticles(articlesOfLines(lines));
  requireInStock(lines, header.date("Data"), articles);
  const std::vector<Row> revived = withCosts(lines, issueAgain(key));
  const bool isSame = std::equal(lines.begin(), lines.end(), revived.begin(), [](const Row& a, const Row& b) {
    return a.decimal("Cost") == b.decimal("Cost");
  });
  if (isSame) return;
  drafts.storeCosts(revived);
  removeNotes(notesOf(key.prefix(), key.number, header.date("Data")), key.number);
  writeNotes(notesOfInvoice(header, revived, articles));
}

bool takeStornoBack(const ValidatedDocument& document) {
  const Row storno = requiredInvoice(document.key.number, true);
  const Row invoice = cancelledInvoice(document.key.number);
  removeFromLedger(document);
  removeLinks(storno.integer("ID_Factura"));
  HearingDrafts(companyTable("G_FacturiClientiAudio"), companyTable("G_FacturaClientiAudio_Detalii"))
      .remove(storno.integer("ID_Factura"));
  revive(invoice);
  return !document.notes.empty();
}

// The notes of the invoice turned round: what is not in the cost journal first, then the rest.
std::vector<Note> turnedNotes(const std::vector<Note>& notes, const Row& storno) {
  const QString prefix = ledgerKind(KindId::DeviceStorno).prefix;
  const bool inBlack = session().StornareNegru;
  std::vector<Note> turned;
  for (const bool isCost : {false, true}) {
    Note copy;
    for (const Note& note : notes) {
      if (copy.rows.empty())
        copy = [&note] {
          Note head = note;
          head.rows.clear();
          return head;
        }();
      for (const NoteRow& row : note.rows) {
        const QString& journal = row.journal.isEmpty() ? note.journal : row.journal;
        if ((journal == kCostJournal) == isCost) copy.rows.push_back(row);
      }
    }
    copy.kind = prefix;
    copy.stamp.clear();
    copy.user.clear();
    copy.number = storno.text("Nr");
    copy.date = storno.date("Data");
    turnRound(copy, inBlack);
    if (!copy.rows.empty()) turned.push_back(std::move(copy));
  }
  if (!turned.empty()) turned.back().stamp = prefix;
  return turned;
}

LedgerLine copiedLine(const Row& line) {
  LedgerLine copy;
  copy.article = line.text("ARTID");
  copy.quantity = line.decimal("CANT");
  copy.price = line.decimal("PRETFT");
  copy.priceWithVat = line.decimal("PRETTTI");
  copy.priceInCurrency = line.decimal("PRETDEV");
  copy.vat = line.decimal("VALTVA");
  copy.vatPercent = line.decimal("CODTVA");
  copy.unitCost = line.decimal("COST");
  copy.cost = line.decimal("VALCOST");
  return copy;
}

LedgerDocument stornoLedger(const LedgerKey& invoice, const Row& storno) {
  const Recordset found = OpenRs("SELECT * FROM G_DOCUME WHERE ID = ?", {invoice.text()});
  if (found.isEmpty())
    throw RuleError(QStringLiteral("Factura %1 nu este in documente !").arg(invoice.number));
  const Row& document = found.first();
  LedgerDocument ledger;
  ledger.key = {KindId::DeviceStorno, storno.text("Nr")};
  ledger.isTurned = true;
  ledger.warehouse = document.integer("CODMAG");
  ledger.partner = document.integer("CODTERT");
  ledger.date = storno.date("Data");
  ledger.remark = invoice.number;
  if (session().gSerieFC != kNoSeries) ledger.series = session().gSerieFC;
  ledger.value = document.decimal("TOTALFT");
  ledger.vat = document.decimal("TOTALTVA");
  ledger.cost = document.decimal("TOTALCOST");
  for (const Row& line : OpenRs("SELECT * FROM G_LDOCUM WHERE DOCID = ? ORDER BY LINIE", {invoice.text()}))
    ledger.lines.push_back(copiedLine(line));
  return ledger;
}

// What the invoice's orders cost for the article of the line; nothing if it is not a line of orders.
const DeviceAmount* orderedOf(const Row& line, const std::vector<DeviceAmount>& devices) {
  if (!line.flag("DinComanda")) return nullptr;
  const auto found = std::find_if(devices.begin(), devices.end(), [&line](const DeviceAmount& each) {
    return each.device.compare(line.text("ID_Articol"), Qt::CaseInsensitive) == 0;
  });
  return found == devices.end() ? nullptr : &*found;
}

bool hasPriceOf(const Row& line, const DeviceAmount& ordered) {
  return storedMoney(line.decimal("PretUnitar")) == storedMoney(ordered.price);
}

// DinComanda of a storno's line: when the invoice was cancelled, the line had the price of its orders. The
// user may have typed another one, which does not depend on the orders.
void requireSamePrices(const Row& storno, const Row& invoice) {
  const std::vector<DeviceAmount> devices = attachedDevices(invoice);
  for (const Row& line : invoiceLines(storno.integer("ID_Factura"))) {
    const DeviceAmount* ordered = orderedOf(line, devices);
    if (ordered && !hasPriceOf(line, *ordered))
      throw RuleError(QStringLiteral("Comanda %1 are acum alt pret. Stornarea nu poate fi stearsa !")
                          .arg(ordered->orders.join(QStringLiteral(", "))));
  }
}

// A copy of the header and the lines; returns it.
Row copiedInvoice(const Row& invoice, const QString& number, const QDate& date) {
  const Table& headers = companyTable("G_FacturiClientiAudio");
  Row storno = rowOf(invoice.columns(), invoice);
  storno.set("Nr", number);
  storno.set("Data", date);
  storno.set("UserName", session().gUtilizator);
  storno.set("DataOperare", clock::today());
  storno.set("IsStorno", true);
  storno.set("Observatii", invoice.text("Nr"));
  const qint64 key = insertNumbered(headers, storno);
  const QStringList columns = {"ID_Articol", "Articol", "Cant",  "PretUnitar",
                               "Valoare",    "TVA",     "Total", "Cost"};
  const std::vector<DeviceAmount> devices = attachedDevices(invoice);
  std::vector<Values> rows;
  for (const Row& line : invoiceLines(invoice.integer("ID_Factura"))) {
    const DeviceAmount* ordered = orderedOf(line, devices);
    Values cells{key, ordered && hasPriceOf(line, *ordered)};
    for (const QString& column : columns) cells.push_back(Value::raw(line.value(column)));
    rows.push_back(std::move(cells));
  }
  database().insertRows("G_FacturaClientiAudio_Detalii", QStringList{"ID_Factura", "DinComanda"} + columns,
                        rows);
  storno.set("ID_Factura", key);
  return storno;
}

void requireCancellable(const Row& invoice, const QString& number, const QDate& date) {
  if (const QString storno = stornoOfHearing(invoice.text("Nr")); !storno.isEmpty())
    throw RuleError(QStringLiteral("Factura a fost deja stornata cu documentul %1 !").arg(storno));
  if (isInvoiceNumberTaken(number, 0)) throw RuleError(invoiceNumberTakenText());
  if (date < invoice.date("Data") || date < session().DataIC) throw RuleError(periodText());
}

}  // namespace

QString stornoOfHearing(const QString& invoiceNumber) {
  const Recordset found = OpenRs(
      "SELECT Nr FROM G_FacturiClientiAudio WHERE IsStorno <> 0 AND Observatii = ? ORDER BY ID_Factura",
      {invoiceNumber});
  return found.isEmpty() ? QString() : LedgerKey{KindId::DeviceStorno, found.first().text("Nr")}.text();
}

void requireRemovableHearing(const LedgerKey& key) {
  switch (key.kind) {
    case KindId::RepairVoucher:
      if (const QString invoice = invoiceWithVoucher(requiredVoucher(key.number).integer("ID_BonReparatie"));
          !invoice.isEmpty())
        throw RuleError(QStringLiteral("Bonul este pe factura %1. Nu poate fi sters !").arg(invoice));
      break;
    case KindId::DeviceInvoice:
      if (const QString storno = stornoOfHearing(key.number); !storno.isEmpty())
        throw RuleError(
            QStringLiteral("Factura a fost stornata cu documentul %1. Nu poate fi stearsa.").arg(storno));
      break;
    case KindId::DeviceStorno: {
      const Row invoice = cancelledInvoice(key.number);
      requireFreeAgain(invoice);
      requireSamePrices(requiredInvoice(key.number, true), invoice);
      break;
    }
    default:
      break;
  }
  requireRemovable(readValidated(key));
}

bool takeBackHearing(const LedgerKey& key) {
  Transaction transaction(database());
  requireRemovableHearing(key);
  const ValidatedDocument document = readValidated(key);
  bool hadNotes = !document.notes.empty();
  if (key.kind == KindId::DeviceStorno) {
    hadNotes = takeStornoBack(document);
  } else if (key.kind == KindId::DeviceInvoice) {
    const qint64 invoice = requiredInvoice(key.number, false).integer("ID_Factura");
    removeFromLedger(document);
    database().execute("UPDATE G_FacturiClientiAudio SET Validat = 0 WHERE ID_Factura = ?", {invoice});
    issueVouchersAgain(invoice);
  } else {
    removeFromLedger(document);
    database().execute("UPDATE G_BonReparatii SET Validat = 0 WHERE ID_BonReparatie = ?",
                       {requiredVoucher(key.number).integer("ID_BonReparatie")});
  }
  transaction.commit();
  return hadNotes;
}

void cancelHearingInvoice(const LedgerKey& invoice, const QString& number, const QDate& date) {
  Transaction transaction(database());
  InitParaSoc();  // as they are now
  const Row header = requiredInvoice(invoice.number, false);
  const LedgerKey key{KindId::DeviceInvoice, invoice.number};
  requireCancellable(header, number, date);
  const ValidatedDocument document = readValidated(key);
  const Row storno = copiedInvoice(header, number, date);
  copyLinks(header.integer("ID_Factura"), storno.integer("ID_Factura"));
  markLinks(header.integer("ID_Factura"), true);
  Plan plan = withdrawalOf(document, readArticles(articlesOf(document)));
  plan.ledger = {stornoLedger(key, storno)};
  plan.notes = turnedNotes(readNotes(document.notes), storno);
  executePlan(plan, clock::now());
  issueVouchersAgain(header.integer("ID_Factura"));
  transaction.commit();
}

}  // namespace velmar
