// The transfer between warehouses.
#include "config/Session.h"
#include "documents/KindRules.h"
#include "documents/kinds/PaletSource.h"
#include "documents/kinds/Wording.h"
#include "documents/LineChecks.h"
#include "store/Database.h"

namespace velmar {

using namespace wording;

namespace {

void calculate(Row& line) {
  line.set("VALOAREFT", Round(line.decimal("CANT") * line.decimal("PRETFT"), session().NrZec));
}

class TransferRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& /*header*/,
                    Notices& /*notices*/) const override {
    line.set("UM", article.text("UM"));
    if (line.isNull("CANT")) line.set("CANT", Decimal(0));
    line.set("PRETFT", article.decimal("COST"));
    line.set("PRETVA", article.decimal("PRETVFT"));
    calculate(line);
  }

  void recalculate(Row& line, const QString& /*changed*/, const TypedHeader& /*header*/,
                   Notices& /*notices*/) const override {
    calculate(line);
  }

  QStringList totalColumns() const override { return {"VALOAREFT"}; }

  void readInputs(const Document& document, PlanInputs& inputs) const override {
    for (const Row& row : OpenRs("SELECT COD, CONT FROM G_MULTIMAGAZIE WHERE COD IN (?, ?)",
                                 {document.warehouse(), document.header.integer("DESTMAGAZIE")})
                              .takeRows())
      inputs.warehouseAccounts.insert(row.integer("COD"), row.text("CONT").trimmed());
  }

  // An issue from one warehouse and a receipt in the other; the stock of all warehouses stays as it is.
  Effects effects(const Document& document, const PlanInputs& inputs) const override {
    Effects effects;
    effects.lines = document.lines;
    LedgerDocument issue = ledgerOf(document);
    for (const Row& line : document.lines) {
      issue.value += line.decimal("VALOAREFT");
      issue.lines.push_back({.article = line.text("CODART"),
                             .quantity = line.decimal("CANT"),
                             .unitCost = line.decimal("PRETFT"),
                             .cost = line.decimal("CANT") * line.decimal("PRETFT"),
                             .salePrice = optionalDecimal(line, "PRETVA"),
                             .palet = line.text("PALET")});
    }
    issue.cost = issue.value;
    const qint64 destination = document.header.integer("DESTMAGAZIE");
    LedgerDocument receipt = issue;
    issue.key.side = LedgerSide::Issue;
    receipt.key.side = LedgerSide::Receipt;
    receipt.direction = QStringLiteral("I");
    receipt.warehouse = destination;
    effects.ledger = {std::move(issue), std::move(receipt)};
    const QString from = inputs.warehouseAccounts.value(document.warehouse());
    const QString to = inputs.warehouseAccounts.value(destination);
    if (from != to)
      effects.notes = {{.totals = {.amount = lineValue},
                        .journalParameter = "JURBONCONS",
                        .perGroup = {{Side::Debit, {Account::From::Given, to}},
                                     {Side::Credit, {Account::From::Given, from}}}}};
    return effects;
  }
};

// All goods of a palet move together, and only once.
class TransferPalet : public PaletSource {
 public:
  Checks checks(const QString& /*palet*/) const override { return {}; }

  AddedLines lines(const Document& document, TypedHeader& header, const QString& palet) const override {
    if (!hasLeft(palet)) return PaletSource::lines(document, header, palet);
    header.set("TextPalet", {});
    return {.notice = QStringLiteral("Articolelele din acest palet au iesit din stoc")};
  }

 protected:
  void complete(Row& line, const Row& entry, const TypedHeader& /*header*/) const override {
    line.set("PRETFT", entry.decimal("COST"));
    line.set("PRETVA", entry.decimal("PRETVFT"));
    calculate(line);
  }
};

// A transfer with that number has been validated; of one that was taken back a side may be left.
Check inLedger() {
  Check check = refusedWhen("Mai exista un document cu acest numar. Validarea nu se poate efectua.", {},
                            [](const Document& document) {
                              const LedgerKey issue{KindId::Transfer, document.number, LedgerSide::Issue};
                              const LedgerKey receipt{issue.kind, issue.number, LedgerSide::Receipt};
                              return !OpenRs("SELECT ID FROM G_DOCUME WHERE ID IN (?, ?)",
                                             {issue.text(), receipt.text()})
                                          .isEmpty();
                            });
  check.at = CheckedAt::UnderLock;
  return check;
}

Check destinationEmpty() {
  return refusedWhen("Va rugam selectati magazia destinatie ! Salvarea nu se poate efectua !", "DESTMAGAZIE",
                     [](const Document& document) { return document.typed().text("DESTMAGAZIE").isEmpty(); });
}

