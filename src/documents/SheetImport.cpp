#include "documents/SheetImport.h"

#include <deque>

#include "config/Lookups.h"
#include "config/Numbers.h"
#include "config/Session.h"
#include "documents/kinds/Kinds.h"
#include "store/Database.h"
#include "store/ListRows.h"
#include "store/Schema.h"
#include "util/Errors.h"
#include "util/NumberText.h"
#include "util/PlainText.h"
#include "util/SheetReader.h"

namespace velmar {

namespace {

constexpr int kMostSentences = 20;
constexpr int kCodeWidth = 20;
constexpr int kArticleName = 35;
constexpr int kNewCodeDigits = 8;

void requireColumns(const SheetTable& sheet, const QStringList& names) {
  QStringList missing;
  for (const QString& name : names)
    if (!sheet.has(name)) missing.append(name);
  if (!missing.isEmpty())
    throw RuleError(
        QStringLiteral("Din fisier lipsesc coloanele: %1").arg(missing.join(QStringLiteral(", "))));
}

// A draft may have been validated by a colleague meanwhile.
void requireDraft(const DocumentKind& kind, const QString& number) {
  if (OpenRs(QStringLiteral("SELECT 1 AS FOUND FROM %1 WHERE %2 = ? AND VALIDAT = 0")
                 .arg(kind.headerTable, kind.numberColumn),
             {number})
          .isEmpty())
    throw RuleError(QStringLiteral("Documentul %1 nu mai este in lucru.").arg(number));
}

void requireEmptyDraft(const DocumentKind& kind, const QString& number) {
  requireDraft(kind, number);
  if (!OpenRs(QStringLiteral("SELECT 1 AS FOUND FROM %1 WHERE %2 = ? LIMIT 1")
                  .arg(kind.lineTable, kind.numberColumn),
              {number})
           .isEmpty())
    throw RuleError(QStringLiteral("Documentul %1 are deja linii.").arg(number));
}

struct Article {
  QString code, unit;
  Decimal vat;
  std::optional<QString> otherName;     ///< as stored
  std::optional<QString> newOtherName;  ///< of the last row that names the article
};

// The articles of the import: those of the catalogue, read once, and the new ones, written at the end.
class Catalogue {
 public:
  explicit Catalogue(const LineImport& choice) : choice_(choice) {
    const DocumentKind& kind = documentKind(choice.kind);
    const QString column = choice.kind == KindId::SupplierInvoice ? "BATVA1" : "BATVA";
    const QString rateOf =
        QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(column, kind.headerTable, kind.numberColumn);
    rate_ = ProcentTVA(OpenRs(rateOf, {choice.number}).first().integer(column));
    for (const Row& row : OpenRs("SELECT COD FROM G_FAMART")) families_.insert(row.integer("COD"));
    database().each("SELECT CODART, CODPRODFUR, UM, COTATVA, ID, DENALTALIMBA FROM G_ARTMAG ORDER BY CODART",
                    [this](std::vector<QVariant>&& cells) {
                      const Article& article =
                          remember({cells[0].toString(),
                                    cells[2].toString(),
                                    Decimal::fromDouble(cells[3].toDouble()),
                                    cells[5].isNull() ? std::nullopt : std::optional(cells[5].toString()),
                                    {}},
                                   cells[1].toString());
                      const QString code = article.code.trimmed();
                      if (isNumericText(code))
                        lastCode_ = std::max(lastCode_, static_cast<qint64>(code.toDouble()));
                      lastId_ = std::max(lastId_, cells[4].toLongLong());
                    });
  }

  /// Null: none.
  Article* byCode(const QString& code) const { return byCode_.value(code.toUpper()); }
  /// Of several the first one.
  Article* bySuppliersCode(const QString& code) const { return bySuppliersCode_.value(code.toUpper()); }

  qint64 family(const QString& code) const {
    if (!families_.contains(code.toLongLong()))
      throw RuleError(
          QStringLiteral("Familia cu codul %1 nu exista in Tabelul Familii. Import nereusit").arg(code));
    return code.toLongLong();
  }

  QString nextCode() { return QStringLiteral("%1").arg(++lastCode_, kNewCodeDigits, 10, QLatin1Char('0')); }

  Article* add(const QString& code, const QString& suppliersCode, const QString& name,
               const QString& otherName, qint64 family, const Value& cost, const Value& price) {
    Values values{
        ++lastId_,        session().gMagazie, code,  suppliersCode,    name,  "M",      "BUC", family, cost,
        choice_.currency, choice_.currency,   price, choice_.supplier, rate_, otherName};
    if (!choice_.pallet.isEmpty()) values.emplace_back(choice_.pallet);
    added_.push_back(std::move(values));
    return &remember({code, "Buc", rate_, otherName, {}}, suppliersCode);
  }

