#include "store/CompanyList.h"

#include <algorithm>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QtEndian>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include "store/DatabaseFiles.h"
#include "store/Server.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/FileRights.h"

namespace velmar {

namespace {

const QString kListName = QStringLiteral("Societat.xml");
const QString kOldListName = QStringLiteral("Societat.DBF");
const QString kSchemaSpace = QStringLiteral("uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882");
const QString kTypeSpace = QStringLiteral("uuid:C2F41010-65B3-11d1-A29F-00AA00C14882");
const QString kRowsetSpace = QStringLiteral("urn:schemas-microsoft-com:rowset");
const QString kRowSpace = QStringLiteral("#RowsetSchema");

const char* const kFirstList =
    "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'  "
    "xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'  "
    "xmlns:rs='urn:schemas-microsoft-com:rowset'  xmlns:z='#RowsetSchema'><s:Schema "
    "id='RowsetSchema'><s:ElementType "
    "name='row' content='eltOnly' rs:updatable='true'><s:AttributeType name='COD' rs:number='1' "
    "rs:nullable='true' "
    "rs:write='true' rs:basetable='Societat' rs:basecolumn='COD'><s:datatype dt:type='string' "
    "rs:dbtype='str' "
    "dt:maxLength='2'/>  </s:AttributeType><s:AttributeType name='DENUMIRE' rs:number='2' rs:nullable='true' "
    "rs:write='true' rs:basetable='Societat' rs:basecolumn='DENUMIRE'><s:datatype dt:type='string' "
    "rs:dbtype='str' "
    "dt:maxLength='50'/></s:AttributeType><s:AttributeType name='NUMEBD' rs:number='3' rs:nullable='true' "
    "rs:write='true' rs:basetable='Societat' rs:basecolumn='NUMEBD'><s:datatype dt:type='string' "
    "rs:dbtype='str' "
    "dt:maxLength='15'/></s:AttributeType><s:extends "
    "type='rs:rowbase'/></s:ElementType></s:Schema><rs:data><z:row "
    "COD='01' DENUMIRE='SOCIETATE' NUMEBD='Tarvon01.mdb'/></rs:data></xml>";

StoreError listError(const QString& text) { return StoreError(kFileFailure, text); }

StoreError damagedList(const QString& name) {
  return listError(
      QStringLiteral("%1 nu este o lista de societati valida. Restaurati o copie a fisierului sau "
                     "redenumiti-l, ca programul sa faca o lista noua.")
          .arg(name));
}

QByteArray readFile(const QString& path) {
  requirePlainFile(path);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw listError(
        QStringLiteral("Lista de societati %1 nu poate fi citita. Verificati drepturile asupra ei.")
            .arg(path));
  return file.readAll();
}

void writeFile(const QString& path, const QByteArray& content) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
    throw listError(
        QStringLiteral("Lista de societati %1 nu poate fi scrisa. Verificati drepturile asupra folderului "
                       "si spatiul liber.")
            .arg(path));
  protectFile(path);
}

// Reads one rowset. A row's attributes may have other names than the columns: the schema maps them.
class RowsetReader {
 public:
  explicit RowsetReader(const QByteArray& xml) : xml_(xml) {}

  QList<Company> read() {
    QList<QHash<QString, QString>> rows;
    while (!xml_.atEnd()) {
      if (xml_.readNext() != QXmlStreamReader::StartElement) continue;
      if (xml_.name() == QLatin1String("AttributeType") && xml_.namespaceUri() == kSchemaSpace) readColumn();
      if (xml_.namespaceUri() == kRowsetSpace && xml_.name() == QLatin1String("update")) {
        rows.append(readUpdate());
      } else if (xml_.namespaceUri() == kRowsetSpace && xml_.name() == QLatin1String("delete")) {
        xml_.skipCurrentElement();
      } else if (isRow()) {
        rows.append(attributes());
      }
    }
    if (xml_.hasError() || !knows(QStringLiteral("COD")) || !knows(QStringLiteral("NUMEBD")))
      throw damagedList(kListName);
    QList<Company> companies;
    for (const auto& row : rows)
      companies.append({row.value(QStringLiteral("COD")), row.value(QStringLiteral("DENUMIRE")),
                        row.value(QStringLiteral("NUMEBD"))});
    return companies;
  }

 private:
  bool isRow() const { return xml_.namespaceUri() == kRowSpace && xml_.name() == QLatin1String("row"); }
  bool knows(const QString& column) const { return columnOf_.values().contains(column); }

  void readColumn() {
    const QXmlStreamAttributes all = xml_.attributes();
    const QString attribute = all.value(QStringLiteral("name")).toString();
    const QString column = all.value(kRowsetSpace, QStringLiteral("name")).toString();
    columnOf_.insert(attribute, (column.isEmpty() ? attribute : column).toUpper());
  }

