// A company with complete papers for tests of electronic invoices: buyers of all kinds, rates of all
// categories, and validated invoices in one call.
#pragma once

#include "config/VatRates.h"
#include "documents/Trade.h"
#include "einvoice/EInvoices.h"
#include "store/Records.h"

namespace velmar {

inline const char* const kIdentity =
    "DENUMIRE = 'SOCIETATE & FIII SRL', CODFISCAL = 'RO 1590082', PLATITVA = 'D', NREGCOM = "
    "'J05/12/1991', "
    "CAPSOC = 200, STRADA1 = 'Str. Lunga', NR1 = '1', ORAS1 = 'Oradea', JUDET1 = 'BH', "
    "contbancar = 'RO49 AAAA 1B31 0075 9384 0000'";

class Desk : public Trade {
 public:
  explicit Desk(const char* decimals = "2") : Trade("FIFO") {
    ExecutaSql("UPDATE kt_info SET NrZec = ?", {QString(decimals).toInt()});
    ExecutaSql("UPDATE kt_par SET FCSTART = '1', FCEND = '9999', SERIEFC = 'VLM'");
    identity(kIdentity);
    InitParaSoc();
    buyer(customer,
          "TIP = 'C', CODFISCAL = 'RO 13548146', AD = 'Str. Noua 2', ORAS = 'Cluj-Napoca', Judet = 'Cluj', "
          "PlatesteTVA = -1");
    for (const char* category : {"Z", "E", "AE", "K", "G"}) {
      Row rate = rowOf("PROCENT CONT CATEGORIE CODSCUTIRE");
      rate.set("PROCENT", QStringLiteral("0"));
      rate.set("CONT", QStringLiteral("4427"));
      rate.set("CATEGORIE", QString(category));
      if (QString(category) == "E") rate.set("CODSCUTIRE", QStringLiteral("VATEX-EU-132"));
      rates[category] = addVatRate(rate);
    }
    for (const char* code : {"A1", "A2", "5941234567899"}) article(code, "10");
  }

  static void identity(const QString& assignments) { ExecutaSql("UPDATE kt_info SET " + assignments); }
  static void buyer(qint64 code, const QString& assignments) {
    ExecutaSql("UPDATE kt_ter SET " + assignments + " WHERE COD = ?", {code});
  }
  static qint64 newBuyer(const QString& name, const QString& assignments,
                         const std::optional<Decimal>& discount = {}) {
    const qint64 code = addPartner(newPartner(name, "C"), discount);
    buyer(code, assignments);
    return code;
  }
  /// A validated invoice; the goods come from an earlier receipt.
  QString invoice(const QString& number, TypedTexts header, const std::vector<TypedLine>& lines) const {
    header.insert("NUMFAC", number);
    if (!header.contains("CODCLI")) header.insert("CODCLI", QString::number(customer));
    if (!header.contains("BATVA1")) header.insert("BATVA1", "2");
    validated("FC", header, lines);
    return "FC" + number;
  }
  QString storno(const QString& invoice, const QString& number) const {
    DocumentEditor editor("FS");
    editor.open(invoice);
    TypedTexts header = editor.headerTexts();
    header.insert("NUMFAC", number);
    editor.headerTyped(header);
    EXPECT_TRUE(validate(editor));
    return "FS" + number;
  }
  void receive(const QString& number, const QString& code, const QString& quantity) const {
    validated("FF", purchase(number), {bought(code, quantity, "5", "10")});
  }

  QHash<QString, qint64> rates;
};

inline TypedLine sold(const QString& code, const QString& quantity, const QString& price) {
  return {code, {{"PRETFT", price}, {"CANT", quantity}}};
}

}  // namespace velmar
