#include "catalogue/Articles.h"

#include <algorithm>
#include <QHash>

#include "catalogue/DocumentUse.h"
#include "config/Checks.h"
#include "store/Records.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

const Table& articles() { return companyTable("G_ARTMAG"); }

std::optional<Row> articleWhere(const QString& column, const QString& code) {
  const Recordset found = OpenRs(
      QStringLiteral("SELECT * FROM G_ARTMAG WHERE %1 = ? ORDER BY CODART LIMIT 1").arg(column), {code});
  if (found.isEmpty()) return std::nullopt;
  return found.first();
}

struct Required {
  const char* column;
  const char* caption;
};

// In the order of the checks.
const Required kRequired[] = {{"CODART", "Cod"},          {"DENART", "Denumire 1"}, {"FAMART", "Familie"},
                              {"CODFURNIZO", "Furnizor"}, {"COTATVA", "Cota TVA"},  {"UM", "U.M."}};

// `purpose` is "adauga" or "modifica".
void requireFilled(const Row& article, const QString& purpose) {
  for (const Required& field : kRequired) {
    const bool unitOfService = QLatin1String(field.column) == QLatin1String("UM") && article.flag("FARASTOC");
    if (!unitOfService && article.text(field.column).trimmed().isEmpty())
      throw RuleError(QStringLiteral("%1 trebuie completat pentru a se putea %2 articolul !")
                          .arg(QLatin1String(field.caption), purpose),
                      field.column);
  }
}

void requireVatNumber(const Row& article) {
  numberIn(article, "COTATVA", QStringLiteral("Va rugam introduceti o valoare numerica pentru Cota TVA !"));
}

// The first article of a company would be valued by a method that nobody chose.
void requireCostMethod() {
  if (!OpenRs("SELECT CODART FROM G_ARTMAG ORDER BY CODART LIMIT 1").isEmpty()) return;
  const Recordset info = OpenRs("SELECT TCOST FROM kt_info");
  if (info.isEmpty() || info.first().text("TCOST").trimmed().isEmpty())
    throw RuleError(QStringLiteral("VA ROG SA ALEGETI METODA DE EVALUARE A STOCURILOR!"),
                    QStringLiteral("TCOST"));
}

// Columns in which an empty box means 0.
const QStringList kAmounts = {"COST", "ADAOS", "PRETVFT", "PRETVTTI", "PRETDEVIZAVANZ"};

// The row to store, without the columns in `leftOut`; an empty palet is stored as a blank.
Row stored(const Row& article, const QStringList& leftOut) {
  QStringList kept = ofTable(articles(), article).columns();
  kept.removeIf([&leftOut](const QString& name) { return leftOut.contains(name, Qt::CaseInsensitive); });
  Row row = rowOf(kept, article);
  if (row.has("PALET") && row.text("PALET").isEmpty()) row.set("PALET", " ");
  for (const QString& name : kAmounts)
    if (row.has(name) && row.text(name).trimmed().isEmpty()) row.set(name, 0);
  return row;
}

std::vector<Row> numbersOf(const QStringList& codes) {
  return rowsOfKeys("SELECT CODART, ID FROM G_ARTMAG WHERE CODART IN (%1) ORDER BY CODART", codes);
}

void giveMissingNumbers(const QStringList& codes) {
  Transaction transaction(database());
  qint64 last = OpenRs("SELECT MAX(ID) AS LAST FROM G_ARTMAG").first().integer("LAST");
  std::vector<Values> rows;
  for (const Row& row : numbersOf(codes))
    if (row.isNull("ID")) rows.push_back({++last, row.text("CODART")});
  database().executeEach("UPDATE G_ARTMAG SET ID = ? WHERE CODART = ?", rows);
  transaction.commit();
}

