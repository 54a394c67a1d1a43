#include "catalogue/DiscountBands.h"

#include "store/Database.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kMostPieces = 32767;

// The table and columns of the bands of articles or families.
struct BandTable {
  QString name;
  QString ownerColumn;
};

const BandTable kFamilyBands{QStringLiteral("\"Familii Articole - Discounturi\""),
                             QStringLiteral("CODFamilie")};
const BandTable kArticleBands{QStringLiteral("\"Articole - Discounturi\""), QStringLiteral("CODArticol")};

const BandTable& tableOf(bool family) { return family ? kFamilyBands : kArticleBands; }

int pieces(const Decimal& number, const char* field) {
  if (number != Round(number, 0) || number.isNegative() || number > Decimal(kMostPieces))
    throw RuleError(
        QStringLiteral("Cantitatea trebuie sa fie un numar intreg intre 0 si %1").arg(kMostPieces), field);
  return static_cast<int>(number.toDouble());
}

// The typed band as numbers; throws for the first box that is not numeric.
DiscountBand checked(const TypedBand& typed) {
  std::optional<Decimal> numbers[3];
  const std::pair<const QString&, const char*> boxes[] = {
      {typed.CantMin, "CantMin"}, {typed.CantMax, "CantMax"}, {typed.Discount, "Discount"}};
  for (size_t i = 0; i < std::size(boxes); ++i) {
    numbers[i] = parseNumber(boxes[i].first);
    if (!numbers[i]) throw RuleError(QStringLiteral("Trebuie sa completati toate valorile"), boxes[i].second);
  }
  DiscountBand band;
  band.CantMin = pieces(*numbers[0], "CantMin");
  band.CantMax = pieces(*numbers[1], "CantMax");
  band.Discount = *numbers[2];
  if (band.CantMax < band.CantMin)
    throw RuleError(QStringLiteral("Cantitatea maxima nu poate fi mai mica decat cantitatea minima!"),
                    "CantMax");
  return band;
}

}  // namespace

DiscountBands DiscountBands::ofFamily(qint64 code) {
  DiscountBands made;
  made.family_ = code;
  made.reload();
  return made;
}

DiscountBands DiscountBands::ofArticle(const QString& code) {
  DiscountBands made;
  made.article_ = code;
  made.reload();
  return made;
}

Value DiscountBands::owner() const { return family_ ? Value(*family_) : Value(article_); }

std::vector<DiscountBand> DiscountBands::stored() const {
  const BandTable& table = tableOf(isFamily());
  std::vector<DiscountBand> read;
  for (const Row& row : OpenRs(QStringLiteral("SELECT ID_Discount, CantMax, CantMin, Discount FROM %1 WHERE "
                                              "%2 = ? ORDER BY CantMin NULLS FIRST, ID_Discount")
                                   .arg(table.name, table.ownerColumn),
                               {owner()}))
    read.push_back({row.integer("ID_Discount"), static_cast<int>(row.integer("CantMin")),
                    static_cast<int>(row.integer("CantMax")), row.decimal("Discount")});
  return read;
}

void DiscountBands::reload() { bands_ = stored(); }

void DiscountBands::readStored() {
  std::vector<DiscountBand> read = stored();
  if (hasUnstored()) read.push_back(bands_.back());
  bands_ = std::move(read);
}

void DiscountBands::requireOwner() const {
  const Recordset found =
      isFamily() ? OpenRs("SELECT COD FROM G_FAMART WHERE COD = ? ORDER BY COD", {owner()})
                 : OpenRs("SELECT CODART FROM G_ARTMAG WHERE CODART = ? ORDER BY CODART", {owner()});
  if (found.isEmpty())
    throw RuleError(isFamily() ? QStringLiteral("Familia a fost stearsa de alt utilizator.")
                               : QStringLiteral("Articolul a fost sters de alt utilizator."));
}

