#include "catalogue/ArticleExport.h"

#include <QDir>
#include <QSaveFile>
#include <QXmlStreamWriter>

#include "catalogue/Articles.h"
#include "config/Lookups.h"
#include "config/Numbers.h"
#include "config/Session.h"
#include "store/ListRows.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileNames.h"

namespace velmar {

namespace {

constexpr int kRowsBetween = 100;   // two reports of the progress
constexpr int kSupplierToName = 1;  // placeholder until the supplier is chosen
const QString kPrototype = QStringLiteral("FormularComandaPrototip.htm");
const QString kOrderForm = QStringLiteral("FormularComanda.htm");
const QByteArray kMarker = "//@Inceput#";

void writeFile(const QString& path, const QByteArray& content) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
    throw notWritten(file);
}

// The whole table: after the key, all columns as they are stored.
ListRows allRows(const QString& table, const QString& key, const QString& order) {
  return {{QStringLiteral("*"), table, key}, {}, order};
}

// Each row is an element; its columns that are not null are attributes.
void writeRows(QXmlStreamWriter& xml, const QString& group, const ListRows& rows,
               const std::function<void(int done)>& progress) {
  xml.writeStartElement(group);
  xml.writeStartElement("data");
  for (int place = 0; place < rows.size(); ++place) {
    if (place % kRowsBetween == 0) progress(place);
    const Row& row = rows.row(place);
    if (row.at(0).isNull()) continue;  // deleted by another workstation in the meantime
    const QStringList& columns = row.columns();
    xml.writeEmptyElement("row");
    for (int i = 1; i < columns.size(); ++i)
      if (!row.at(i).isNull()) xml.writeAttribute(columns[i], cellText(row.at(i)));
  }
  xml.writeEndElement();
  xml.writeEndElement();
}

// The text as it is written between quotes in a script inside a page of any encoding.
QString inScript(const QString& text) {
  const QString plain = QStringLiteral(" !#$%()*+,-./:;=?@[]^_`{|}~");
  QString written;
  for (const QChar c : text) {
    const bool kept = c.unicode() < 128 && (c.isLetterOrNumber() || plain.contains(c));
    written += kept ? QString(c) : QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
  }
  return written;
}

// The options of the page's list: for each family with articles a heading, its articles, a separator.
QByteArray optionLines() {
  const Recordset families = OpenRs("SELECT COD, DENUMIRE FROM G_FAMART ORDER BY DENUMIRE NULLS FIRST, COD");
  const Recordset articles = OpenRs(
      "SELECT CODART, DENART, FAMART FROM G_ARTMAG WHERE TipAparat <> '' ORDER BY DENART NULLS FIRST, "
      "CODART");
  QHash<qint64, std::vector<const Row*>> ofFamily;
  for (const Row& article : articles)
    if (!article.isNull("FAMART")) ofFamily[article.integer("FAMART")].push_back(&article);
  QString lines;
  int count = 0;
  const auto option = [&lines, &count](const QString& text, const QString& value) {
    lines += QStringLiteral("\r\n\tfrmComanda.cboArticol.options[%1] = new Option(\"%2\", \"%3\");")
                 .arg(QString::number(count++), inScript(text), inScript(value));
  };
  for (const Row& family : families) {
    const std::vector<const Row*> members = ofFamily.value(family.integer("COD"));
    if (members.empty()) continue;
    option(QStringLiteral("- %1 - ").arg(family.text("DENUMIRE")), {});
    for (const Row* article : members) option(article->text("DENART"), article->text("CODART"));
    option(QStringLiteral("---------------"), {});
  }
  return lines.toUtf8();
}

}  // namespace

qint64 orderFromArticles(const QStringList& codes) {
  Transaction transaction(database());
  const qint64 number = NumarUrmator("G_COMFUR");
  const QString text = QString::number(number);
  ExecutaSql("INSERT INTO G_COMFUR (NUMCOM, CODFUR, DATACOM, Magazie) VALUES (?, ?, ?, ?)",
             {text, kSupplierToName, clock::today(), session().gMagazie});
  std::vector<Values> lines;
  for (const QString& code : codes) {
    const auto article = articleByCode(code);
    if (!article) continue;  // deleted by another workstation in the meantime
    const Decimal quantity = article->decimal("CANTE");
    const Decimal cost = article->decimal("COST");
    lines.push_back({text, static_cast<int>(lines.size()) + 1, article->text("CODART"),
                     article->text("DENART"), article->text("UM"), quantity, cost, quantity * cost, quantity,
                     Value::raw(article->value("CODPRODFUR")), Value::raw(article->value("DenAltaLimba"))});
  }
  database().insertRows("G_LCOMFU",
                        {"NUMCOM", "NRLINIE", "CODART", "DENUMIRE", "UM", "CANT", "PRETFT", "VALOAREFT",
                         "CANTRLIV", "CODPRODFUR", "DENUMIRE2"},
                        lines);
  transaction.commit();
  return number;
}

void exportCatalogue(const QString& path, const Progress& progress) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw notWritten(file);
  const ListRows families = allRows("G_FAMART", "COD", "DENUMIRE");
  const ListRows articles = allRows("G_ARTMAG", "CODART", "DENART");
  const int of = families.size() + articles.size();
  QXmlStreamWriter xml(&file);
  xml.setAutoFormatting(true);
  xml.writeStartDocument();
  xml.writeStartElement("gestiuneExport");
  writeRows(xml, "familii", families, [&](int done) { report(progress, done, of); });
  writeRows(xml, "articole", articles, [&](int done) { report(progress, families.size() + done, of); });
  xml.writeEndElement();
  xml.writeEndDocument();
  if (xml.hasError() || !file.commit()) throw notWritten(file);
}

QString makeOrderForm(const QString& folder) {
  QFile prototype(QDir(folder).filePath(kPrototype));
  requirePlainFile(prototype.fileName());
  if (!prototype.open(QIODevice::ReadOnly))
    throw RuleError(
        QStringLiteral("Nu exista fisierul FormularComandaPrototip.htm in directorul aplicatiei: ") +
        QDir::toNativeSeparators(folder));
  const QDir pages(QDir(folder).filePath(QStringLiteral("HTML")));
  if (!pages.mkpath(QStringLiteral(".")))
    throw StoreError(
        kFileFailure,
        QStringLiteral("Folderul %1 nu poate fi creat.").arg(QDir::toNativeSeparators(pages.path())));
  QByteArray content = prototype.readAll();
  content.replace(kMarker, optionLines() + kMarker);
  writeFile(pages.filePath(kOrderForm), content);
  return QDir::toNativeSeparators(pages.path());
}

}  // namespace velmar
