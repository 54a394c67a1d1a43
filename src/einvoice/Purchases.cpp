#include "einvoice/Purchases.h"

#include <algorithm>

#include "catalogue/Articles.h"
#include "catalogue/Discounts.h"
#include "catalogue/Partners.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/Drafts.h"
#include "documents/kinds/Kinds.h"
#include "einvoice/Places.h"
#include "stock/LedgerKey.h"
#include "store/Database.h"
#include "store/Records.h"
#include "store/Schema.h"
#include "util/Errors.h"
#include "util/PlainText.h"

namespace velmar {

namespace {

constexpr int kDecimals = 2;

const DocumentKind& kind() { return documentKind(KindId::SupplierInvoice); }

// Lei for a unit of the currency on the day of the invoice; nothing without a rate.
std::optional<Decimal> rateOf(const ReceivedInvoice& invoice) {
  if (isLei(invoice.currency)) return Decimal(1);
  const Decimal rate = Curs(invoice.currency, invoice.date);
  return rate > 0 ? std::optional(rate) : std::nullopt;
}

// The draft with that number; an empty row without one.
Row draftWith(const QString& number) {
  const Recordset found = OpenRs("SELECT NUMFAC, CODFUR, BATVA1 FROM G_FACFUR WHERE NUMFAC = ?", {number});
  return found.isEmpty() ? Row() : found.first();
}

QString numberOf(const QString& first, size_t draft) {
  return draft == 0 ? first : QStringLiteral("%1/%2").arg(first).arg(draft + 1);
}

// The drafts that were made of the supplier's files with that number, as they are stored.
std::vector<QString> draftsOfFiles(const ReceivedInvoice::Party& supplier, const QString& number) {
  std::vector<QString> drafts;
  for (const Row& row :
       OpenRs("SELECT DOCUMENTE FROM G_EFACTURAPRIM WHERE CODFISCAL = ? AND NUMAR = ? AND STARE = ?",
              {comparableCode(supplier.fiscalCode), number, received::kTaken}))
    drafts.push_back(row.text("DOCUMENTE"));
  return drafts;
}

// Whether the draft is a further one of an invoice with several rates: "T/2" of T. The supplier may have an
// invoice T/2 as well.
bool isFurtherDraft(const ReceivedInvoice::Party& supplier, const QString& draft) {
  const qsizetype end = draft.lastIndexOf(u'/');
  if (end <= 0) return false;
  const std::vector<QString> files = draftsOfFiles(supplier, draft.left(end));
  return std::any_of(files.begin(), files.end(),
                     [&draft](const QString& drafts) { return drafts.split(u'\n').contains(draft); });
}

// Drafts of the invoice of that number that were made from a file, or entered by hand. `code`: key of the
// supplier, 0 when it is not known.
QStringList draftsOfNumber(const ReceivedInvoice::Party& supplier, qint64 code, const QString& number) {
  for (const QString& made : draftsOfFiles(supplier, number))
    if (const QStringList drafts = existingDrafts(made); !drafts.isEmpty()) return drafts;
  const Row draft = draftWith(number);
  const bool isHis = !draft.isEmpty() && code != 0 && draft.integer("CODFUR") == code;
  return isHis && !isFurtherDraft(supplier, number) ? QStringList(number) : QStringList();
}

// The drafts that exist under the numbers of the file's drafts.
std::vector<Row> draftsInTheWay(const QString& first, const ReceivedInvoice& invoice) {
  QStringList numbers;
  for (size_t i = 0; i < invoice.totals.size(); ++i) numbers.append(numberOf(first, i));
  return rowsOfKeys("SELECT NUMFAC, CODFUR FROM G_FACFUR WHERE NUMFAC IN (%1)", numbers);
}

// The key of the invoice whose goods a draft gives back: of an invoice that was taken over as several drafts,
// the draft with the same rate; else what the user entered.
QString turnedBy(const Purchase& purchase, const PurchaseDraft& draft) {
  const auto keyOf = [](const QString& number) { return LedgerKey{KindId::SupplierInvoice, number}.text(); };
  const auto draftsNamed = [&purchase](const QString& number) {
    return draftsOfNumber(purchase.invoice.supplier, purchase.supplier, number);
  };
  QStringList turned = draftsNamed(purchase.invoice.precedingNumber);
  // The user may enter the number of the supplier's invoice instead of its key.
  if (turned.isEmpty() || purchase.turned != keyOf(turned.first())) turned = draftsNamed(purchase.turned);
  if (turned.isEmpty()) return purchase.turned;
  for (const QString& number : turned)
    if (draftWith(number).integer("BATVA1") == draft.rate) return keyOf(number);
  return keyOf(turned.first());
}

// Whether the lines of an article can be one line of the draft.
bool hasSamePrice(const ReceivedLine& one, const ReceivedLine& other) {
  return one.statedPrice == other.statedPrice || one.value * other.quantity == other.value * one.quantity;
}

// Whether a line of a draft has a negative quantity. Lines of one article and rate are one.
bool givesBack(const Purchase& purchase) {
  const std::vector<ReceivedLine>& lines = purchase.invoice.lines;
  if (std::none_of(lines.begin(), lines.end(),
                   [](const ReceivedLine& line) { return line.quantity.isNegative(); }))
    return false;
  for (size_t i = 0; i < lines.size(); ++i) {
    const QString article = purchase.articles[static_cast<qsizetype>(i)].toUpper();
    Decimal quantity = lines[i].quantity;
    for (size_t j = 0; j < lines.size() && !article.isEmpty(); ++j)
      if (j != i && lines[j].rate == lines[i].rate &&
          purchase.articles[static_cast<qsizetype>(j)].toUpper() == article)
        quantity += lines[j].quantity;
    if (quantity.isNegative()) return true;
  }
  return false;
}

// The values of the lines of a rate in lei, less their part of the allowance.
std::vector<Decimal> valuesOf(const ReceivedInvoice& invoice, const ReceivedTotal& total,
                              const Decimal& rate) {
  Decimal sum;
  for (const ReceivedLine& line : invoice.lines)
    if (line.rate == total.rate) sum += line.value;
  std::vector<Decimal> values;
  Decimal upTo, written;
  for (const ReceivedLine& line : invoice.lines) {
    if (line.rate != total.rate) {
      values.emplace_back(0);
      continue;
    }
    upTo += line.value;
    const Decimal allowance = sum.isZero() ? total.allowance : total.allowance * upTo / sum;
    values.push_back(Round((upTo - allowance) * rate, kDecimals) - written);
    written += values.back();
  }
  return values;
}

}  // namespace

QString fittedText(const QString& text, const char* table, const char* column) {
  QString plain;
  for (const QChar character : plainLetters(text))
    if (hiddenCharacter(character).isEmpty()) plain += character;
  return plain.simplified().left(companyTable(table).column(column)->width);
}

QStringList existingDrafts(const QString& numbers) {
  QStringList drafts = numbers.split(u'\n', Qt::SkipEmptyParts);
  drafts.erase(std::remove_if(drafts.begin(), drafts.end(),
                              [](const QString& each) { return draftWith(each).isEmpty(); }),
               drafts.end());
  return drafts;
}

QString existsText(const Purchase& purchase) {
  const ReceivedInvoice& invoice = purchase.invoice;
  const QStringList drafts = draftsOfNumber(invoice.supplier, purchase.supplier, invoice.number);
  return drafts.isEmpty()
             ? QString()
             : QStringLiteral("Factura furnizorului exista deja: %1").arg(drafts.join(QStringLiteral(", ")));
}

Purchase purchaseOf(ReceivedInvoice read, PurchaseSource& source) {
  Purchase purchase;
  purchase.invoice = std::move(read);
  const ReceivedInvoice& invoice = purchase.invoice;
  if (comparableCode(invoice.buyer.fiscalCode) != source.ownCode())
    throw RuleError(
        QStringLiteral("Cumparatorul este altul: %1 %2").arg(invoice.buyer.fiscalCode, invoice.buyer.name));
  purchase.supplier = source.supplierOf(invoice.supplier.fiscalCode);
  purchase.number = invoice.number;
  if (purchase.supplier != 0)
    for (const Row& draft : draftsInTheWay(invoice.number, invoice))
      if (draft.integer("CODFUR") != purchase.supplier ||
          (draft.text("NUMFAC") == invoice.number && isFurtherDraft(invoice.supplier, invoice.number)))
        purchase.number = QStringLiteral("%1/F%2").arg(invoice.number).arg(purchase.supplier);
  if (!invoice.precedingNumber.isEmpty()) {
    const QStringList turned = draftsOfNumber(invoice.supplier, purchase.supplier, invoice.precedingNumber);
    if (!turned.isEmpty()) purchase.turned = LedgerKey{KindId::SupplierInvoice, turned.first()}.text();
  }
  purchase.articles = purchase.found = source.articlesOf(purchase.supplier, invoice);
  return purchase;
}

std::vector<PurchaseDraft> draftsOf(const Purchase& purchase, PurchaseSource& source) {
  const ReceivedInvoice& invoice = purchase.invoice;
  const auto rate = rateOf(invoice);
  std::vector<PurchaseDraft> drafts;
  if (!rate) return drafts;
  source.readArticles(purchase.articles);
  for (const ReceivedTotal& total : invoice.totals) {
    PurchaseDraft draft;
    draft.number = numberOf(purchase.number, drafts.size());
    draft.rate = source.rateOf(total.rate);
    const std::vector<Decimal> values = valuesOf(invoice, total, *rate);
    bool isWhole = true;
    for (size_t i = 0; i < invoice.lines.size(); ++i) {
      const ReceivedLine& line = invoice.lines[i];
      if (line.rate != total.rate) continue;
      const auto article = source.article(purchase.articles[static_cast<qsizetype>(i)]);
      if (!article) {
        isWhole = false;
        continue;
      }
      const auto same =
          std::find_if(draft.lines.begin(), draft.lines.end(),
                       [&](const PurchaseDraft::Line& each) { return each.article.code == article->code; });
      if (same == draft.lines.end()) {
        draft.lines.push_back({*article, line.quantity, values[i], Decimal(0), line.statedPrice});
      } else {
        same->quantity += line.quantity;
        same->value += values[i];
      }
    }
    // What was given and taken back on one invoice is no line.
    const auto gone = std::remove_if(
        draft.lines.begin(), draft.lines.end(),
        [](const PurchaseDraft::Line& line) { return line.quantity.isZero() && line.value.isZero(); });
    if (gone != draft.lines.begin()) draft.lines.erase(gone, draft.lines.end());
    if (draft.lines.empty()) continue;
    Decimal vat;
    for (PurchaseDraft::Line& line : draft.lines) {
      line.vat = Round(line.value * total.rate.percent / 100, kDecimals);
      vat += line.vat;
    }
    const auto largest = std::max_element(draft.lines.begin(), draft.lines.end(),
                                          [](const PurchaseDraft::Line& a, const PurchaseDraft::Line& b) {
                                            return a.value.abs() < b.value.abs();
                                          });
    if (isWhole) largest->vat += Round(total.vat * *rate, kDecimals) - vat;
    drafts.push_back(std::move(draft));
  }
  return drafts;
}

Decimal differenceOf(const Purchase& purchase, PurchaseSource& source) {
  const auto rate = rateOf(purchase.invoice);
  if (!rate) return purchase.invoice.total();
  Decimal total;
  for (const ReceivedTotal& each : purchase.invoice.totals)
    total += Round(each.base * *rate, kDecimals) + Round(each.vat * *rate, kDecimals);
  for (const PurchaseDraft& draft : draftsOf(purchase, source))
    for (const PurchaseDraft::Line& line : draft.lines) total -= line.value + line.vat;
  return total;
}

QStringList missingIn(const Purchase& purchase, PurchaseSource& source) {
  const ReceivedInvoice& invoice = purchase.invoice;
  QStringList missing;
  if (purchase.supplier == 0)
    missing.append(QStringLiteral("furnizorul %1").arg(invoice.supplier.fiscalCode));
  qsizetype without = 0;
  QStringList different;
  for (size_t i = 0; i < invoice.lines.size(); ++i) {
    const QString& article = purchase.articles[static_cast<qsizetype>(i)];
    if (article.isEmpty()) ++without;
    for (size_t j = 0; j < i && !article.isEmpty(); ++j)
      if (purchase.articles[static_cast<qsizetype>(j)].compare(article, Qt::CaseInsensitive) == 0 &&
          invoice.lines[i].rate == invoice.lines[j].rate &&
          !hasSamePrice(invoice.lines[i], invoice.lines[j]) && !different.contains(article))
        different.append(article);
  }
  if (without == 1) missing.append(QStringLiteral("articolul unei linii"));
  if (without > 1) missing.append(QStringLiteral("articolele a %1 linii").arg(without));
  for (const QString& article : different)
    missing.append(QStringLiteral("alt articol pe o linie: %1 are doua preturi").arg(article));
  for (const ReceivedTotal& total : invoice.totals)
    if (source.rateOf(total.rate) == 0)
      missing.append(QStringLiteral("cota TVA de cumparare %1").arg(total.rate.percent.toString()));
  if (!rateOf(invoice))
    missing.append(QStringLiteral("cursul %1 din %2")
                       .arg(invoice.currency, invoice.date.toString(QStringLiteral("dd.MM.yyyy"))));
  if (purchase.number.isEmpty()) missing.append(QStringLiteral("numarul facturii"));
  for (const Row& draft : draftsInTheWay(purchase.number, invoice))
    missing.append(QStringLiteral("alt numar, %1 exista deja").arg(draft.text("NUMFAC")));
  if (purchase.turned.isEmpty() && givesBack(purchase)) missing.append(QStringLiteral("factura stornata"));
  const int width = companyTable("G_FACFUR").column("NUMFAC")->width;
  if (numberOf(purchase.number, invoice.totals.size() - 1).size() > width)
    missing.append(QStringLiteral("un numar de cel mult %1 caractere").arg(width));
  if (source.journal().isEmpty()) missing.append(QStringLiteral("jurnalul facturilor de la furnizori"));
  return missing;
}

QStringList remarksOn(const Purchase& purchase, PurchaseSource& source) {
  const ReceivedInvoice& invoice = purchase.invoice;
  QStringList remarks;
  source.readArticles(purchase.articles);
  for (size_t i = 0; i < invoice.lines.size(); ++i) {
    const auto article = source.article(purchase.articles[static_cast<qsizetype>(i)]);
    if (article && source.unitCode(article->unit) != invoice.lines[i].unit)
      remarks.append(QStringLiteral("Articolul %1 are unitatea %2, factura %3")
                         .arg(article->code, article->unit, invoice.lines[i].unit));
    if (article && invoice.lines[i].value.isZero() && !invoice.lines[i].quantity.isZero())
      remarks.append(
          QStringLiteral("Articolul %1 are pretul 0, cu care factura nu se poate valida").arg(article->code));
  }
  remarks.removeDuplicates();
  if (const auto rate = rateOf(invoice); rate && !isLei(invoice.currency))
    remarks.append(
        QStringLiteral("Valori in lei la cursul 1 %1 = %2").arg(invoice.currency, rate->toString()));
  return remarks;
}

qint64 addSupplierOf(const ReceivedInvoice& invoice, const PurchaseSource& source) {
  const ReceivedInvoice::Party& supplier = invoice.supplier;
  qint64 customer = 0;
  if (const qint64 known = source.supplierOf(supplier.fiscalCode, &customer); known != 0) return known;
  if (customer != 0) {
    const Row shown = storedPartner(customer);
    Row changed = shown;
    changed.set("TIP", QStringLiteral("M"));
    savePartner(changed, partnerDiscount(customer), shown);
    return customer;
  }
  Row row = newPartner(fittedText(supplier.name, "kt_ter", "NUME"), QStringLiteral("F"));
  const std::pair<const char*, QString> texts[] = {{"CODFISCAL", supplier.fiscalCode},
                                                   {"RegCom", supplier.registration},
                                                   {"AD", supplier.street},
                                                   {"ORAS", supplier.town},
                                                   {"CP", supplier.postCode},
                                                   {"Judet", supplier.county},
                                                   {"CT", supplier.country}};
  for (const auto& [column, text] : texts) row.set(column, fittedText(text, "kt_ter", column));
  row.set("PlatesteTVA", supplier.paysVat);
  return addPartner(row);
}

QString addArticleFor(const ReceivedLine& line, qint64 supplier, qint64 family,
                      const PurchaseSource& source) {
  Row row = newArticle();
  Transaction transaction(database());
  row.set("CODART", nextArticleCode());
  row.set("DENART", fittedText(line.name, "G_ARTMAG", "DENART"));
  row.set("UM", source.unitOf(line.unit));
  row.set("FAMART", family);
  row.set("CODFURNIZO", supplier);
  row.set("CODPRODFUR",
          line.code.size() <= companyTable("G_ARTMAG").column("CODPRODFUR")->width ? line.code : QString());
  row.set("PROVENIENTA", QStringLiteral("M"));
  row.set("COTATVA", line.rate.percent);
  addArticle(row);
  transaction.commit();
  return row.text("CODART");
}

void keepChoices(const Purchase& purchase, PurchaseSource& source) {
  if (purchase.supplier == 0 || purchase.articles == purchase.found) return;
  Transaction transaction(database());
  for (size_t i = 0; i < purchase.invoice.lines.size(); ++i) {
    const auto place = static_cast<qsizetype>(i);
    const QString& chosen = purchase.articles[place];
    if (!chosen.isEmpty() && chosen != purchase.found[place])
      source.choose(purchase.supplier, purchase.invoice.lines[i], chosen);
  }
  transaction.commit();
}

QStringList takeOver(const Purchase& purchase, PurchaseSource& source) {
  const ReceivedInvoice& invoice = purchase.invoice;
  Transaction transaction(database());
  if (const QString exists = existsText(purchase); !exists.isEmpty()) throw RuleError(exists);
  if (const QStringList missing = missingIn(purchase, source); !missing.isEmpty())
    throw RuleError(QStringLiteral("Factura %1 nu se poate prelua, lipseste: %2")
                        .arg(invoice.number, missing.join(QStringLiteral("; "))));
  Row header = source.newHeader();
  header.set("CODFUR", purchase.supplier);
  header.set("DATAFAC", invoice.date);
  header.set("DATASCAD", invoice.due);
  header.set("Magazie", session().gMagazie);
  header.set("JURNAL", source.journal());
  header.set("TVAINC", invoice.isVatOnCollection);
  const Drafts store(kind());
  const Row emptyLine = companyTable(kind().lineTable).emptyRow();
  QStringList numbers;
  for (const PurchaseDraft& draft : draftsOf(purchase, source)) {
    header.set("NUMFAC", draft.number);
    header.set("BATVA1", draft.rate);
    header.set("OBS", purchase.turned.isEmpty() ? QString() : turnedBy(purchase, draft));
    store.insertHeader(header);
    std::vector<Row> lines;
    for (const PurchaseDraft::Line& line : draft.lines) {
      Row row = emptyLine;
      row.set("NUMFAC", draft.number);
      row.set("CODART", line.article.code);
      row.set("DENUMIRE", line.article.name);
      row.set("UM", line.article.unit);
      row.set("CANT", line.quantity);
      row.set("PRETFT", line.quantity.isZero() ? Decimal(0) : line.value / line.quantity);
      row.set("VALOAREFT", line.value);
      row.set("VALOARETVA", line.vat);
      row.set("VALOARETTI", line.value + line.vat);
      row.set("PRETVA", line.article.salePrice);
      lines.push_back(std::move(row));
    }
    store.insertLines(lines);
    numbers.append(draft.number);
  }
  keepChoices(purchase, source);
  database().execute("UPDATE G_EFACTURAPRIM SET STARE = ?, LIPSESTE = NULL, DOCUMENTE = ? WHERE ID = ?",
                     {received::kTaken, numbers.join(u'\n'), purchase.id});
  transaction.commit();
  return numbers;
}

}  // namespace velmar