// Otherwise two workstations that add a band at the same time would create overlapping bands.
void DiscountBands::requireUnchanged() {
  std::vector<DiscountBand> now = stored();
  const auto end = hasUnstored() ? std::prev(bands_.cend()) : bands_.cend();
  if (std::equal(bands_.cbegin(), end, now.cbegin(), now.cend())) return;
  bands_ = std::move(now);
  throw RuleError(
      QStringLiteral("Discounturile au fost modificate intre timp de alt utilizator.\r\nVerificati lista si "
                     "reluati operatia."));
}

// Existing data may contain a gap; it must not grow, but the last band can still be changed.
void DiscountBands::requireContiguous(const DiscountBand& last) const {
  if (bands_.size() < 2) return;
  const int begin = bands_[bands_.size() - 2].CantMax + 1;
  if (last.CantMin == begin || (!hasUnstored() && last.CantMin == bands_.back().CantMin)) return;
  throw RuleError(QStringLiteral("Cantitatea minima trebuie sa fie %1").arg(begin), "CantMin");
}

void DiscountBands::save(int place, const TypedBand& typed) {
  const DiscountBand band = checked(typed);
  const QString table = tableOf(isFamily()).name;
  const bool followed = place >= 0 && place < count() - 1;
  if (followed && band.CantMax != bands_[static_cast<size_t>(place)].CantMax)
    throw RuleError(QStringLiteral("Nu puteti modifica cantitatea maxima!"), "CantMax");
  if (!followed) requireContiguous(band);

  Transaction transaction(database());
  requireOwner();
  requireUnchanged();
  const bool isNew = !followed && (bands_.empty() || hasUnstored());
  if (followed) {
    ExecutaSql(QStringLiteral("UPDATE %1 SET Discount = ? WHERE ID_Discount = ?").arg(table),
               {band.Discount, *bands_[static_cast<size_t>(place)].id});
  } else if (isNew) {
    database().insertRows(table, {tableOf(isFamily()).ownerColumn, "CantMin", "CantMax", "Discount"},
                          {{owner(), band.CantMin, band.CantMax, band.Discount}});
  } else {
    ExecutaSql(QStringLiteral("UPDATE %1 SET CantMin = ?, CantMax = ?, Discount = ? WHERE ID_Discount = ?")
                   .arg(table),
               {band.CantMin, band.CantMax, band.Discount, *bands_.back().id});
  }
  transaction.commit();
  if (isNew)
    reload();
  else
    readStored();
}

int DiscountBands::add() {
  if (!hasUnstored()) {
    DiscountBand band;
    if (!bands_.empty()) band.CantMin = bands_.back().CantMax + 1;
    bands_.push_back(band);
  }
  return count() - 1;
}

void DiscountBands::remove(int place) {
  if (bands_.empty() || place != count() - 1)
    throw RuleError(QStringLiteral("Trebuie sa selecati ultimul din lista!"));
  if (hasUnstored()) {
    bands_.pop_back();
    return;
  }
  Transaction transaction(database());
  requireUnchanged();
  ExecutaSql(QStringLiteral("DELETE FROM %1 WHERE ID_Discount = ?").arg(tableOf(isFamily()).name),
             {*bands_.back().id});
  transaction.commit();
  reload();
}

void DiscountBands::applyToArticles() {
  Transaction transaction(database());
  requireUnchanged();
  ExecutaSql(
      "DELETE FROM \"Articole - Discounturi\" WHERE CODArticol IN (SELECT CODART FROM G_ARTMAG WHERE FAMART "
      "= ?)",
      {owner()});
  ExecutaSql(
      "INSERT INTO \"Articole - Discounturi\" (CODArticol, CantMin, CantMax, Discount) "
      "SELECT A.CODART, F.CantMin, F.CantMax, F.Discount FROM \"Familii Articole - Discounturi\" F "
      "INNER JOIN G_ARTMAG A ON A.FAMART = F.CODFamilie WHERE F.CODFamilie = ? "
      "ORDER BY A.CODART, F.CantMin, F.ID_Discount",
      {owner()});
  transaction.commit();
}

}  // namespace velmar
