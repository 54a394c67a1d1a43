// The cash sale: goods are issued for payment in cash or by card, and a fiscal register prints the receipt.
#include "catalogue/Articles.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/SaleRules.h"
#include "fiscal/CommandFile.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

const QString kCardRemark = QStringLiteral("Incasare card");
const QString kDefaultJournal = QStringLiteral("RC");
const QString kDefaultAccount = QStringLiteral("5311");
const QString kCardAccount = QStringLiteral("5125");
const QString kCash = QStringLiteral("NUMERAR");
const QString kCard = QStringLiteral("ALTELE");

QString flag(bool is) { return is ? QStringLiteral("-1") : QStringLiteral("0"); }

class CashSaleRules : public SaleRules {
 public:
  void begin(TypedHeader& header, bool isNew) const override {
    const Session& s = session();
    if (header.text("CheckCasaMarcat").isEmpty())
      header.set("CheckCasaMarcat", flag(!s.CasaMarcat.trimmed().isEmpty()));
    if (header.text("TextNrCaractere").isEmpty())
      header.set("TextNrCaractere", QString::number(nameWidth(s.CasaMarcat_Nr)));
    header.set("CheckCard", flag(!isNew && header.text("OBS").startsWith(kCardRemark)));
    if (!isNew) return;
    header.set("CODCLI", ValoareSql("SELECT COD FROM kt_ter WHERE NUME = 'CASA' ORDER BY COD LIMIT 1"));
    header.set("MODREG", kCash);
  }

  void follow(const QString& changed, TypedHeader& header) const override {
    if (changed != QStringLiteral("CheckCard")) return;
    const bool isCard = header.isTicked(changed);
    header.set("OBS", isCard ? kCardRemark : QString());
    header.set("MODREG", isCard ? kCard : kCash);
  }

  // A price in the article's own currency determines the one in lei.
  void recalculate(Row& line, const QString& changed, const TypedHeader& header) const override {
    if (changed != QStringLiteral("PRETVALUTA")) return SaleRules::recalculate(line, changed, header);
    const auto article = articleByCode(line.text("CODART"));
    const Decimal rate = article ? Curs(article->text("CODDEVIZAVANZ").trimmed(), header.date()) : Decimal(0);
    if (rate.isZero()) {
      Mesaj(QStringLiteral("Nu este introdus cursul pe ziua : ") + formatDate(header.date()));
      return;
    }
    line.set("PRETFT", line.decimal("PRETVALUTA") * rate);
    SaleRules::recalculate(line, QStringLiteral("PRETFT"), header);
  }

  void requireReceipt(const Document& document) const override {
    const bool usesRegister = TypedHeader(*document.kind, document.typed).isTicked("CheckCasaMarcat");
    if (usesRegister && !document.header.flag("LISTAT"))
      throw RuleError(
          QStringLiteral("Bonul nu a fost tiparit pe casa de marcat.Dupa validare nu mai poate fi tiparit."));
  }

 protected:
  bool costsOneUnit() const override { return true; }

  // The only totals of products are those of invoices, which would read the invoice with the same number.
  std::vector<NoteRule> notes(bool isFifo) const override {
    return {saleNote("G_LBONCASA_VEN", "", AccountSource::Cash, ""),
            costOfGoods(isFifo ? "G_LBONCASA_M_COSTFIFO" : "G_LBONCASA_M_COST"),
            costOfProducts(isFifo ? "G_LFACCL_P_COSTFIFO" : "G_LFACCL_P_COST")};
  }

  // Cash is posted to the account of the warehouse's journal, card payments to the bank.
  void complete(Posting& posting, const Document& document) const override {
    const Recordset journal = OpenRs(
        "SELECT J.COD AS COD, J.CONT AS CONT FROM G_MULTIMAGAZIE M INNER JOIN kt_jur J ON M.JURNAL = J.COD "
        "WHERE M.COD = ? LIMIT 1",
        {document.header.integer("Magazie")});
    posting.journal = journal.isEmpty() ? kDefaultJournal : journal.first().text("COD");
    const QString account = journal.isEmpty() ? QString() : journal.first().text("CONT").trimmed();
    posting.cashAccount = account.isEmpty() ? kDefaultAccount : account;
    if (TypedHeader(*document.kind, document.typed).isTicked("CheckCard")) posting.cashAccount = kCardAccount;
  }
};

}  // namespace

std::unique_ptr<KindRules> makeCashSaleRules() { return std::make_unique<CashSaleRules>(); }

}  // namespace velmar
