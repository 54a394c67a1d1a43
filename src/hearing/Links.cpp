#include "hearing/Links.h"

#include <algorithm>

#include "config/Checks.h"
#include "hearing/Invoices.h"
#include "hearing/Orders.h"
#include "hearing/RepairVouchers.h"
#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

namespace {

// The items of an insurer, of one work point if the condition says so.
QString itemsOfInsurer(bool isByWorkPoint) {
  return QStringLiteral(
             "SELECT C.ID_Comanda, C.Nr, C.ID_Dispozitiv, C.PretReferinta AS Pret FROM G_COMANDA_AUDIO C "
             "WHERE "
             "C.PretReferinta <> 0 AND C.ID_CAS = ?") +
         (isByWorkPoint ? QStringLiteral(" AND C.ID_PunctLucru = ?") : QString());
}

// The items of a work point or, without one, a patient; bound twice.
const QString kItemsOfCustomer = QStringLiteral(
    "SELECT C.ID_Comanda, C.Nr, C.ID_Dispozitiv, C.PretLivrare - C.PretReferinta AS Pret FROM "
    "G_COMANDA_AUDIO C WHERE "
    "C.PretLivrare - C.PretReferinta <> 0 AND (C.ID_PunctLucru = ? OR (C.ID_PunctLucru IS NULL AND "
    "C.ID_Pacient = ?))");

const QString kAnd = QStringLiteral(" UNION ALL ");

// The number of the first invoice linked by that column, with more conditions and their values.
QString linkedInvoice(const char* table, const char* column, qint64 key, const QString& more = {},
                      const Values& values = {}) {
  Values bound{key};
  bound.insert(bound.end(), values.begin(), values.end());
  const Recordset found = OpenRs(
      QStringLiteral("SELECT F.Nr AS Nr FROM %1 L INNER JOIN G_FacturiClientiAudio F ON F.ID_Factura = "
                     "L.ID_Factura WHERE L.%2 = ?%3 ORDER BY F.ID_Factura")
          .arg(QLatin1String(table), QLatin1String(column), more),
      bound);
  return found.isEmpty() ? QString() : found.first().text("Nr");
}

QString linkedOrder(qint64 order, const QString& more, const Values& values = {}) {
  return linkedInvoice("G_AsocieriComenziFacturiAudio", "ID_ComandaAudio", order, more, values);
}

QString linkedVoucher(qint64 voucher, const QString& more, const Values& values = {}) {
  return linkedInvoice("G_AsocieriBonuriFacturiAudio", "ID_BonReparatie", voucher, more, values);
}

const QString kNotMarked = QStringLiteral(" AND L.Stornat = 0");
const QString kOther = kNotMarked + QStringLiteral(" AND L.ID_Factura <> ?");

QString counted(MarkedLinks marked) { return marked == MarkedLinks::AreFree ? kNotMarked : QString(); }

QString otherInvoiceWithOrder(qint64 order, qint64 client, qint64 except) {
  return linkedOrder(order, kOther + QStringLiteral(" AND L.ID_Client = ?"), {except, client});
}

QString otherInvoiceWithVoucher(qint64 voucher, qint64 except) {
  return linkedVoucher(voucher, kOther, {except});
}

// Whether the order still has the invoice's client and a line with its device that was made from orders.
// Items: attachedItems().
bool isBilledAsOrdered(qint64 order, const std::vector<Row>& items, const std::vector<Row>& lines) {
  const auto item = std::find_if(items.begin(), items.end(),
                                 [order](const Row& each) { return each.integer("ID_Comanda") == order; });
  if (item == items.end()) return false;
  const QString device = item->text("ID_Dispozitiv");
  return std::any_of(lines.begin(), lines.end(), [&device](const Row& line) {
    return line.flag("DinComanda") && line.text("ID_Articol").compare(device, Qt::CaseInsensitive) == 0;
  });
}

// The orders of the invoice, marked links included, with the client of each link.
Recordset linkedOrders(qint64 invoice) {
  return OpenRs(
      "SELECT C.ID_Comanda AS ID_Comanda, C.Nr AS Nr, C.ID_Dispozitiv AS ID_Dispozitiv, L.ID_Client AS "
      "ID_Client FROM G_AsocieriComenziFacturiAudio L INNER JOIN G_COMANDA_AUDIO C ON C.ID_Comanda = "
      "L.ID_ComandaAudio WHERE L.ID_Factura = ? ORDER BY C.ID_Comanda",
      {invoice});
}

// What has no device has no line: it would be billed for nothing.
void requireDevice(const Row& order) {
  const QString device = order.text("ID_Dispozitiv");
  if (!ArticolExista(device))
    throw RuleError(
        QStringLiteral("Comanda %1 are un dispozitiv care nu exista (%2). Nu poate fi facturata ! "
                       "Alegeti dispozitivul in fereastra \"Comanda Audio\".")
            .arg(order.text("Nr"), device));
}

void requireBillable(const Row& voucher) {
  if (voucher.isEmpty()) throw RuleError(QStringLiteral("Bonul a fost sters intre timp de alt utilizator !"));
  if (!voucher.flag("Validat"))
    throw RuleError(
        QStringLiteral("Bonul %1 nu este validat. Nu poate fi facturat !").arg(voucher.text("Nr")));
}

const char* const kLinkTables[] = {"G_AsocieriComenziFacturiAudio", "G_AsocieriBonuriFacturiAudio"};

}  // namespace

