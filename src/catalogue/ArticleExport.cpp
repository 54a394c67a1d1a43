#include "catalogue/ArticleExport.h"

#include <QDir>
#include <QSaveFile>
#include <QXmlStreamWriter>

#include "catalogue/Articles.h"
#include "config/Lookups.h"
#include "config/Numbers.h"
#include "config/Session.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kSupplierToName = 1;  // placeholder until the supplier is chosen
const QString kPrototype = QStringLiteral("FormularComandaPrototip.htm");
const QString kOrderForm = QStringLiteral("FormularComanda.htm");
const QByteArray kMarker = "//@Inceput#";

void writeFile(const QString& path, const QByteArray& content) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
    throw notWritten(file);
}

// Each row is an element; its columns that are not null are attributes.
void writeRows(QXmlStreamWriter& xml, const QString& group, const Recordset& rows) {
  xml.writeStartElement(group);
  xml.writeStartElement("data");
  for (const Row& row : rows) {
    xml.writeEmptyElement("row");
    for (int i = 0; i < rows.columns().size(); ++i)
      if (!row.at(i).isNull()) xml.writeAttribute(rows.columns()[i], cellText(row.at(i)));
  }
  xml.writeEndElement();
  xml.writeEndElement();
}

QString inScript(QString text) {
  return text.replace(u'\\', QStringLiteral("\\\\"))
      .replace(u'"', QStringLiteral("\\\""))
      .replace(u'<', QStringLiteral("\\x3C"));
}

// The options of the page's list: for each family with articles a heading, its articles, a separator.
QByteArray optionLines() {
  const Recordset families = OpenRs("SELECT COD, DENUMIRE FROM G_FAMART ORDER BY DENUMIRE NULLS FIRST, COD");
  const Recordset articles = OpenRs(
      "SELECT CODART, DENART, FAMART FROM G_ARTMAG WHERE TipAparat <> '' ORDER BY DENART NULLS FIRST, "
      "CODART");
  QString lines;
  int count = 0;
  const auto option = [&lines, &count](const QString& text, const QString& value) {
    lines += QStringLiteral("\r\n\tfrmComanda.cboArticol.options[%1] = new Option(\"%2\", \"%3\");")
                 .arg(QString::number(count++), inScript(text), inScript(value));
  };
  for (const Row& family : families) {
    const int before = count;
    for (const Row& article : articles) {
      if (article.integer("FAMART") != family.integer("COD")) continue;
      if (count == before) option(QStringLiteral("- %1 - ").arg(family.text("DENUMIRE")), {});
      option(article.text("DENART"), article.text("CODART"));
    }
    if (count > before) option(QStringLiteral("---------------"), {});
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

void exportCatalogue(const QString& path) {
  QByteArray content;
  QXmlStreamWriter xml(&content);
  xml.setAutoFormatting(true);
  xml.writeStartDocument();
  xml.writeStartElement("gestiuneExport");
  writeRows(xml, "familii", OpenRs("SELECT * FROM G_FAMART ORDER BY DENUMIRE NULLS FIRST, COD"));
  writeRows(xml, "articole", OpenRs("SELECT * FROM G_ARTMAG ORDER BY DENART NULLS FIRST, CODART"));
  xml.writeEndElement();
  xml.writeEndDocument();
  writeFile(path, content);
}

QString makeOrderForm(const QString& folder) {
  QFile prototype(QDir(folder).filePath(kPrototype));
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