  void write() const {
    QStringList columns{
        "ID",         "CODMAGAZIE", "CODART",      "CODPRODFUR", "DENART",        "PROVENIENTA",
        "UM",         "FAMART",     "COSTDEV",     "CODDEVIZA",  "CODDEVIZAVANZ", "PRETDEVIZAVANZ",
        "CODFURNIZO", "COTATVA",    "DENALTALIMBA"};
    if (!choice_.pallet.isEmpty()) columns.append("PALET");
    if (!added_.empty()) database().insertRows("G_ARTMAG", columns, added_);
    // Once for each article: a server goes through all versions of a row that a transaction has written.
    std::vector<Values> renamed;
    for (const Article& article : articles_)
      if (article.newOtherName && article.newOtherName != article.otherName)
        renamed.push_back({*article.newOtherName, article.code});
    database().executeEach("UPDATE G_ARTMAG SET DENALTALIMBA = ? WHERE CODART = ?", renamed);
  }

 private:
  Article& remember(const Article& found, const QString& suppliersCode) {
    Article& article = articles_.emplace_back(found);
    byCode_.insert(article.code.toUpper(), &article);
    const QString key = suppliersCode.trimmed().toUpper();
    if (!key.isEmpty() && !bySuppliersCode_.contains(key)) bySuppliersCode_.insert(key, &article);
    return article;
  }