// Throws for an unknown family, supplier or currency.
void requireKnownCodes(const Row& article, const Row& shown = {}) {
  const std::pair<const char*, const char*> codes[] = {{"FAMART", "CodFamilie"},
                                                       {"CODFURNIZO", "CodTert"},
                                                       {"CODDEVIZAVANZ", "CodValuta"},
                                                       {"CODDEVIZA", "CodValuta"}};
  for (const auto& [column, kind] : codes) requireKnownCode(article, column, kind, shown);
}

// Related figures: a change of one is based on the displayed values of the others.
const QStringList kTogether[] = {{"COTATVA", "ADAOS", "PRETVFT", "PRETVTTI"},
                                 {"PRETDEVIZAVANZ", "CODDEVIZAVANZ"},
                                 {"PretVanzare", "CompensareCAS", "CODDEVIZA"}};

// The figures reported in a conflict, with their labels.
const std::pair<const char*, const char*> kFigures[] = {{"COST", "Cost"},
                                                        {"ADAOS", "Adaos"},
                                                        {"PRETVFT", "Pret de vanzare fara TVA"},
                                                        {"PRETVTTI", "Pret de vanzare cu TVA"},
                                                        {"PRETDEVIZAVANZ", "Pret vanzare valuta"},
                                                        {"PretVanzare", "Pret vanzare FT"},
                                                        {"CompensareCAS", "Compensare CAS"}};

QString newFigures(const Row& current, const QStringList& columns) {
  QString text;
  for (const auto& [column, caption] : kFigures)
    if (columns.contains(QLatin1String(column)))
      text +=
          QStringLiteral("\r\n%1: %2").arg(QLatin1String(caption), editNumber(current.decimal(column), 2));
  return text;
}

// The columns to be written must not have changed since they were shown.
void requireUnchanged(const Row& changed, const Row& shown) {
  const Row current = record(articles(), changed.text("CODART"));
  if (current.isEmpty()) throw gone();
  QStringList looked = changed.columns();
  for (const QStringList& group : kTogether)
    if (std::any_of(group.begin(), group.end(),
                    [&changed](const QString& name) { return changed.has(name); }))
      looked += group;
  looked.removeDuplicates();
  QStringList conflicts = differing(looked, current, shown);
  if (conflicts.isEmpty()) return;
  conflicts += differing({"COST", "STOC"}, current, shown);  // displayed beside the prices
  conflicts.removeDuplicates();
  throw ChangedMeanwhile(QStringLiteral("Articolul %1 a fost modificat intre timp de alt utilizator ! Fisa "
                                        "arata acum valorile lui; verificati si salvati din nou.%2")
                             .arg(changed.text("CODART"), newFigures(current, conflicts)),
                         current, conflicts);
}

const QStringList kComputed = {"STOC", "CANTE", "COSTDEV"};

}  // namespace

const ListQuery kArticleList{
    QStringLiteral("A.*, A.PRETVFT / 10000 AS PRETVFTRON, F.DENUMIRE AS FAMILIE, T.NUME AS FURNIZOR, "
                   "A.PretVanzare - A.CompensareCAS AS DiferentaPacient"),
    QStringLiteral("G_ARTMAG A LEFT JOIN G_FAMART F ON F.COD = A.FAMART LEFT JOIN kt_ter T ON T.COD = "
                   "A.CODFURNIZO"),
    QStringLiteral("A.CODART")};

std::optional<Row> articleByCode(const QString& code) { return articleWhere(QStringLiteral("CODART"), code); }

std::optional<Row> articleBySupplierCode(const QString& code) {
  return articleWhere(QStringLiteral("CODPRODFUR"), code);
}

std::vector<qint64> articleNumbers(const QStringList& codes) {
  std::vector<Row> stored = numbersOf(codes);
  const auto hasNone = [](const Row& row) { return row.isNull("ID"); };
  if (std::any_of(stored.begin(), stored.end(), hasNone)) {
    giveMissingNumbers(codes);
    stored = numbersOf(codes);
  }
  QHash<QString, qint64> known;
  for (const Row& row : stored) known.insert(row.text("CODART").toUpper(), row.integer("ID"));
  std::vector<qint64> numbers;
  for (const QString& code : codes) {
    const auto found = known.constFind(code.toUpper());
    if (found == known.cend())
      throw StoreError(0, QStringLiteral("Articolul cu codul %1 nu exista").arg(code));
    numbers.push_back(*found);
  }
  return numbers;
}

