#include "catalogue/ArticleFigures.h"

#include <map>

#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QStringList kAccounts{"CONTSTOCMARFA", "CONTSTOCPROD", "CONTCHELT", "CONTVEN"};

struct FigureColumn {
  const char* name;
  std::optional<Decimal> ArticleChange::*value;
};

constexpr FigureColumn kFigures[] = {
    {"STOC", &ArticleChange::STOC},         {"COST", &ArticleChange::COST},
    {"ADAOS", &ArticleChange::ADAOS},       {"PRETVFT", &ArticleChange::PRETVFT},
    {"PRETVTTI", &ArticleChange::PRETVTTI}, {"PRETDEVIZAVANZ", &ArticleChange::PRETDEVIZAVANZ},
    {"COSTDEV", &ArticleChange::COSTDEV}};

ArticleFacts factsOf(const Row& row) {
  ArticleFacts facts;
  facts.code = row.text("CODART");
  facts.figures = {row.decimal("STOC"),      row.decimal("COST"),     row.decimal("ADAOS"),
                   row.decimal("PRETVFT"),   row.decimal("PRETVTTI"), row.decimal("PRETDEVIZAVANZ"),
                   row.decimal("COSTDEV"),   row.flag("FARASTOC"),    row.decimal("COTATVA"),
                   row.text("CODDEVIZAVANZ")};
  facts.origin = row.text("PROVENIENTA");
  facts.hasFamily = !row.isNull("FAMILY");
  for (const QString& account : kAccounts) facts.accounts.insert(account, row.text(account));
  return facts;
}

}  // namespace

const ArticleFacts* ArticleTable::find(const QString& code) const {
  const auto found = byCode_.constFind(code.toUpper());
  return found == byCode_.constEnd() ? nullptr : &*found;
}

const ArticleFacts& ArticleTable::of(const QString& code) const {
  const ArticleFacts* article = find(code);
  if (!article) throw RuleError(QStringLiteral("Articolul cu codul intern %1 nu exista ").arg(code));
  return *article;
}

ArticleTable readArticles(const QStringList& codes) {
  QStringList columns{
      "A.CODART AS CODART",           "A.FARASTOC AS FARASTOC",           "A.COTATVA AS COTATVA",
      "A.PROVENIENTA AS PROVENIENTA", "A.CODDEVIZAVANZ AS CODDEVIZAVANZ", "F.COD AS FAMILY"};
  for (const FigureColumn& figure : kFigures)
    columns.append(QStringLiteral("A.%1 AS %1").arg(QLatin1String(figure.name)));
  for (const QString& account : kAccounts) columns.append(QStringLiteral("F.%1 AS %1").arg(account));
  ArticleTable articles;
  const auto rows = rowsOfKeys(QStringLiteral("SELECT %2 FROM G_ARTMAG A LEFT JOIN G_FAMART F "
                                              "ON F.COD = A.FAMART WHERE A.CODART IN (%1)")
                                   .arg(QStringLiteral("%1"), columns.join(QStringLiteral(", "))),
                               codes);
  for (const Row& row : rows) articles.add(factsOf(row));
  return articles;
}

void writeArticles(const std::vector<ArticleChange>& changes) {
  std::map<QStringList, std::vector<Values>> rowsByColumns;
  for (const ArticleChange& change : changes) {
    QStringList columns;
    Values values;
    for (const FigureColumn& figure : kFigures) {
      const std::optional<Decimal>& value = change.*figure.value;
      if (!value) continue;
      columns.append(QLatin1String(figure.name));
      values.emplace_back(*value);
    }
    if (columns.isEmpty()) continue;
    values.emplace_back(change.code);
    rowsByColumns[columns].push_back(std::move(values));
  }
  for (const auto& [columns, rows] : rowsByColumns)
    database().executeEach(QStringLiteral("UPDATE G_ARTMAG SET %1 = ? WHERE CODART = ?")
                               .arg(columns.join(QStringLiteral(" = ?, "))),
                           rows);
}

}  // namespace velmar