std::vector<Row> attachedItems(const Row& invoice) {
  const qint64 client = invoice.integer("ID_Client");
  const bool isByWorkPoint = !invoice.isNull("ID_PunctLucru");
  Values values{client};
  if (isByWorkPoint) values.emplace_back(invoice.integer("ID_PunctLucru"));
  for (const Value& value : Values{client, client, invoice.integer("ID_Factura"), client})
    values.push_back(value);
  return OpenRs(
             QStringLiteral(
                 "SELECT I.ID_Comanda AS ID_Comanda, I.Nr AS Nr, I.ID_Dispozitiv AS ID_Dispozitiv, I.Pret AS "
                 "Pret FROM "
                 "(%1) I INNER JOIN G_AsocieriComenziFacturiAudio L ON L.ID_ComandaAudio = I.ID_Comanda "
                 "WHERE L.ID_Factura = ? AND L.ID_Client = ? ORDER BY I.ID_Dispozitiv, I.ID_Comanda")
                 .arg(itemsOfInsurer(isByWorkPoint) + kAnd + kItemsOfCustomer),
             values)
      .takeRows();
}

std::vector<DeviceAmount> attachedDevices(const Row& invoice) {
  std::vector<DeviceAmount> devices;
  for (const Row& item : attachedItems(invoice)) {
    const QString device = item.text("ID_Dispozitiv");
    auto known = std::find_if(devices.begin(), devices.end(),
                              [&device](const DeviceAmount& each) { return each.device == device; });
    if (known == devices.end()) known = devices.insert(devices.end(), {device, {}, {}});
    known->price += item.decimal("Pret");
    known->orders.append(item.text("Nr"));
  }
  return devices;
}

std::vector<LedgerKey> attachedVouchers(qint64 invoice) {
  std::vector<LedgerKey> keys;
  for (const Row& row :
       OpenRs("SELECT R.Nr AS Nr FROM G_AsocieriBonuriFacturiAudio L INNER JOIN G_BonReparatii R "
              "ON R.ID_BonReparatie = L.ID_BonReparatie WHERE L.ID_Factura = ? ORDER BY "
              "R.ID_BonReparatie",
              {invoice}))
    keys.push_back({KindId::RepairVoucher, row.text("Nr")});
  return keys;
}

Recordset billableOrders(const Row& invoice, BilledBy by) {
  const qint64 client = invoice.integer("ID_Client");
  // An insurer pays for one work point; what customers pay belongs to none.
  const bool isByWorkPoint = by == BilledBy::Insurer;
  const QString items =
      isByWorkPoint ? itemsOfInsurer(true) : itemsOfInsurer(false) + kAnd + kItemsOfCustomer;
  Values values{client};
  if (isByWorkPoint)
    values.emplace_back(invoice.integer("ID_PunctLucru"));
  else
    values.insert(values.end(), 2, Value(client));
  values.emplace_back(client);
  values.emplace_back(invoice.integer("ID_Factura"));
  return OpenRs(
      QStringLiteral(
          "SELECT C.ID_Comanda AS ID_Comanda, C.Data AS Data, C.Nr AS Nr, T.NUME AS Client, CASE WHEN "
          "L.ID_Factura IS NULL THEN 'Nu' ELSE 'Da' END AS Inchisa FROM (SELECT DISTINCT ID_Comanda FROM "
          "(%1) "
          "ITEMS) I INNER JOIN G_COMANDA_AUDIO C ON C.ID_Comanda = I.ID_Comanda INNER JOIN kt_ter T ON T.COD "
          "= ? "
          "LEFT JOIN G_AsocieriComenziFacturiAudio L ON L.ID_ComandaAudio = C.ID_Comanda AND L.ID_Client = "
          "T.COD "
          "AND L.Stornat = 0 WHERE L.ID_Factura IS NULL OR L.ID_Factura = ? ORDER BY C.Data DESC NULLS LAST, "
          "C.Nr DESC NULLS LAST, C.ID_Comanda DESC")
          .arg(items),
      values);
}