Row newArticle() {
  Row row =
      rowOf("CODART CODPRODFUR DENART DenAltaLimba FAMART UM CODFURNIZO COTATVA FARASTOC PROVENIENTA PALET");
  row.set("UM", "Buc");
  row.set("COTATVA", 19);
  row.set("FARASTOC", false);
  row.set("PROVENIENTA", "M");
  return row;
}

QString nextArticleCode() {
  constexpr int kDigits = 8;
  qint64 last = 0;
  for (const Row& row : OpenRs("SELECT CODART FROM G_ARTMAG"))
    if (const QString code = row.text("CODART").trimmed(); isNumericText(code))
      last = std::max(last, static_cast<qint64>(code.toDouble()));
  return QStringLiteral("%1").arg(last + 1, kDigits, 10, QLatin1Char('0'));
}

void addArticle(const Row& article) {
  requireFilled(article, "adauga");
  requireVatNumber(article);
  requireKnownCodes(article);
  Row row = stored(article, kComputed + QStringList{"COST", "ADAOS", "PRETVFT", "PRETVTTI"});
  const QString code = article.text("CODART").trimmed().toUpper();
  row.set("CODART", code);
  Transaction transaction(database());
  if (articleByCode(code))
    throw RuleError(
        QStringLiteral("Articolul cu codul %1 exista deja ! Articolul nu se poate adauga !").arg(code),
        "CODART");
  requireCostMethod();
  insertRecord(articles(), row);
  transaction.commit();
}

void saveArticle(const Row& article, const Row& shown) {
  if (article.text("CODART").trimmed().isEmpty())
    throw RuleError(QStringLiteral("Pentru modificari, va rugam selectati un articol existent !"));
  requireFilled(article, "modifica");
  const QString notAPrice =
      QStringLiteral("Va rugam introduceti o valoare numerica pentru Pretul vanzare valuta !");
  const auto currencyPrice = numberIn(article, "PRETDEVIZAVANZ", notAPrice);
  if (!currencyPrice) throw RuleError(notAPrice, "PRETDEVIZAVANZ");
  requireVatNumber(article);
  if (*currencyPrice > Decimal(0) && article.text("CODDEVIZAVANZ").trimmed().isEmpty())
    throw RuleError(QStringLiteral("Va rugam alegeti codul valutei !"), "CODDEVIZAVANZ");
  QStringList leftOut = kComputed;
  // An empty box does not clear a stored palet.
  if (article.text("PALET").trimmed().isEmpty()) leftOut.append("PALET");
  const Row changed = changesOf(articles(), stored(article, leftOut), shown);
  requireKnownCodes(changed);
  if (changed.columns().size() == 1) return;
  Transaction transaction(database());
  requireUnchanged(changed, shown);
  updateRecord(articles(), changed);
  transaction.commit();
}

void requireRemovableArticle(const QString& code) {
  const QString text = QStringLiteral("Articolul este inregistrat in documente.Operatia nu se poate efectua");
  if (!OpenRs("SELECT ARTID FROM G_LDOCUM WHERE ARTID = ? LIMIT 1", {code}).isEmpty())
    throw RuleError(text, {}, 0, "Atentie");
  if (const QString document = documentWithArticle(code); !document.isEmpty())
    throw RuleError(QStringLiteral("%1 (%2)").arg(text, document), {}, 0, "Atentie");
}

void removeArticle(const QString& code) {
  Transaction transaction(database());
  requireRemovableArticle(code);
  deleteRecord(articles(), code);
  transaction.commit();
}

}  // namespace velmar
