#include "documents/BackToEntry.h"

#include "config/Lists.h"
#include "config/Lookups.h"
#include "documents/Drafts.h"
#include "documents/HeaderTexts.h"
#include "documents/kinds/Kinds.h"
#include "store/Database.h"
#include "store/Records.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QStringList kCopiedColumns = {"NRLINIE",
                                    "CODART",
                                    "DENUMIRE",
                                    "CANT",
                                    "PRETFT",
                                    "PRETTTI",
                                    "VALOAREFT",
                                    "VALOARETTI",
                                    "VALOARETVA",
                                    "CODTVA",
                                    "CODDEV",
                                    "CURS",
                                    "ValoareFTCuDiscount",
                                    "DiscountClient",
                                    "DiscountArticol",
                                    "PALET"};

const DocumentKind& invoice() { return documentKind(KindId::CustomerInvoice); }

// Of several rates with the percentage the first by code.
QString salesRateOf(const Decimal& percent) {
  for (const ListEntry& rate : vatRates(false))
    if (ProcentTVA(rate.code.toLongLong()) == percent) return rate.code;
  throw RuleError(
      QStringLiteral("Nu exista o cota TVA de vanzari cu procentul %1 !").arg(percent.toString()));
}

// What a new invoice would store, with the values of the proforma.
Row headerFrom(const Row& proforma, const QString& number) {
  const DocumentKind& kind = invoice();
  Row header = emptyHeader(kind);
  for (const HeaderField& field : kind.headerFields)
    if (!field.column.isEmpty() && field.type != HeaderFieldType::PaymentMode)
      header.set(field.column, storedHeaderValue(field.type, newHeaderText(kind, field)));
  for (const char* column : {"CODCLI", "OBS", "Magazie", "CODDeviza", "Curs"})
    header.set(column, Value::raw(proforma.value(column)));
  header.set("NUMFAC", number);
  header.set("DATAFAC", clock::today());
  header.set("DATASCAD", clock::today());
  header.set("BATVA1", salesRateOf(proforma.decimal("BATVA")).toLongLong());
  return header;
}

std::vector<Row> linesFrom(const std::vector<Row>& proforma, const QString& number) {
  QStringList codes;
  for (const Row& line : proforma) codes.append(line.text("CODART"));
  QHash<QString, Row> articles;
  for (const Row& article : rowsOfKeys("SELECT CODART, UM, COST FROM G_ARTMAG WHERE CODART IN (%1)", codes))
    articles.insert(article.text("CODART").toUpper(), article);
  std::vector<Row> lines;
  for (const Row& offered : proforma) {
    Row line = companyTable(invoice().lineTable).emptyRow();
    for (const QString& column : kCopiedColumns) line.set(column, Value::raw(offered.value(column)));
    line.set("NUMFAC", number);
    const auto article = articles.constFind(offered.text("CODART").toUpper());
    if (article != articles.constEnd()) {
      line.set("UM", article->text("UM"));
      line.set("COST", line.decimal("CANT").abs() * article->decimal("COST"));
    }
    lines.push_back(line);
  }
  return lines;
}

void insertDraft(const Row& header, std::vector<Row> lines) {
  const Drafts drafts(invoice());
  drafts.insertHeader(header);
  drafts.insertLines(lines);
}

}  // namespace

void invoiceProforma(const LedgerKey& proforma, const QString& number) {
  Transaction transaction(database());
  const auto stored = Drafts(documentKind(KindId::Proforma)).load(proforma.number);
  if (!stored ||
      ExecutaSql("UPDATE G_DOCUME SET VALIDAT = -1 WHERE ID = ? AND VALIDAT = 0", {proforma.text()}) == 0)
    throw RuleError(
        QStringLiteral("Factura proforma %1 a fost deja facturata sau stearsa !").arg(proforma.number));
  insertDraft(headerFrom(stored->header, number), linesFrom(stored->lines, number));
  transaction.commit();
}

void copyTurnedInvoice(const LedgerKey& storno, const QString& number) {
  Transaction transaction(database());
  const Recordset ledger = OpenRs("SELECT OBS FROM G_DOCUME WHERE ID = ?", {storno.text()});
  const QString source = ledger.isEmpty() ? QString() : ledger.first().text("OBS").trimmed();
  auto stored = Drafts(invoice()).load(source);
  if (!stored || !stored->header.flag("STORNAT"))
    throw RuleError(QStringLiteral("Nu exista factura stornata cu numarul %1 !").arg(source));
  stored->header.set("NUMFAC", number);
  stored->header.set("VALIDAT", 0);
  stored->header.set("STORNAT", 0);
  const QString note = ledgerKind(KindId::DeliveryNote).prefix;
  for (Row& line : stored->lines) {
    line.set("NUMFAC", number);
    if (line.text("NUMAE").startsWith(note, Qt::CaseInsensitive)) line.set("NUMAE", Value());
  }
  insertDraft(stored->header, std::move(stored->lines));
  transaction.commit();
}

}  // namespace velmar