Recordset billableVouchers(const Row& invoice) {
  return OpenRs(
      "SELECT R.ID_BonReparatie AS ID_BonReparatie, R.DataTerminare AS DataTerminare, R.Nr AS Nr, T.NUME AS "
      "Client, CASE WHEN L.ID_Factura IS NULL THEN 'Nu' ELSE 'Da' END AS Inchis, R.Validat AS Validat FROM "
      "G_BonReparatii R INNER JOIN kt_ter T ON T.COD = R.ID_Client LEFT JOIN G_AsocieriBonuriFacturiAudio L "
      "ON "
      "L.ID_BonReparatie = R.ID_BonReparatie AND L.Stornat = 0 WHERE R.IsContraCost <> 0 AND R.ID_Client = ? "
      "AND "
      "(L.ID_Factura IS NULL OR L.ID_Factura = ?) ORDER BY R.DataTerminare NULLS FIRST, R.ID_BonReparatie",
      {invoice.integer("ID_Client"), invoice.integer("ID_Factura")});
}

bool hasSources(qint64 invoice) {
  for (const char* table : kLinkTables)
    if (!OpenRs(QStringLiteral("SELECT ID_Factura FROM %1 WHERE ID_Factura = ? LIMIT 1")
                    .arg(QLatin1String(table)),
                {invoice})
             .isEmpty())
      return true;
  return false;
}

void linkOrder(const Row& invoice, qint64 order) {
  const qint64 client = invoice.integer("ID_Client");
  const qint64 own = invoice.integer("ID_Factura");
  const Row stored = storedOrder(order);
  if (stored.isEmpty())
    throw RuleError(QStringLiteral("Comanda a fost stearsa intre timp de alt utilizator !"));
  requireDevice(stored);
  if (const QString other = otherInvoiceWithOrder(order, client, own); !other.isEmpty())
    throw RuleError(QStringLiteral("Comanda %1 este deja pe factura %2 !").arg(stored.text("Nr"), other));
  if (!OpenRs("SELECT ID_Factura FROM G_AsocieriComenziFacturiAudio WHERE ID_Factura = ? AND ID_ComandaAudio "
              "= ? "
              "AND ID_Client = ?",
              {own, order, client})
           .isEmpty())
    return;
  database().execute(
      "INSERT INTO G_AsocieriComenziFacturiAudio (ID_Factura, ID_ComandaAudio, ID_Client, Stornat) VALUES "
      "(?, ?, "
      "?, 0)",
      {own, order, client});
}

void linkVoucher(const Row& invoice, qint64 voucher) {
  const qint64 own = invoice.integer("ID_Factura");
  const Row stored = storedVoucher(voucher);
  requireBillable(stored);
  if (!stored.flag("IsContraCost"))
    throw RuleError(
        QStringLiteral("Bonul %1 este in garantie. Nu poate fi facturat !").arg(stored.text("Nr")));
  if (const QString other = otherInvoiceWithVoucher(voucher, own); !other.isEmpty())
    throw RuleError(QStringLiteral("Bonul %1 este deja pe factura %2 !").arg(stored.text("Nr"), other));
  if (!OpenRs(
           "SELECT ID_Factura FROM G_AsocieriBonuriFacturiAudio WHERE ID_Factura = ? AND ID_BonReparatie = ?",
           {own, voucher})
           .isEmpty())
    return;
  database().execute(
      "INSERT INTO G_AsocieriBonuriFacturiAudio (ID_Factura, ID_BonReparatie, Stornat) VALUES (?, ?, 0)",
      {own, voucher});
}

QString invoiceWithOrder(qint64 order, MarkedLinks marked) { return linkedOrder(order, counted(marked)); }

