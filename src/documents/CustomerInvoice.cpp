// The customer invoice: a sale on account, in lei or in currency, with possible returns.
#include "config/Lookups.h"
#include "documents/SaleRules.h"

namespace velmar {

namespace {

class CustomerInvoiceRules : public SaleRules {
 public:
  void follow(const QString& changed, TypedHeader& header) const override {
    if (changed == QStringLiteral("CODCLI"))
      header.set("OBS", ValoareSql("SELECT CodTert FROM kt_ter WHERE COD = ?", {header.partner()}));
  }

 protected:
  // A return has the cost and price of the document that it refers to, if that contains the article.
  bool takeReturned(Row& line, const TypedHeader& header) const override {
    const QString document = header.text("OBS");
    if (!line.decimal("CANT").isNegative() || document.isEmpty()) return false;
    const Recordset found =
        OpenRs("SELECT COST, PRETFT FROM G_LDOCUM WHERE DOCID = ? AND ARTID = ? ORDER BY LINIE LIMIT 1",
               {document, line.text("CODART")});
    line.set("COST",
             found.isEmpty() ? Decimal(0) : line.decimal("CANT").abs() * found.first().decimal("COST"));
    line.set("PRETFT", found.isEmpty() ? Decimal(0) : found.first().decimal("PRETFT"));
    return true;
  }

  std::vector<NoteRule> notes(bool isFifo) const override {
    return {saleNote("G_LFACCL_VEN", "JURFACCLI", AccountSource::Parameter, "CONTCLIENTI"),
            costOfGoods(isFifo ? "G_LFACCL_M_COSTFIFO" : "G_LFACCL_M_COST"),
            costOfProducts(isFifo ? "G_LFACCL_P_COSTFIFO" : "G_LFACCL_P_COST")};
  }

  void complete(Posting& posting, const Document& document) const override {
    posting.journal = document.header.text("JURNAL");
  }
};

}  // namespace

std::unique_ptr<KindRules> makeCustomerInvoiceRules() { return std::make_unique<CustomerInvoiceRules>(); }

}  // namespace velmar
