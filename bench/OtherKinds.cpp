#include "OtherKinds.h"

#include "BareInvoice.h"
#include "DraftFill.h"

namespace velmar::bench {

namespace {

constexpr double kEntryAim = 1.5;
constexpr double kIssueAim = 2;
constexpr int kCopies = 3;
constexpr double kGrowthBesideBare = 1.1;
constexpr int kSizes[] = {kSmallDocument, kLargeDocument};

// What a validation reads once, besides the draft. The number is bound to each.
constexpr const char* kParameters = "SELECT * FROM kt_par WHERE ? <> '' ORDER BY ID";
constexpr const char* kLastNote = "SELECT MAX(NDI) FROM kt_linii WHERE ? <> ''";
constexpr const char* kFigures =
    "SELECT STOC, COST, ADAOS, PRETVFT, PRETVTTI, FAMART, PROVENIENTA FROM G_ARTMAG WHERE CODART = ?";

Validated recorded(const QString& bench, const QString& title, const QString& prefix, double aim,
                   Reads reads) {
  Validated kind = invoices();
  kind.bench = bench;
  kind.title = title;
  kind.prefix = prefix;
  kind.ratioAim = aim;
  kind.bare = nullptr;
  kind.reads = std::move(reads);
  kind.reads.whole.push_back(kParameters);
  kind.drafts = kKindDrafts;
  kind.copies = kCopies;
  kind.growthBesideBare = kGrowthBesideBare;
  return kind;
}

void fillAllFromNotes(const QString& path) {
  BareConnection connection(path);
  connection.beginWrite();
  BareStatement fill = connection.prepare(kFillFromNotes);
  for (const int lines : kSizes)
    for (int draft = 0; draft < invoicesFromNotes().measuredDrafts(); ++draft) {
      const QString invoice = draftNumber(lines, kFirstOfNotes + draft);
      const int first = firstNote(invoice.toInt());
      const std::string texts[] = {invoice.toStdString(), std::to_string(first),
                                   std::to_string(first + lines / kLinesOfNote - 1)};
      for (int at = 0; at < 3; ++at) fill.bind(at + 1, texts[at]);
      fill.run();
    }
  connection.run("COMMIT");
}

void validateInvoices(const QString& path) {
  const OpenCompany company(path);
  for (int draft = 0; draft < stornos().measuredDrafts(); ++draft)
    for (const int lines : kSizes) invoices().byProgram(draftNumber(lines, draft));
}

}  // namespace

const Validated& deliveryNotes() {
  static const Validated kKind =
      recorded(QStringLiteral("deliverynote"),
               QStringLiteral("numar si validare aviz, cinci loturi pe linie"), QStringLiteral("AE"),
               kIssueAim, {{kLastNote}, {kFigures, kArticleRead, kStockRead, kOrderedRead, kLotsRead}, {}});
  return kKind;
}

const Validated& invoicesFromNotes() {
  static const Validated kKind = [] {
    Validated kind = recorded(
        QStringLiteral("notes"), QStringLiteral("numar si validare factura din avize de 4 linii"),
        QStringLiteral("FC"), kIssueAim,
        {{kLastNote},
         {kFigures},
         {"SELECT LINIE, CANT, CANTRAMASA FROM G_LDOCUM WHERE ARTID = ? AND DOCID = ?",
          "SELECT NRLINIE, CANT, CANTRAMAS FROM G_LAECLI WHERE CODART = ? AND NUMAE = SUBSTR(?, 3)"}});
    kind.firstDraft = kFirstOfNotes;
    kind.prepare = fillAllFromNotes;
    return kind;
  }();
  return kKind;
}

const Validated& stornos() {
  static const Validated kKind = [] {
    Validated kind = recorded(QStringLiteral("storno"), QStringLiteral("numar si stornare factura client"),
                              QStringLiteral("FS"), kIssueAim,
                              {{kLastNote, "SELECT * FROM G_DOCUME WHERE ID = 'FC' || ?",
                                "SELECT * FROM G_LDOCUM WHERE DOCID = 'FC' || ? ORDER BY LINIE",
                                "SELECT * FROM kt_linii WHERE DOC = ? AND PROV = 'G' ORDER BY NDI, NRLINIE"},
                               {kFigures},
                               {}});
    kind.prepare = validateInvoices;
    return kind;
  }();
  return kKind;
}

const Validated& transfers() {
  static const Validated kKind = recorded(QStringLiteral("transfer"), QStringLiteral("validare transfer"),
                                          QStringLiteral("BT"), kEntryAim,
                                          {{"SELECT ID FROM G_DOCUME WHERE ID = 'BT' || ? || 'E'"},
                                           {kArticleRead, kStockRead, kOrderedRead},
                                           {}});
  return kKind;
}

const Validated& receiptNotes() {
  static const Validated kKind = recorded(QStringLiteral("receipt"), QStringLiteral("validare NIR"),
                                          QStringLiteral("NR"), kEntryAim, {{kLastNote}, {kFigures}, {}});
  return kKind;
}

const Validated& customerOrders() {
  static const Validated kKind =
      recorded(QStringLiteral("customerorder"), QStringLiteral("validare comanda client"),
               QStringLiteral("CC"), kEntryAim, {{}, {kFigures}, {}});
  return kKind;
}

const Validated& supplierOrders() {
  static const Validated kKind =
      recorded(QStringLiteral("supplierorder"), QStringLiteral("validare comanda furnizor"),
               QStringLiteral("CF"), kEntryAim, {{}, {kFigures}, {}});
  return kKind;
}

const Validated& proformas() {
  static const Validated kKind = recorded(QStringLiteral("proforma"), QStringLiteral("validare proforma"),
                                          QStringLiteral("PR"), kEntryAim, {{}, {kFigures}, {}});
  return kKind;
}

}  // namespace velmar::bench
