// A hearing-aid shop for tests: insurer, work point, patient, doctor, devices and parts in stock, and orders,
// vouchers and invoices in one call.
#pragma once

#include "documents/Trade.h"
#include "hearing/Invoices.h"
#include "hearing/Orders.h"
#include "hearing/RepairVouchers.h"

namespace velmar {

class Shop : public Trade {
 public:
  explicit Shop(const QString& method) : Trade(method) {
    session().ModAudio = true;
    insurer = partner("CAS BIHOR", "C", "CAS");
    workPoint = partner("CABINET ORL", "C");
    patient = partner("POP ION", "P");
    doctor = partner("DR. MICLEA", "D");
    for (const char* code : {"AP1", "AP2", "PIESA"}) article(code, "50");
    ExecutaSql(
        "UPDATE G_ARTMAG SET PretVanzare = 2101.5, CompensareCAS = 900, TipAparat = 'RETRO' WHERE CODART = "
        "'AP1'");
  }

  static qint64 partner(const QString& name, const QString& kind, const QString& code = {}) {
    Row row = newPartner(name, kind);
    row.set("CodTert", code);
    return addPartner(row);
  }

  void buy(const QString& number, const QString& code, const QString& quantity, const QString& price,
           const QDate& date = clock::today()) const {
    validated("FF", purchase(number, date), {bought(code, quantity, price, "1000")});
  }

  Row order(const QString& number, const QString& device, const char* full, const char* insured,
            bool isDirect = false) const {
    Row row = newOrder();
    row.set("Nr", number);
    row.set("ID_Pacient", patient);
    row.set("ID_Doctor", doctor);
    row.set("ID_CAS", insurer);
    if (!isDirect) row.set("ID_PunctLucru", workPoint);
    row.set("ID_Dispozitiv", device);
    row.set("PretLivrare", *Decimal::parse(QString(full)));
    row.set("PretReferinta", *Decimal::parse(QString(insured)));
    for (const char* text : {"GradHipoacuzie", "NrDecizie", "NrCarnetAsigurat", "NrCertificatGarantie"})
      row.set(text, "x" + number);
    return row;
  }

  /// A draft with these orders; its key.
  qint64 invoice(const QString& number, qint64 client, BilledBy by, const std::vector<qint64>& orders) const {
    Row header = newInvoice();
    header.set("Nr", number);
    header.set("ID_Client", client);
    if (by == BilledBy::Insurer) header.set("ID_PunctLucru", workPoint);
    const qint64 key = addInvoice(header, by);
    for (const qint64 each : orders) attachOrder(key, each);
    return key;
  }

  static void validateDraft(qint64 invoice) {
    validateInvoice(storedInvoice(invoice), invoiceLines(invoice));
  }

  /// A validated voucher with these parts, as code and quantity; its key.
  qint64 voucher(const QString& number, bool isPaid,
                 const std::vector<std::pair<QString, const char*>>& parts,
                 const QDate& finished = clock::today()) const {
    Row header = newVoucher();
    header.set("Nr", number);
    header.set("ID_Client", patient);
    header.set("ID_Aparat", "AP1");
    header.set("IsContraCost", isPaid);
    header.set("IsTerminat", true);
    header.set("DataReceptie", finished);
    header.set("DataTerminare", finished);
    for (const char* text : {"TipAparat", "SerieAparat", "Defectiune"}) header.set(text, "x");
    const qint64 key = addVoucher(header);
    for (const auto& [code, quantity] : parts) {
      Row line = emptyVoucherLine();
      line.set("ID_Articol", code);
      line.set("Articol", code);
      line.set("Cant", *Decimal::parse(QString(quantity)));
      line.set("PretUnitar", Decimal(50));
      computeVoucherLine(line);
      addVoucherLine(key, line);
    }
    validateVoucher(storedVoucher(key), voucherLines(key));
    return key;
  }

  /// Everything that documents move, as text: stock, lots, links, ledger and notes without numbers and times.
  static QStringList books() {
    QStringList all;
    for (const char* sql :
         {"SELECT CODART, ROUND_EVEN(STOC, 3) AS STOC, ROUND_EVEN(COST, 4) AS COST FROM G_ARTMAG ORDER BY "
          "CODART",
          "SELECT ARTID, CODMAG, ROUND_EVEN(CANT, 3) AS CANT FROM G_STOCMAG WHERE ROUND_EVEN(CANT, 3) <> 0 "
          "ORDER BY "
          "ARTID, CODMAG",
          "SELECT DOCID, LINIE, ARTID, CANT, CANTRAMASA, COST, VALCOST, VALTVA FROM G_LDOCUM ORDER BY DOCID, "
          "LINIE",
          "SELECT TIP_E, ID_E, ID_I, CODART, CANT FROM G_I_E ORDER BY TIP_E, ID_E, ID_I, CODART",
          "SELECT ID, TIPIE, TOTALFT, TOTALTVA, TOTALCOST FROM G_DOCUME ORDER BY ID",
          "SELECT DOC, CONT, DEBIT, CREDIT, TERT FROM kt_linii ORDER BY DOC, CONT, DEBIT",
          "SELECT ID_Factura, ID_ComandaAudio, ID_Client, Stornat FROM G_AsocieriComenziFacturiAudio ORDER "
          "BY 1, 2, 3",
          "SELECT ID_Factura, ID_BonReparatie, Stornat FROM G_AsocieriBonuriFacturiAudio ORDER BY 1, 2",
          "SELECT Nr, Validat, IsStorno, Total FROM G_FacturiClientiAudio ORDER BY Nr"})
      for (const Row& row : OpenRs(sql)) {
        QStringList cells;
        for (const QString& column : row.columns()) cells.append(row.value(column).toString());
        all.append(cells.join(u'|'));
      }
    return all;
  }

  static QStringList ledger(const QString& key) {
    QStringList rows;
    for (const Row& row : OpenRs("SELECT * FROM G_LDOCUM WHERE DOCID = ? ORDER BY LINIE", {key})) {
      QStringList cells{row.text("ARTID")};
      for (const char* column : {"CANT", "PRETFT", "VALTVA", "PRETTTI", "VALCOST"})
        cells.append(row.decimal(column).toString());
      rows.append(cells.join(u' '));
    }
    return rows;
  }

  qint64 insurer = 0, workPoint = 0, patient = 0, doctor = 0;
};

}  // namespace velmar
