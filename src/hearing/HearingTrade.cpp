#include "hearing/HearingTrade.h"

#include "documents/kinds/Kinds.h"
#include "documents/OtherTrade.h"
#include "hearing/Cancellation.h"
#include "hearing/HearingRules.h"
#include "store/Database.h"

namespace velmar {

namespace {

// As the columns of the 13 kinds are called on paper.
const QString kInvoiceHeader = QStringLiteral(
    "SELECT F.Nr AS NUMFAC, F.ID_Client AS CODCLI, F.CotaTVA AS BATVA1, F.Observatii AS OBS, F.Data AS "
    "DATAFAC, "
    "'LEI' AS CODDEVIZA, 0 AS CURS FROM G_FacturiClientiAudio F WHERE F.Nr = ? AND F.IsStorno = %1");
const QString kInvoiceLines = QStringLiteral(
    "SELECT F.Nr AS NUMFAC, 1 AS NRLINIE, L.ID_Articol AS CODART, L.Articol AS DENUMIRE, L.Cant AS CANT, "
    "L.PretUnitar AS PRETFT, L.Valoare AS VALOAREFT, L.Total AS VALOARETTI, L.TVA AS VALOARETVA, A.UM AS UM, "
    "A.PALET AS PALET, A.DenAltaLimba AS DENALTALIMBA FROM G_FacturaClientiAudio_Detalii L INNER JOIN "
    "G_FacturiClientiAudio F ON F.ID_Factura = L.ID_Factura INNER JOIN G_ARTMAG A ON A.CODART = L.ID_Articol "
    "WHERE "
    "F.Nr = ? AND F.IsStorno = %1 ORDER BY L.ID_Detaliu");

ListingKind invoicePaper(KindId kind, bool isStorno) {
  ListingKind paper = *documentKind(kind).paper;
  const QString flag = QString::number(isStorno ? -1 : 0);
  paper.headerSql = kInvoiceHeader.arg(flag);
  paper.linesSql = kInvoiceLines.arg(flag);
  paper.wordsCurrency = QStringLiteral("LEI");  // without a name in words
  return paper;
}

bool exists(const ListingKind& paper, const QString& number) {
  return !OpenRs(paper.headerSql, {number}).isEmpty();
}

class HearingTrade : public OtherTrade {
 public:
  std::optional<Printout> printoutOf(const QString& prefix, const QString& number) const override {
    const KindId kind = findLedgerKind(prefix, true)->id;
    const ListingKind& paper = kind == KindId::DeviceInvoice  ? hearingInvoicePaper()
                               : kind == KindId::DeviceStorno ? hearingStornoPaper()
                                                              : repairVoucherPaper();
    if (!exists(paper, number)) return std::nullopt;
    Printout printout{&paper, number};
    if (kind == KindId::DeviceStorno) {
      const Row header = OpenRs(paper.headerSql, {number}).first();
      printout.own = stornoVariables(header.text("OBS").trimmed(), number, header.date("DATAFAC"));
    }
    return printout;
  }

  QStringList checkRemoval(const LedgerKey& key) const override {
    requireRemovableHearing(key);
    return {};
  }

  bool takeBack(const LedgerKey& key) const override { return takeBackHearing(key); }

  void cancelInvoice(const LedgerKey& invoice, const QString& number, const QDate& date) const override {
    cancelHearingInvoice(invoice, number, date);
  }

  std::vector<CheckRule> checkRules() const override { return hearingRules(); }
};

}  // namespace

void registerHearingTrade() {
  static const HearingTrade trade;
  setOtherTrade(&trade);
}

const ListingKind& hearingInvoicePaper() {
  static const ListingKind paper = invoicePaper(KindId::CustomerInvoice, false);
  return paper;
}

const ListingKind& hearingStornoPaper() {
  static const ListingKind paper = invoicePaper(KindId::Storno, true);
  return paper;
}

const ListingKind& repairVoucherPaper() {
  static const ListingKind paper = [] {
    ListingKind voucher{KindId::RepairVoucher, "frmLstBonReparatii", "Tiparire Bon de Reparatii",
                        "BonReparatii"};
    voucher.headerSql =
        "SELECT R.*, T.NUME AS Client, A.DENART AS Aparat FROM G_BonReparatii R INNER JOIN kt_ter T ON T.COD "
        "= "
        "R.ID_Client INNER JOIN G_ARTMAG A ON A.CODART = R.ID_Aparat WHERE R.Nr = ?";
    voucher.linesSql =
        "SELECT L.* FROM G_BonReparatii_Detalii L INNER JOIN G_BonReparatii R ON R.ID_BonReparatie = "
        "L.ID_BonReparatie WHERE R.Nr = ? ORDER BY L.ID_DetaliuBon";
    voucher.partner = documentKind(KindId::ConsumptionVoucher).paper->partner;
    voucher.dateColumn = QStringLiteral("DataReceptie");
    voucher.partnerColumn = QStringLiteral("ID_Client");
    voucher.unsaved = QStringLiteral("Va rugam apasati Salvare");
    return voucher;
  }();
  return paper;
}

}  // namespace velmar
