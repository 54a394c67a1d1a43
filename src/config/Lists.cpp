#include "config/Lists.h"

#include <algorithm>

#include "config/Lookups.h"
#include "config/Session.h"
#include "store/ListRows.h"
#include "util/Messages.h"

namespace velmar {

namespace {

/// The columns of a row are joined by the separators, one between each two.
struct ComboStatement {
  const char* controls;  ///< separated by blanks
  const char* sql;
  const char* separators = "-";
};

const ComboStatement kComboStatements[] = {
    {"cboMag", "SELECT COD, DENUMIRE FROM G_MULTIMAGAZIE ORDER BY DENUMIRE NULLS FIRST, COD"},
    {"cboCont cboContdela cboContla", "SELECT CONT, TITLU FROM kt_pc ORDER BY CONT"},
    {"cboCodTVA", "SELECT COD FROM kt_cote ORDER BY COD"},
    {"cboCodJurnal", "SELECT COD, TITLU FROM kt_jur ORDER BY COD"},
    {"cboCodDeviza cboCodDevizaDenumire", "SELECT COD, TITLU FROM kt_val ORDER BY COD"},
    {"cboDeviza", "SELECT COD FROM kt_val ORDER BY COD"},
    {"cboCodOperatie", "SELECT COD, DENUMIRE FROM kt_oper ORDER BY COD"},
    {"cboJurnalCumparare", "SELECT COD, TITLU FROM kt_jur WHERE TIP = 'C' ORDER BY COD"},
    {"cboJurnalVanzare", "SELECT COD, TITLU FROM kt_jur WHERE TIP = 'V' ORDER BY COD"},
    {"cboJurnalBanca", "SELECT COD, TITLU FROM kt_jur WHERE TIP = 'B' ORDER BY COD"},
    {"cboRegistruCasa", "SELECT COD, TITLU FROM kt_jur WHERE TIP = 'R' ORDER BY COD"},
    {"cboFurnizori cboFurnizoriDela cboFurnizoriLa",
     "SELECT COD, NUME FROM kt_ter WHERE TIP IN ('F', 'M') ORDER BY NUME NULLS FIRST, COD"},
    {"cboClienti cboClientiDela cboClientiLa",
     "SELECT COD, NUME FROM kt_ter WHERE TIP IN ('C', 'M') ORDER BY NUME NULLS FIRST, COD"},
    {"cboOperatiiCumparare", "SELECT COD, DENUMIRE FROM kt_oper WHERE TIP = 'C' ORDER BY COD"},
    {"cboOperatiiVanzare", "SELECT COD, DENUMIRE FROM kt_oper WHERE TIP = 'V' ORDER BY COD"},
    {"cboOpFinanciare", "SELECT COD, DENUMIRE FROM kt_oper WHERE TIP = 'O' ORDER BY COD"},
    {"cboOperatiiIncasari", "SELECT COD, DENUMIRE FROM kt_oper WHERE TIP IN ('I', 'V') ORDER BY COD"},
    {"cboOperatiiPlati", "SELECT COD, DENUMIRE FROM kt_oper WHERE TIP IN ('P', 'C') ORDER BY COD"},
    {"cboOperatiiCumpVanz",
     "SELECT COD, DENUMIRE FROM kt_oper WHERE TIP IN ('I', 'V', 'P', 'C', 'D') ORDER BY TIP, COD"},
    {"cboTVACump",
     "SELECT COD, CONT, PROCENT FROM kt_cote WHERE CONT IN ('TVA DEDUCTIBILA', 'FARA TVA') ORDER BY COD",
     "-_"},
    {"cboTVAVanz",
     "SELECT CONT, PROCENT FROM kt_cote WHERE CONT IN ('TVA COLECTATA', 'FARA TVA') ORDER BY COD"},
    {"cboTVA1Cumparare cboTVA2Cumparare",
     "SELECT PROCENT FROM kt_cote WHERE CONT IN ('TVA DEDUCTIBILA', 'FARA TVA') ORDER BY COD"},
    {"cboTVA1Vanzare cboTVA2Vanzare",
     "SELECT PROCENT FROM kt_cote WHERE CONT IN ('TVA COLECTATA', 'FARA TVA') ORDER BY COD"},
    {"cboCentruCost", "SELECT COD, TITLU FROM kt_cc WHERE UTILIZABIL = 'D' ORDER BY COD"},
    {"cboFacturiImport", "SELECT NUMFAC FROM G_FACIMP ORDER BY NUMFAC"},
    {"cboFamilie", "SELECT COD, DENUMIRE FROM G_FAMART ORDER BY DENUMIRE NULLS FIRST, COD"},
};

const ComboStatement* comboStatement(const QString& controlName) {
  for (const ComboStatement& statement : kComboStatements)
    if (QString::fromLatin1(statement.controls).split(u' ').contains(controlName)) return &statement;
  return nullptr;
}

QString joinedRow(const Row& row, const QString& separators) {
  QString text = cellText(row.at(0));
  for (int i = 1; i < row.columns().size(); ++i) text += separators[i - 1] + cellText(row.at(i));
  return text;
}

// The VAT account of the company's parameters and the accounts that begin with it.
QString vatAccountPattern(bool ofPurchases) {
  const QString& account = ofPurchases ? session().TVACumparare : session().TVAVanzare;
  return escapedForLike(account) + u'%';
}

QString amountColumn(ArticleList::Amount amount) {
  switch (amount) {
    case ArticleList::Amount::SalePrice:
      return QStringLiteral("PRETVFT");
    case ArticleList::Amount::Cost:
      return QStringLiteral("COST");
    case ArticleList::Amount::None:
      break;
  }
  return QStringLiteral("NULL");
}

Recordset articlesBy(const ArticleList& list, const QString& search, Values values, int limit) {
  QStringList conditions;
  for (const QString& condition : {list.condition, search})
    if (!condition.isEmpty()) conditions.append(QStringLiteral("(%1)").arg(condition));
  const QString where =
      conditions.isEmpty() ? QString() : QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
  const QString name = list.codeBehindName ? QStringLiteral("COALESCE(DENART, '') || ' (' || CODART || ')'")
                                           : QStringLiteral("DENART");
  values.push_back(limit);
  return OpenRs(QStringLiteral("SELECT %1 AS DenArt, CODART, UM, %2 AS VALOARE FROM G_ARTMAG%3 "
                               "ORDER BY G_ARTMAG.DENART NULLS FIRST, CODART LIMIT ?")
                    .arg(name, amountColumn(list.amount), where),
                values);
}

}  // namespace

const QString kNoRecords = QStringLiteral("0-Nu exista inregistrari !");

const BoundList kSupplierList{
    QStringLiteral("SELECT NUME, COD FROM kt_ter WHERE TIP IN ('F', 'M') ORDER BY NUME NULLS FIRST, COD"),
    QStringLiteral("NUME"), QStringLiteral("COD")};
const BoundList kCustomerList{
    QStringLiteral("SELECT NUME, COD FROM kt_ter WHERE TIP IN ('C', 'M') ORDER BY NUME NULLS FIRST, COD"),
    QStringLiteral("NUME"), QStringLiteral("COD")};
const BoundList kFamilyList{
    QStringLiteral("SELECT COD, DENUMIRE FROM G_FAMART ORDER BY DENUMIRE NULLS FIRST, COD"),
    QStringLiteral("DENUMIRE"), QStringLiteral("COD")};
const BoundList kCostCentreList{QStringLiteral("SELECT * FROM kt_cc ORDER BY COD"), QStringLiteral("TITLU"),
                                QStringLiteral("COD")};
const BoundList kWarehouseList{QStringLiteral("SELECT COD, DENUMIRE FROM G_MULTIMAGAZIE ORDER BY COD"),
                               QStringLiteral("DENUMIRE"), QStringLiteral("COD")};

QStringList comboItems(const QString& controlName) {
  const ComboStatement* statement = comboStatement(controlName);
  if (!statement) {
    Mesaj(QStringLiteral("EROARE ! EROARE ! EROARE !   .....   "));
    return {};
  }
  QStringList items;
  for (const Row& row : OpenRs(QLatin1String(statement->sql)))
    items.append(joinedRow(row, QLatin1String(statement->separators)));
  if (items.isEmpty()) items.append(kNoRecords);
  return items;
}

ArticleList articleList(const QString& kind) {
  if (kind == QStringLiteral("M")) return {QStringLiteral("PROVENIENTA = 'M'")};
  if (kind == QStringLiteral("P")) return {QStringLiteral("PROVENIENTA = 'P' AND FARASTOC = 0")};
  if (kind == QStringLiteral("MP")) return {QStringLiteral("FARASTOC = 0")};
  if (kind == QStringLiteral("D")) return {{}, false};
  return {};
}

ArticleList articleListWithCostOrPrice(const QString& kind) {
  if (kind == QStringLiteral("TR")) return {QStringLiteral("FARASTOC = 0"), true, ArticleList::Amount::Cost};
  if (kind == QStringLiteral("M"))
    return {QStringLiteral("FARASTOC = 0"), true, ArticleList::Amount::SalePrice};
  return {{}, true, ArticleList::Amount::SalePrice};
}

ArticleList articleListWithPrice(bool alsoProducts) {
  const QString held = QStringLiteral("FARASTOC = 0");
  return {alsoProducts ? held : QStringLiteral("PROVENIENTA = 'M' AND ") + held, true,
          ArticleList::Amount::SalePrice};
}

std::vector<ListEntry> currencies() {
  std::vector<ListEntry> entries;
  for (const Row& row : OpenRs("SELECT COD, TITLU FROM kt_val ORDER BY COD"))
    entries.push_back({row.text("COD") + u'-' + row.text("TITLU"), row.text("COD")});
  return entries;
}

std::vector<ListEntry> vatRates(bool ofPurchases) {
  std::vector<ListEntry> rates;
  for (const Row& row :
       OpenRs("SELECT COD, CONT, PROCENT, CATEGORIE FROM kt_cote WHERE CONT LIKE ? ESCAPE '!' "
              "OR CONT LIKE '4428%' ORDER BY COD",
              {vatAccountPattern(ofPurchases)})) {
    QStringList parts{row.text("CONT"), row.text("CATEGORIE"), row.decimal("PROCENT").toString()};
    parts.removeAll(QString());
    rates.push_back({parts.join(u'-'), QString::number(row.integer("COD"))});
  }
  return rates;
}

std::vector<ListEntry> vatPercents(bool ofPurchases) {
  std::vector<ListEntry> percents;
  for (const Row& row : OpenRs("SELECT COD, PROCENT FROM kt_cote WHERE CONT LIKE ? ESCAPE '!' ORDER BY COD",
                               {vatAccountPattern(ofPurchases)})) {
    const QString percent = row.decimal("PROCENT").toString();
    percents.push_back({percent, percent});
  }
  return percents;
}

QString defaultVatRate(bool ofPurchases) {
  return ValoareSql("SELECT COD FROM kt_cote WHERE CONT LIKE ? ESCAPE '!' ORDER BY COD LIMIT 1",
                    {vatAccountPattern(ofPurchases)});
}

std::vector<ListEntry> journals(bool ofPurchases) {
  std::vector<ListEntry> all;
  for (const Row& row :
       OpenRs("SELECT COD, TITLU FROM kt_jur WHERE TIP = ? ORDER BY COD", {ofPurchases ? "C" : "V"}))
    all.push_back({row.text("COD") + u'-' + row.text("TITLU"), row.text("COD")});
  return all;
}

QStringList currencyCodes() {
  QStringList codes;
  for (const Row& row : OpenRs("SELECT COD FROM kt_val ORDER BY COD")) codes.append(row.text("COD"));
  return codes;
}

Recordset findArticles(const ArticleList& list, const QString& typed, int limit) {
  if (typed.isEmpty()) return articlesBy(list, {}, {}, limit);
  const Condition byName = beginsWith("G_ARTMAG.DENART", typed);
  const Condition byCode = beginsWith("CODART", typed);
  Values prefixes = byName.values;
  prefixes.insert(prefixes.end(), byCode.values.begin(), byCode.values.end());
  Recordset found =
      articlesBy(list, QStringLiteral("(%1) OR (%2)").arg(byName.sql, byCode.sql), prefixes, limit);
  if (found.size() >= limit) return found;

  QSet<QString> known;
  for (const Row& row : found) known.insert(row.text("CODART"));
  const QString part = QStringLiteral("%") + escapedForLike(typed) + QStringLiteral("%");
  const Recordset holding = articlesBy(list,
                                       QStringLiteral("G_ARTMAG.DENART LIKE ? ESCAPE '!' OR "
                                                      "CODART LIKE ? ESCAPE '!' OR "
                                                      "CODPRODFUR LIKE ? ESCAPE '!'"),
                                       {part, part, part}, limit);
  for (const Row& row : holding) {
    if (found.size() >= limit) break;
    if (known.contains(row.text("CODART"))) continue;
    std::vector<QVariant> cells;
    cells.reserve(static_cast<size_t>(row.columns().size()));
    for (int i = 0; i < row.columns().size(); ++i) cells.push_back(row.at(i));
    found.append(std::move(cells));
  }
  return found;
}

}  // namespace velmar
