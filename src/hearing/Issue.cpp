#include "hearing/Issue.h"

#include "config/Session.h"
#include "stock/Availability.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

const QString kIssue = QStringLiteral("E");

Decimal lineCost(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("COST"); }

bool isHeld(const ArticleTable& articles, const QString& code) {
  const ArticleFacts* article = articles.find(code);
  return article && !article->figures.FARASTOC;
}

// The lines of the document in the ledger, as those of a draft.
std::vector<Row> linesOf(const LedgerKey& key) {
  return OpenRs(
             "SELECT ARTID AS ID_Articol, CANT AS Cant, VALCOST AS Cost FROM G_LDOCUM WHERE DOCID = ? ORDER "
             "BY LINIE",
             {key.text()})
      .takeRows();
}

}  // namespace

void requireCompleteLines(const std::vector<Row>& lines, const QString& noLines) {
  if (lines.empty()) throw RuleError(noLines);
  for (const Row& line : lines) {
    if (line.text("ID_Articol").trimmed().isEmpty())
      throw RuleError(QStringLiteral("Va rog introduceti articolul"), "ID_Articol");
    if (line.decimal("Cant") <= 0) throw RuleError(QStringLiteral("Va rog introduceti cantitatea"), "Cant");
    if (line.isNull("PretUnitar"))
      throw RuleError(QStringLiteral("Va rog introduceti pretul unitar"), "PretUnitar");
  }
}

QStringList articlesOfLines(const std::vector<Row>& lines) {
  QStringList codes;
  for (const Row& line : lines)
    if (const QString code = line.text("ID_Articol"); !codes.contains(code, Qt::CaseInsensitive))
      codes.append(code);
  return codes;
}

void requireInStock(const std::vector<Row>& lines, const QDate& date, const ArticleTable& articles) {
  Quantities wanted;
  std::vector<Row> held;
  for (const Row& line : lines) {
    if (!isHeld(articles, line.text("ID_Articol"))) continue;
    wanted.add(line.text("ID_Articol"), line.decimal("Cant"));
    held.push_back(line);
  }
  if (const auto shortage = firstShortageOn(date, articlesOfLines(held), wanted, session().gMagazie))
    throw RuleError(QStringLiteral("Articolul: %1 are disponibil in stoc %2")
                        .arg(shortage->article, editNumber(shortage->available)),
                    "Cant");
}

Plan issueOf(const LedgerKey& key, std::vector<Row>& lines, const ArticleTable& articles) {
  Plan plan;
  plan.taker = key;
  const QString method = TIPCOST();
  const bool isFifo = method == kFifo;
  OpenLots lots = isFifo ? OpenLots::read(articlesOfLines(lines)) : OpenLots();
  std::vector<StockChange> changes;
  for (Row& line : lines) {
    const QString code = line.text("ID_Articol");
    const ArticleFacts& article = articles.of(code);
    const Decimal quantity = line.decimal("Cant");
    changes.push_back({.article = code, .quantity = quantity, .rule = StockRule::Issue});
    if (!isFifo) {
      line.set("Cost", quantity * article.figures.COST);
      continue;
    }
    if (article.figures.FARASTOC) {
      line.set("Cost", Decimal(0));
      continue;
    }
    const Consumption consumption = lots.costFIFO(code, quantity, CostFollows::LotWithRemainder);
    line.set("Cost", consumption.value);
    plan.links.insert(plan.links.end(), consumption.takes.begin(), consumption.takes.end());
    if (consumption.articleCost)
      plan.articles.push_back({.code = article.code, .COST = consumption.articleCost});
  }
  plan.rests = plan.links;
  for (ArticleChange& change : changesOfArticles(changes, articles, {method, session().NrZec, {}}, {}))
    plan.articles.push_back(std::move(change));
  return plan;
}

void withdraw(const LedgerKey& key) {
  const ValidatedDocument document = readValidated(key);
  QStringList codes;
  for (const auto& line : document.lines) codes.append(line.article);
  executePlan(withdrawalOf(document, readArticles(codes)), clock::now());
}

std::vector<Decimal> issueAgain(const LedgerKey& key) {
  std::vector<Row> lines = linesOf(key);
  std::vector<Decimal> before;
  for (const Row& line : lines) before.push_back(line.decimal("Cost"));
  Plan plan = issueOf(key, lines, readArticles(articlesOfLines(lines)));
  std::vector<Decimal> costs;
  for (const Row& line : lines) costs.push_back(line.decimal("Cost"));
  // Under the average the goods leave at the cost at which they came back.
  if (TIPCOST() != kFifo) costs = before;
  plan.directions = {{key, kIssue, costs == before ? std::vector<Decimal>() : costs}};
  executePlan(plan, clock::now());
  return costs;
}

LedgerLine ledgerLineOf(const Row& line, const Decimal& vatPercent) {
  LedgerLine ledger;
  ledger.article = line.text("ID_Articol");
  ledger.quantity = line.decimal("Cant");
  ledger.price = line.decimal("PretUnitar");
  ledger.priceWithVat = line.decimal(line.has("Total") ? "Total" : "Valoare");
  if (line.has("TVA")) ledger.vat = line.decimal("TVA");
  ledger.vatPercent = vatPercent;
  ledger.unitCost = ledger.cost = line.decimal("Cost");
  return ledger;
}

std::vector<Row> postedLines(const std::vector<Row>& lines) {
  std::vector<Row> posted;
  for (const Row& line : lines) {
    Row row = rowOf("CODART VALOAREFT VALOARETVA COST");
    row.set("CODART", line.text("ID_Articol"));
    row.set("VALOAREFT", line.decimal("Valoare"));
    row.set("VALOARETVA", line.has("TVA") ? line.decimal("TVA") : Decimal(0));
    row.set("COST", line.decimal("Cost"));
    posted.push_back(std::move(row));
  }
  return posted;
}

NoteRule costRule(const NoteTerms& terms, int marks) {
  NoteRule rule;
  rule.totals = {.accounts = {"CONTSTOCMARFA", "CONTCHELT"}, .amount = lineCost};
  rule.journal = QStringLiteral("OD");
  rule.perGroup = {{Side::Debit, {Account::From::Totals, "CONTCHELT"}, AmountOf::Group, marks},
                   {Side::Credit, {Account::From::Totals, "CONTSTOCMARFA"}, AmountOf::Group, marks}};
  rule.skipsZero = true;
  rule.terms = terms;
  return rule;
}

std::vector<Note> oneNote(std::vector<Note> notes) {
  if (notes.empty()) return {};
  Note whole = notes.front();
  whole.rows.clear();
  for (const Note& note : notes)
    for (NoteRow row : note.rows) {
      row.journal = note.journal;
      whole.rows.push_back(std::move(row));
    }
  whole.stamp = whole.kind;
  // The branch is the company's file, without the beginning that all of them have.
  constexpr qsizetype kFixedPart = 6;
  whole.branch = session().gNumeBD.mid(kFixedPart);
  return {whole};
}

}  // namespace velmar