  QHash<QString, QString> attributes() const {
    QHash<QString, QString> row;
    for (const QXmlStreamAttribute& attribute : xml_.attributes())
      row.insert(columnOf_.value(attribute.name().toString(), attribute.name().toString().toUpper()),
                 attribute.value().toString());
    return row;
  }

  // A changed row has only the changed attributes; the others are in the original row beside it.
  QHash<QString, QString> readUpdate() {
    QHash<QString, QString> original;
    QHash<QString, QString> changed;
    bool inOriginal = false;
    while (!xml_.atEnd()) {
      const auto token = xml_.readNext();
      if (token == QXmlStreamReader::StartElement) {
        if (xml_.name() == QLatin1String("original")) inOriginal = true;
        if (isRow()) (inOriginal ? original : changed) = attributes();
      } else if (token == QXmlStreamReader::EndElement) {
        if (xml_.name() == QLatin1String("original")) inOriginal = false;
        if (xml_.name() == QLatin1String("update")) break;
      }
    }
    for (auto it = changed.cbegin(); it != changed.cend(); ++it) original.insert(it.key(), it.value());
    return original;
  }

  QXmlStreamReader xml_;
  QHash<QString, QString> columnOf_;
};

void writeColumn(QXmlStreamWriter& xml, const QString& name, int number, int width) {
  xml.writeStartElement(kSchemaSpace, QStringLiteral("AttributeType"));
  xml.writeAttribute(QStringLiteral("name"), name);
  xml.writeAttribute(kRowsetSpace, QStringLiteral("number"), QString::number(number));
  xml.writeAttribute(kRowsetSpace, QStringLiteral("nullable"), QStringLiteral("true"));
  xml.writeAttribute(kRowsetSpace, QStringLiteral("write"), QStringLiteral("true"));
  xml.writeAttribute(kRowsetSpace, QStringLiteral("basetable"), QStringLiteral("Societat"));
  xml.writeAttribute(kRowsetSpace, QStringLiteral("basecolumn"), name);
  xml.writeStartElement(kSchemaSpace, QStringLiteral("datatype"));
  xml.writeAttribute(kTypeSpace, QStringLiteral("type"), QStringLiteral("string"));
  xml.writeAttribute(kRowsetSpace, QStringLiteral("dbtype"), QStringLiteral("str"));
  xml.writeAttribute(kTypeSpace, QStringLiteral("maxLength"), QString::number(width));
  xml.writeEndElement();
  xml.writeEndElement();
}

void sortByCode(QList<Company>& companies) {
  std::stable_sort(companies.begin(), companies.end(), [](const Company& a, const Company& b) {
    return a.COD.compare(b.COD, Qt::CaseInsensitive) < 0;
  });
}

// Another process may be creating the list at the same time: the one that has the lock creates it.
void makeMissingList(const QString& folder) {
  if (existsInFolder(folder, kListName)) return;
  const QString path = QDir(folder).filePath(kListName);
  if (existsInFolder(folder, kOldListName))
    writeFile(path, rowsetFromCompanies(companiesFromDbf(readFile(pathInFolder(folder, kOldListName)))));
  else
    writeFile(path, QByteArray(kFirstList));
}

}  // namespace

QList<Company> companiesFromRowset(const QByteArray& xml) { return RowsetReader(xml).read(); }

QByteArray rowsetFromCompanies(const QList<Company>& companies) {
  QByteArray content;
  QXmlStreamWriter xml(&content);
  xml.setAutoFormatting(true);
  xml.writeStartElement(QStringLiteral("xml"));
  xml.writeNamespace(kSchemaSpace, QStringLiteral("s"));
  xml.writeNamespace(kTypeSpace, QStringLiteral("dt"));
  xml.writeNamespace(kRowsetSpace, QStringLiteral("rs"));
  xml.writeNamespace(kRowSpace, QStringLiteral("z"));
  xml.writeStartElement(kSchemaSpace, QStringLiteral("Schema"));
  xml.writeAttribute(QStringLiteral("id"), QStringLiteral("RowsetSchema"));
  xml.writeStartElement(kSchemaSpace, QStringLiteral("ElementType"));
  xml.writeAttribute(QStringLiteral("name"), QStringLiteral("row"));
  xml.writeAttribute(QStringLiteral("content"), QStringLiteral("eltOnly"));
  xml.writeAttribute(kRowsetSpace, QStringLiteral("updatable"), QStringLiteral("true"));
  writeColumn(xml, QStringLiteral("COD"), 1, 2);
  writeColumn(xml, QStringLiteral("DENUMIRE"), 2, 50);
  writeColumn(xml, QStringLiteral("NUMEBD"), 3, 15);
  xml.writeEmptyElement(kSchemaSpace, QStringLiteral("extends"));
  xml.writeAttribute(QStringLiteral("type"), QStringLiteral("rs:rowbase"));
  xml.writeEndElement();
  xml.writeEndElement();
  xml.writeStartElement(kRowsetSpace, QStringLiteral("data"));
  for (const Company& company : companies) {
    xml.writeEmptyElement(kRowSpace, QStringLiteral("row"));
    xml.writeAttribute(QStringLiteral("COD"), company.COD);
    xml.writeAttribute(QStringLiteral("DENUMIRE"), company.DENUMIRE);
    xml.writeAttribute(QStringLiteral("NUMEBD"), company.NUMEBD);
  }
  xml.writeEndElement();
  xml.writeEndElement();
  xml.writeEndDocument();
  return content;
}