QString invoiceWithVoucher(qint64 voucher, MarkedLinks marked) {
  return linkedVoucher(voucher, counted(marked));
}

void removeLinks(qint64 invoice) {
  for (const char* table : kLinkTables)
    database().execute(QStringLiteral("DELETE FROM %1 WHERE ID_Factura = ?").arg(QLatin1String(table)),
                       {invoice});
}

void requireFreeAgain(const Row& invoice) {
  const qint64 own = invoice.integer("ID_Factura");
  const QString end = QStringLiteral(" Stornarea nu poate fi stearsa !");
  const std::vector<Row> items = attachedItems(invoice);
  const std::vector<Row> lines = invoiceLines(own);
  for (const Row& link : linkedOrders(own)) {
    const QString number = link.text("Nr");
    if (const QString other =
            otherInvoiceWithOrder(link.integer("ID_Comanda"), link.integer("ID_Client"), own);
        !other.isEmpty())
      throw RuleError(QStringLiteral("Comanda %1 este acum pe factura %2.").arg(number, other) + end);
    if (!isBilledAsOrdered(link.integer("ID_Comanda"), items, lines))
      throw RuleError(QStringLiteral("Comanda %1 are acum alt client sau alt dispozitiv.").arg(number) + end);
  }
  for (const Row& link :
       OpenRs("SELECT R.ID_BonReparatie AS ID_BonReparatie, R.Nr AS Nr, R.Validat AS Validat FROM "
              "G_AsocieriBonuriFacturiAudio L INNER JOIN G_BonReparatii R ON R.ID_BonReparatie = "
              "L.ID_BonReparatie WHERE L.ID_Factura = ?",
              {own})) {
    if (const QString other = otherInvoiceWithVoucher(link.integer("ID_BonReparatie"), own); !other.isEmpty())
      throw RuleError(QStringLiteral("Bonul %1 este acum pe factura %2.").arg(link.text("Nr"), other) + end);
    if (!link.flag("Validat"))
      throw RuleError(QStringLiteral("Bonul %1 nu mai este validat.").arg(link.text("Nr")) + end);
  }
}

void requireOrdersBilled(const Row& invoice, const std::vector<Row>& lines) {
  const std::vector<Row> items = attachedItems(invoice);
  for (const Row& order : linkedOrders(invoice.integer("ID_Factura"))) {
    if (isBilledAsOrdered(order.integer("ID_Comanda"), items, lines)) continue;
    requireDevice(order);
    throw RuleError(
        QStringLiteral("Comanda %1 nu are linie pe factura. Scoateti comanda de pe factura in lista "
                       "\"Comenzi\" si adaugati-o din nou !")
            .arg(order.text("Nr")));
  }
}

void markLinks(qint64 invoice, bool isMarked) {
  for (const char* table : kLinkTables)
    database().execute(
        QStringLiteral("UPDATE %1 SET Stornat = ? WHERE ID_Factura = ?").arg(QLatin1String(table)),
        {isMarked, invoice});
}

void copyLinks(qint64 from, qint64 to) {
  database().execute(
      "INSERT INTO G_AsocieriComenziFacturiAudio (ID_Factura, ID_ComandaAudio, ID_Client, Stornat) SELECT ?, "
      "ID_ComandaAudio, ID_Client, -1 FROM G_AsocieriComenziFacturiAudio WHERE ID_Factura = ?",
      {to, from});
  database().execute(
      "INSERT INTO G_AsocieriBonuriFacturiAudio (ID_Factura, ID_BonReparatie, Stornat) SELECT ?, "
      "ID_BonReparatie, -1 FROM G_AsocieriBonuriFacturiAudio WHERE ID_Factura = ?",
      {to, from});
}

bool isInvoiceNumberTaken(const QString& number, qint64 own) {
  return !OpenRs("SELECT Nr FROM G_FacturiClientiAudio WHERE Nr = ? AND ID_Factura <> ?", {number, own})
              .isEmpty() ||
         !OpenRs("SELECT ID FROM G_DOCUME WHERE ID = ? OR ID = ?",
                 {LedgerKey{KindId::DeviceInvoice, number}.text(),
                  LedgerKey{KindId::DeviceStorno, number}.text()})
              .isEmpty();
}

const QString& invoiceNumberTakenText() {
  static const QString text =
      QStringLiteral("Factura cu acest numar exista deja ! Salvarea nu se poate efectua !");
  return text;
}

}  // namespace velmar