  const LineImport& choice_;
  Decimal rate_;
  QSet<qint64> families_;
  std::deque<Article> articles_;  // which keeps its places
  QHash<QString, Article*> byCode_, bySuppliersCode_;
  std::vector<Values> added_;
  qint64 lastCode_ = 0;
  qint64 lastId_ = 0;
};

/// The figures of a row.
struct Figures {
  Decimal price, sale;  ///< in the currency of the file
  Decimal quantity;     ///< 0: none
  Decimal priceLei, saleLei;
};

std::optional<Figures> figuresOf(const SheetTable& sheet, int row, const Decimal& rate, const QString& code,
                                 QStringList& leftOut) {
  const QVariant price = sheet.number(row, "PRET");
  const QVariant quantity = sheet.number(row, "CANTITATE");
  const QVariant margin = sheet.number(row, "ADAOS");
  const auto refuse = [&](const char* what) {
    leftOut.append(QStringLiteral("Articolul %1: %2 nu este un numar").arg(code, QLatin1String(what)));
    return std::nullopt;
  };
  if (price.isNull()) return refuse("pretul");
  if (quantity.isNull() && !sheet.text(row, "CANTITATE").isEmpty()) return refuse("cantitatea");
  if (margin.isNull() && !sheet.text(row, "ADAOS").isEmpty()) return refuse("adaosul");
  Figures figures;
  figures.price = Decimal::fromDouble(price.toDouble());
  figures.quantity = Decimal::fromDouble(quantity.toDouble());
  figures.sale = Decimal::fromDouble(margin.toDouble()) * figures.price + figures.price;
  figures.priceLei = rate * figures.price;
  figures.saleLei = rate * figures.sale;
  return figures;
}

struct NewLine {
  const Article* article;
  QString name;
  Figures figures;
};

void insertLines(const LineImport& choice, const std::vector<NewLine>& lines) {
  const bool isImport = choice.kind != KindId::SupplierInvoice;
  QStringList columns{"NUMFAC", "NRLINIE", "CODART", "DENUMIRE", "UM", "CANT", "PRETVA", "VALOAREFT"};
  columns += isImport ? QStringList{"PRETVAL",    "PRET",  "VALOARE", "VALOAREVAL", "VALTVA", "VALCHTR",
                                    "VALCUTRANS", "PVAMA", "VALVAMA", "COST",       "COSTVAL"}
                      : QStringList{"PRETFT", "VALOARETVA", "VALOARETTI"};
  if (!choice.pallet.isEmpty()) columns.append("PALET");
  const QString table = documentKind(choice.kind).lineTable;
  const qint64 last = LinieUrmatoare(table, choice.number);
  std::vector<Values> rows;
  for (const NewLine& line : lines) {
    const Figures& each = line.figures;
    const Decimal value = each.priceLei * each.quantity;
    const Decimal vat = value * line.article->vat / 100;
    Values values{choice.number,      last + static_cast<qint64>(rows.size() + 1),
                  line.article->code, line.name,
                  line.article->unit, each.quantity,
                  each.saleLei,       value};
    if (isImport)
      values.insert(values.end(),
                    {each.price, each.priceLei, value, each.price * each.quantity, vat, 0, 0, 0, 0, 0, 0});
    else
      values.insert(values.end(), {each.priceLei, vat, value + vat});
    if (!choice.pallet.isEmpty()) values.emplace_back(choice.pallet);
    rows.push_back(std::move(values));
  }
  if (!rows.empty()) database().insertRows(table, columns, rows);
}

// The first that is missing stops the import before the file is read.
void requireChoice(const LineImport& choice) {
  if (!choice.pallet.isEmpty() && !OpenRs("SELECT 1 AS FOUND FROM G_LDOCUM AS L INNER JOIN G_DOCUME AS D ON "
                                          "D.ID = L.DOCID WHERE L.PALET = ? AND "
                                          "D.TIPIE = 'I' LIMIT 1",
                                          {choice.pallet})
                                       .isEmpty())
    throw RuleError(QStringLiteral("Pentru acest palet a fost deja emisa factura de intrare. "));
  if (choice.isForeign && !choice.rate)
    throw RuleError(QStringLiteral("Va rugam introduceti cursul "), "CURS");
  if (!choice.familyFromFile && choice.family.isEmpty())
    throw RuleError(QStringLiteral("Va rugam precizati familia"), "FAMILIE");
}

/// A counted quantity by supplier's code.
using Counted = std::vector<std::pair<QString, Decimal>>;

// In the order of the file; several rows of one code are added up.
Counted readCount(const SheetTable& sheet, QStringList& leftOut) {
  Counted counted;
  QHash<QString, size_t> places;
  for (int row = 0; row < sheet.size(); ++row) {
    const QString code = sheet.text(row, "CODARTICOL").left(kCodeWidth).trimmed();
    const QVariant quantity = sheet.number(row, "CANTITATE");
    if (code.isEmpty()) {
      leftOut.append(QStringLiteral("Importul nu s-a putut realiza"));
      continue;
    }
    if (quantity.isNull()) {
      leftOut.append(QStringLiteral("Articolul %1: cantitatea nu este un numar").arg(code));
      continue;
    }
    const auto place = places.constFind(code.toUpper());
    if (place == places.constEnd()) {
      places.insert(code.toUpper(), counted.size());
      counted.emplace_back(code, 0);
    }
    counted[places.value(code.toUpper())].second += Decimal::fromDouble(quantity.toDouble());
  }
  return counted;
}

// Replaces the work table by the count, by our codes.
void writeCount(const QString& note, const Counted& counted, QStringList& leftOut) {
  QHash<QString, QString> articles;  // the first of each supplier's code
  for (const Row& row :
       OpenRs("SELECT CODART, CODPRODFUR FROM G_ARTMAG WHERE CODPRODFUR <> '' ORDER BY CODART")) {
    const QString key = row.text("CODPRODFUR").trimmed().toUpper();
    if (!articles.contains(key)) articles.insert(key, row.text("CODART"));
  }
  std::vector<Values> rows;
  for (const auto& [code, quantity] : counted) {
    const QString article = articles.value(code.toUpper());
    if (article.isEmpty())
      leftOut.append(QStringLiteral("Articolul %1 nu exista in tabela Articole").arg(code));
    else
      rows.push_back({note, static_cast<qint64>(rows.size() + 1), article, quantity});
  }
  ExecutaSql("DELETE FROM G_LNRFUR_REC");
  if (!rows.empty()) database().insertRows("G_LNRFUR_REC", {"NUMNR", "NRLINIE", "CODART", "CANT"}, rows);
}

// The counted articles of the lot's documents in the current warehouse, by unit price.
Recordset compareLot(const QString& lot) {
  const Condition ofLot = beginsWith("D.OBS", lot) && Condition{"D.CODMAG = ?", {session().gMagazie}};
  return OpenRs(
      "SELECT L.ARTID AS ARTID, ROUND_EVEN(SUM(L.CANT), 3) AS CANTFAC, R.CANT AS CANTREC, L.PRETFT AS "
      "PRETFT, "
      "A.DENART AS DENART, A.UM AS UM, COALESCE(A.PretVanzare, 0) AS PRETVANZARE FROM G_DOCUME AS D "
      "INNER JOIN G_LDOCUM AS L ON L.DOCID = D.ID INNER JOIN (SELECT CODART, SUM(CANT) AS CANT FROM "
      "G_LNRFUR_REC "
      "GROUP BY CODART) AS R ON R.CODART = L.ARTID INNER JOIN G_ARTMAG AS A ON A.CODART = L.ARTID" +
          whereOf(ofLot) +
          " GROUP BY L.ARTID, R.CANT, L.PRETFT, A.DENART, A.UM, A.PretVanzare ORDER BY L.ARTID, L.PRETFT",
      ofLot.values);
}

void insertDifferences(const LotCount& count, const Recordset& compared) {
  std::vector<Values> lines;
  for (const Row& row : compared) {
    const Decimal difference = Round(row.decimal("CANTREC") - row.decimal("CANTFAC"), 3);
    if (difference.isZero() || (difference < 0) == count.ofSurpluses) continue;
    lines.push_back({count.note, static_cast<qint64>(lines.size() + 1), row.text("ARTID"), difference,
                     row.decimal("PRETFT"), row.decimal("CANTFAC"), row.text("DENART"), row.text("UM"),
                     row.decimal("PRETVANZARE"), row.decimal("CANTREC").toString(),
                     row.decimal("PRETFT") * difference});
  }
  if (!lines.empty())
    database().insertRows("G_LNRFUR",
                          {"NUMNR", "NRLINIE", "CODART", "CANT", "PRETFT", "QTECOM", "DENUMIRE", "UM",
                           "PRETFTV", "NUMCOM", "VALOAREFT"},
                          lines);
}

}  // namespace

QString leftOutText(const QStringList& sentences) {
  QString text = sentences.mid(0, kMostSentences).join(u'\n');
  if (sentences.size() > kMostSentences)
    text += QStringLiteral("\n... si inca %1").arg(sentences.size() - kMostSentences);
  return text;
}

QStringList importLines(const LineImport& choice, const QString& path, const Progress& progress) {
  requireChoice(choice);
  const SheetTable sheet = readSheet(path);
  QStringList columns{"COD", "DENUMIRE", "DENUMIRE2", "PRET", "CANTITATE", "ADAOS"};
  if (choice.familyFromFile) columns += {"CODI", "FAM"};
  requireColumns(sheet, columns);
  const Decimal rate = choice.isForeign ? choice.rate.value_or(1) : Decimal(1);
  QStringList leftOut;
  std::vector<NewLine> lines;
  Transaction transaction(database());
  requireDraft(documentKind(choice.kind), choice.number);
  Catalogue catalogue(choice);
  const auto codeAt = [&sheet](int row, const char* column) {
    return oneLine(sheet.text(row, column)).left(kCodeWidth).trimmed();
  };
  for (int row = 0; row < sheet.size(); ++row) {
    report(progress, row, sheet.size());
    const QString key = codeAt(row, choice.familyFromFile ? "CODI" : "COD");
    if (key.isEmpty()) {
      leftOut.append(QStringLiteral("Articolul %1 nu poate fi importat").arg(key));
      continue;
    }
    const QString suppliersCode = codeAt(row, "COD");
    const QString name = oneLine(sheet.text(row, "DENUMIRE")).left(kArticleName);
    const QString otherName = oneLine(sheet.text(row, "DENUMIRE2")).left(kArticleName);
    const qint64 family = catalogue.family(choice.familyFromFile ? sheet.text(row, "FAM") : choice.family);
    const auto figures = figuresOf(sheet, row, rate, key, leftOut);
    if (!figures) continue;
    if (name.isEmpty()) {
      leftOut.append(QStringLiteral("Articolul %1 nu are denumire").arg(key));
      continue;
    }
    Article* article = choice.familyFromFile ? catalogue.byCode(key) : catalogue.bySuppliersCode(key);
    if (article) {
      article->newOtherName = otherName;
    } else {
      const QString code = choice.familyFromFile    ? key
                           : choice.codeIsSuppliers ? suppliersCode
                                                    : catalogue.nextCode();
      if (catalogue.byCode(code)) {
        leftOut.append(QStringLiteral("Codul %1 este al altui articol").arg(code));
        continue;
      }
      article = catalogue.add(code, suppliersCode, name, otherName, family, figures->price, figures->sale);
    }
    if (figures->quantity > 0) lines.push_back({article, name, *figures});
  }
  catalogue.write();
  insertLines(choice, lines);

  transaction.commit();
  return leftOut;
}

LotResult importLot(const LotCount& count, const QString& path) {
  const QString lot = count.lot.trimmed();
  if (lot.isEmpty())
    throw RuleError(
        QStringLiteral(
            "Va rog introduceti numar lot. Acesta trebuie sa se regaseasca in campul Observatii al "
            "unor facturi de import validate"),
        "LOT");
  const SheetTable sheet = readSheet(path);
  requireColumns(sheet, {"CODARTICOL", "CANTITATE"});
  LotResult result;
  const Counted counted = readCount(sheet, result.leftOut);
  Transaction transaction(database());
  requireEmptyDraft(documentKind(KindId::ReceiptNote), count.note);
  writeCount(count.note, counted, result.leftOut);
  const Recordset compared = compareLot(lot);
  insertDifferences(count, compared);
  result.isCompared = !compared.isEmpty();
  if (result.isCompared) {
    const QString remark = (count.ofSurpluses ? "Receptie plusuri - " : "Constatare diferente - ") + lot;
    ExecutaSql("UPDATE G_NRFURN SET OBS = ? WHERE NUMNR = ?",
               {remark.left(companyTable("G_NRFURN").column("OBS")->width), count.note});
  }
  transaction.commit();
  return result;
}

}  // namespace velmar
