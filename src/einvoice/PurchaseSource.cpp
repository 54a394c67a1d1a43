#include "einvoice/PurchaseSource.h"

#include <QCryptographicHash>

#include "config/Parameters.h"
#include "config/Session.h"
#include "documents/HeaderTexts.h"
#include "documents/kinds/Kinds.h"
#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

namespace {

// The key of a text in G_EFACTURAART: the text, or the hash of one that its column cannot hold.
QString choiceKey(QChar kind, const QString& text) {
  static const int width = companyTable("G_EFACTURAART").column("CHEIE")->width;
  const QString whole = kind + QStringLiteral(":") + text;
  if (whole.size() <= width) return whole;
  const QByteArray hash = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
  return kind + QStringLiteral("#") + QString::fromLatin1(hash.toHex());
}

// The keys under which the choice of an article is stored: by the supplier's code, if any, and by name.
QStringList choiceKeys(const ReceivedLine& line) {
  QStringList keys;
  if (!line.code.isEmpty()) keys.append(choiceKey(u'C', line.code));
  keys.append(choiceKey(u'N', line.name.toUpper()));
  return keys;
}

}  // namespace

struct PurchaseSource::Data {
  QString ownCode, journal;
  Row header;
  QHash<QString, qint64> suppliers, customers;  // by comparable fiscal code
  QHash<QString, Article> articles;             // by code in capitals
  // Articles by supplier: by the supplier's code, and by the key of a choice.
  QHash<qint64, QHash<QString, QString>> supplied, choices;
  struct Rate {
    qint64 code;
    Decimal percent;
    QString category;
  };
  std::vector<Rate> rates;
  QHash<QString, QString> unitCodes, units;
};

PurchaseSource::PurchaseSource() : data_(std::make_unique<Data>()) {
  data_->ownCode = comparableCode(storedIdentity().text("CODFISCAL"));
  data_->journal = storedParameters().text("JURFACFUR").trimmed();
  const DocumentKind& kind = documentKind(KindId::SupplierInvoice);
  data_->header = emptyHeader(kind);
  for (const HeaderField& field : kind.headerFields)
    if (!field.column.isEmpty())
      data_->header.set(field.column, storedHeaderValue(field.type, newHeaderText(kind, field)));
  for (const Row& row :
       OpenRs("SELECT COD, CODFISCAL, TIP FROM kt_ter WHERE CODFISCAL IS NOT NULL ORDER BY COD DESC")) {
    const QString code = comparableCode(row.text("CODFISCAL"));
    const bool isSupplier = row.text("TIP") == QStringLiteral("F") || row.text("TIP") == QStringLiteral("M");
    if (!code.isEmpty()) (isSupplier ? data_->suppliers : data_->customers).insert(code, row.integer("COD"));
  }
  for (const Row& row : OpenRs("SELECT COD, CONT, PROCENT, CATEGORIE FROM kt_cote ORDER BY COD"))
    if (row.text("CONT").startsWith(session().TVACumparare))
      data_->rates.push_back({row.integer("COD"), row.decimal("PROCENT"), row.text("CATEGORIE").trimmed()});
  for (const Row& row : OpenRs("SELECT UM, COD FROM G_UM ORDER BY UM")) {
    data_->unitCodes.insert(row.text("UM").trimmed().toUpper(), row.text("COD"));
    if (!data_->units.contains(row.text("COD")))
      data_->units.insert(row.text("COD"), row.text("UM").trimmed());
  }
}

PurchaseSource::~PurchaseSource() = default;
PurchaseSource::PurchaseSource(PurchaseSource&&) noexcept = default;
PurchaseSource& PurchaseSource::operator=(PurchaseSource&&) noexcept = default;

const QString& PurchaseSource::ownCode() const { return data_->ownCode; }
const QString& PurchaseSource::journal() const { return data_->journal; }
const Row& PurchaseSource::newHeader() const { return data_->header; }

qint64 PurchaseSource::supplierOf(const QString& fiscalCode, qint64* customer) const {
  const QString code = comparableCode(fiscalCode);
  if (customer) *customer = data_->customers.value(code);
  return data_->suppliers.value(code);
}

QStringList PurchaseSource::articlesOf(qint64 supplier, const ReceivedInvoice& invoice) {
  QHash<QString, QString>& byCode = data_->supplied[supplier];
  QStringList codes;
  for (const ReceivedLine& line : invoice.lines)
    if (!line.code.isEmpty() && !byCode.contains(line.code)) codes.append(line.code);
  for (const Row& row :
       rowsOfKeys("SELECT CODPRODFUR, CODART FROM G_ARTMAG WHERE CODPRODFUR IN (%1) AND CODFURNIZO = ? "
                  "ORDER BY CODART DESC",
                  codes, {supplier}))
    byCode.insert(row.text("CODPRODFUR"), row.text("CODART"));
  if (!data_->choices.contains(supplier)) {
    QHash<QString, QString>& choices = data_->choices[supplier];
    for (const Row& row : OpenRs("SELECT CHEIE, CODART FROM G_EFACTURAART WHERE CODFURN = ?", {supplier}))
      choices.insert(row.text("CHEIE"), row.text("CODART"));
  }
  QStringList articles;
  for (const ReceivedLine& line : invoice.lines) {
    QString known = line.code.isEmpty() ? QString() : byCode.value(line.code);
    // A line with a code is not found by its name: one name may have several codes.
    if (known.isEmpty()) known = data_->choices[supplier].value(choiceKeys(line).first());
    articles.append(known);
  }
  readArticles(articles);
  for (QString& code : articles)
    if (!article(code)) code.clear();  // deleted since it was chosen
  return articles;
}

void PurchaseSource::choose(qint64 supplier, const ReceivedLine& line, const QString& article) {
  for (const QString& key : choiceKeys(line)) {
    database().execute("DELETE FROM G_EFACTURAART WHERE CODFURN = ? AND CHEIE = ?", {supplier, key});
    database().insertRows("G_EFACTURAART", {"CODFURN", "CHEIE", "CODART"}, {{supplier, key, article}});
    data_->choices[supplier].insert(key, article);
  }
}

void PurchaseSource::readArticles(const QStringList& codes) {
  QStringList unknown;
  for (const QString& code : codes)
    if (!code.isEmpty() && !data_->articles.contains(code.toUpper())) unknown.append(code);
  for (const Row& row :
       rowsOfKeys("SELECT CODART, DENART, UM, PRETVFT FROM G_ARTMAG WHERE CODART IN (%1)", unknown))
    data_->articles.insert(row.text("CODART").toUpper(), {row.text("CODART"), row.text("DENART"),
                                                          row.text("UM").trimmed(), row.decimal("PRETVFT")});
}

std::optional<PurchaseSource::Article> PurchaseSource::article(const QString& code) const {
  const auto found = data_->articles.constFind(code.toUpper());
  return found == data_->articles.constEnd() ? std::nullopt : std::optional(*found);
}

qint64 PurchaseSource::rateOf(const ReceivedRate& rate) const {
  qint64 usual = 0;
  for (const Data::Rate& each : data_->rates) {
    if (each.percent != rate.percent) continue;
    if (each.category == rate.category) return each.code;
    if (usual == 0 && each.category.isEmpty()) usual = each.code;
  }
  return usual;
}

QString PurchaseSource::unitCode(const QString& unit) const {
  return unit.isEmpty() ? QStringLiteral("C62") : data_->unitCodes.value(unit.toUpper());
}

QString PurchaseSource::unitOf(const QString& code) const {
  return data_->units.value(code, QStringLiteral("Buc"));
}

}  // namespace velmar
