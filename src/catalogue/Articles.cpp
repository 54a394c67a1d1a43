#include "catalogue/Articles.h"

#include "store/Database.h"
#include "store/Schema.h"
#include "util/Errors.h"

namespace velmar {

namespace {

std::optional<Row> articleWhere(const QString& column, const QString& code) {
  const Recordset found = OpenRs(
      QStringLiteral("SELECT * FROM G_ARTMAG WHERE %1 = ? ORDER BY CODART LIMIT 1").arg(column), {code});
  if (found.isEmpty()) return std::nullopt;
  return found.first();
}

void requireFilled(bool filled, const QString& caption, const QString& column) {
  if (!filled)
    throw RuleError(caption + QStringLiteral(" trebuie completat pentru a se putea adauga articolul !"),
                    column);
}

// The first article of a company would be valued by a method that nobody chose.
void requireCostMethod() {
  if (!OpenRs("SELECT CODART FROM G_ARTMAG ORDER BY CODART LIMIT 1").isEmpty()) return;
  const Recordset info = OpenRs("SELECT TCOST FROM kt_info");
  if (info.isEmpty() || info.first().text("TCOST").trimmed().isEmpty())
    throw RuleError(QStringLiteral("VA ROG SA ALEGETI METODA DE EVALUARE A STOCURILOR!"),
                    QStringLiteral("TCOST"));
}

}  // namespace

std::optional<Row> articleByCode(const QString& code) { return articleWhere(QStringLiteral("CODART"), code); }

std::optional<Row> articleBySupplierCode(const QString& code) {
  return articleWhere(QStringLiteral("CODPRODFUR"), code);
}

void addArticle(const NewArticle& article) {
  const QString code = article.CODART.trimmed().toUpper();
  requireFilled(!code.isEmpty(), QStringLiteral("Cod"), QStringLiteral("CODART"));
  requireFilled(!article.DENART.trimmed().isEmpty(), QStringLiteral("Denumire 1"), QStringLiteral("DENART"));
  requireFilled(article.FAMART != 0, QStringLiteral("Familie"), QStringLiteral("FAMART"));
  requireFilled(article.CODFURNIZO != 0, QStringLiteral("Furnizor"), QStringLiteral("CODFURNIZO"));
  requireFilled(article.FARASTOC || !article.UM.trimmed().isEmpty(), QStringLiteral("U.M."),
                QStringLiteral("UM"));
  Transaction transaction(database());
  if (articleByCode(code))
    throw RuleError(
        QStringLiteral("Articolul cu codul %1 exista deja ! Articolul nu se poate adauga !").arg(code),
        "CODART");
  requireCostMethod();
  const Table& table = companyTable("G_ARTMAG");
  Row row = table.emptyRow();
  row.set("CODART", code);
  row.set("CODPRODFUR", article.CODPRODFUR.trimmed());
  row.set("DENART", article.DENART.trimmed());
  row.set("DenAltaLimba", article.DenAltaLimba.trimmed());
  row.set("UM", article.UM.trimmed());
  requireWidths(table, row);
  database().insertRows(table.name(),
                        {"CODART", "CODPRODFUR", "DENART", "DenAltaLimba", "FAMART", "UM", "CODFURNIZO",
                         "COTATVA", "FARASTOC", "PROVENIENTA", "PALET"},
                        {{code, row.text("CODPRODFUR"), row.text("DENART"), row.text("DenAltaLimba"),
                          article.FAMART, row.text("UM"), article.CODFURNIZO, article.COTATVA,
                          article.FARASTOC, article.PROVENIENTA, QStringLiteral(" ")}});
  transaction.commit();
}

}  // namespace velmar