QList<Company> companiesFromDbf(const QByteArray& content) {
  struct Field {
    QString name;
    int offset;
    int length;
  };
  constexpr int kHeadLength = 32;
  if (content.size() < kHeadLength) throw damagedList(kOldListName);
  const auto* bytes = content.constData();
  const auto records = qFromLittleEndian<quint32>(bytes + 4);
  const int head = qFromLittleEndian<quint16>(bytes + 8);
  const int length = qFromLittleEndian<quint16>(bytes + 10);
  QList<Field> fields;
  int offset = 1;  // after the deletion mark
  for (int at = kHeadLength;
       at + kHeadLength <= head && at + kHeadLength <= content.size() && bytes[at] != '\r';
       at += kHeadLength) {
    const QString name = QString::fromLatin1(content.mid(at, 11).constData()).trimmed().toUpper();
    const int width = static_cast<uchar>(bytes[at + 16]);
    fields.append({name, offset, width});
    offset += width;
  }
  const auto has = [&fields](const char* name) {
    return std::any_of(fields.begin(), fields.end(),
                       [name](const Field& field) { return field.name == QLatin1String(name); });
  };
  // A truncated list would be imported permanently without the missing companies.
  if (!has("COD") || !has("NUMEBD") || length < offset ||
      content.size() < head + static_cast<qsizetype>(records) * length)
    throw damagedList(kOldListName);
  QList<Company> companies;
  for (quint32 i = 0; i < records; ++i) {
    const QByteArray record = content.mid(head + static_cast<qsizetype>(i) * length, length);
    if (record.at(0) == '*') continue;
    QHash<QString, QString> row;
    for (const Field& field : fields)
      row.insert(field.name, QString::fromLatin1(record.mid(field.offset, field.length)).trimmed());
    companies.append({row.value(QStringLiteral("COD")).toUpper(), row.value(QStringLiteral("DENUMIRE")),
                      row.value(QStringLiteral("NUMEBD"))});
  }
  return companies;
}

QList<Company> readCompanyList(const QString& folder) {
  if (!existsInFolder(folder, kListName))
    underFileLock(folder, kListName, [&folder] { makeMissingList(folder); });
  QList<Company> companies = companiesFromRowset(readFile(pathInFolder(folder, kListName)));
  sortByCode(companies);
  return companies;
}

void changeCompanyList(const QString& folder, const std::function<void(QList<Company>&)>& change) {
  underFileLock(folder, kListName, [&] {
    makeMissingList(folder);
    const QString path = pathInFolder(folder, kListName);
    QList<Company> companies = companiesFromRowset(readFile(path));
    change(companies);
    sortByCode(companies);
    writeFile(path, rowsetFromCompanies(companies));
  });
}

void sweepListDrafts(const QString& folder) {
  constexpr qint64 kWritingTime = 60;  // seconds
  for (const QFileInfo& draft :
       QDir(folder).entryInfoList({kListName + QStringLiteral(".??????")}, QDir::Files))
    if (draft.lastModified().secsTo(QDateTime::currentDateTime()) > kWritingTime)
      QFile::remove(draft.filePath());
}

QList<Company> IncarcaSocietati(const QString& folder, QString& gDenSocietateNoua) {
  QList<Company> companies = readCompanyList(folder);
  if (databaseExists(folder, kFirstCompanyName)) return companies;
  underFileLock(folder, kListName, [&] {
    // Another process may have created it meanwhile.
    if (databaseExists(folder, kFirstCompanyName)) return;
    // A folder of files gets its template from the program's data folder; a server gets it here.
    if (serverOf(folder)) bringTemplateUpToDate(folder);
    makeCompanyFile(folder, kFirstCompanyName);
    MarcheazaVersiune(folder, kFirstCompanyName, gDenSocietateNoua);
  });
  return companies;
}

}  // namespace velmar