Check destinationIsSource() {
  return refusedWhen(
      "Magazia destinatie trebuie sa fie alta decat cea curenta ! Salvarea nu se poate efectua !",
      "DESTMAGAZIE", [](const Document& document) {
        return document.typed().text("DESTMAGAZIE") == QString::number(document.warehouse());
      });
}

ListingKind listingForm() {
  ListingKind paper{KindId::Transfer, "frmLstDocTra", "Bon de transfer", "BonTransfer"};
  paper.headerSql =
      "SELECT A.NUMAE, A.OBSERV, A.DATAAE, A.DESTMAGAZIE, S.DENUMIRE AS MAGSURSA, D.DENUMIRE AS MAGDEST "
      "FROM G_TRANSFER AS A LEFT JOIN G_MULTIMAGAZIE AS S ON S.COD = A.Magazie "
      "LEFT JOIN G_MULTIMAGAZIE AS D ON D.COD = A.DESTMAGAZIE WHERE A.NUMAE = ?";
  paper.linesSql = printedLines("G_LTRANSFER", "NUMAE");
  return paper;
}

}  // namespace

DocumentKind transfer() {
  DocumentKind kind = kindOf(KindId::Transfer, "transfer between warehouses", "frmGRILADocTransfer");
  static const TransferRules rules;
  static const TransferPalet palet;
  kind.rules = &rules;
  kind.sources = {&palet};
  kind.paper = listingForm();
  kind.headerTable = "G_TRANSFER";
  kind.lineTable = "G_LTRANSFER";
  kind.numberColumn = "NUMAE";
  kind.dateColumn = "DATAAE";
  kind.remarkColumn = "OBSERV";
  kind.posted = {postedDebit("D.TOTALFT")};
  kind.posted.front().when =
      "H.VALIDAT <> 0 AND D.TIPIE = 'E' AND (SELECT TRIM(COALESCE(S.CONT, '')) FROM G_MULTIMAGAZIE S WHERE "
      "S.COD = D.CODMAG) <> (SELECT TRIM(COALESCE(S.CONT, '')) FROM G_MULTIMAGAZIE S WHERE S.COD = "
      "H.DESTMAGAZIE)";
  kind.draftColumns = {"DESTMAGAZIE"};
  kind.tipie = "E";
  kind.texts.numberTaken = numberTakenText("Bonul de transfer");
  kind.oldestFirst = true;
  kind.headerChecks = {numberEmpty(kind, "avizului"), numberTaken(kind), destinationEmpty(),
                       destinationIsSource()};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un document !"), noLines("Documentul")};
  kind.lineChecks = {distinctArticles(),
                     stockSuffices(Stocked::OnlyHeld, "Articolul: %1 are disponibil in stoc numai %2"),
                     inLedger()};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati un document de transfer !"),
                      printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMAE", "txtFields(0)", "&Numar document", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATAAE", "dtpDataFactura", "D&ata document", ""},
      {HeaderFieldType::Warehouse, "DESTMAGAZIE", "DataCombo1", "&Destinatie",
       "Selectati magazia destinatie"},
      {HeaderFieldType::Text, "", "TextPalet", " Palet", "Paletul ale carui articole se transfera", "", "0"},
      {HeaderFieldType::Remark, "OBSERV", "txtFields(1)", "&Observatii", "Maxim 35 caractere", "", "", 35}};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        price("PRETFT", "Pret unitar", LineEntry::PositiveNumber),
                        value("VALOAREFT", "Valoare"),
                        {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, 2, kAsTyped, 12},
                        {"PALET", "Palet", LineEntry::Locked, -1, kAsTyped, 12}};
  kind.texts.title = "Document de transfer";
  kind.texts.draftsCaption = "Lista documente de transfer";
  setTips(kind.texts, "Creare document de transfer nou", "Stergere document curent", "Tiparire document");
  kind.texts.validateTip = "Verificare informatii, modicare stoc magazii si salvare in tabela Documente ";
  setQuestions(kind.texts, "documentul de transfer", "Va rugam selectati un aviz !");
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti Transferul %1 ?";
  kind.texts.validated = "Documentul de transfer a fost salvat cu succes Documente !";
  kind.texts.ledgerFailure = kind.texts.stockFailure =
      "%1 - %2 in procedura SalvareDocumente din Form frmGrilaDocTransfer Linia: %3";
  kind.texts.postingFailure =
      "%1 - %2 in procedura SalvareDateContabile din Form frmGRILADocTransfer Linia: %3";
  return kind;
}

}  // namespace velmar
