// The engine's plans of all statements of a validation and of the deletion after it, on a ledger of a million
// lines: none may scan a whole ledger. Those of the first pages of the lists may not sort.
#include <cstdio>
#include <functional>
#include <QRegularExpression>

#include "Benches.h"
#include "documents/DocumentEditor.h"
#include "documents/kinds/Kinds.h"
#include "documents/LedgerLists.h"
#include "documents/LineSource.h"
#include "documents/Undo.h"
#include "Fixture.h"
#include "OtherKinds.h"
#include "store/Database.h"
#include "store/ListRows.h"
#include "Validated.h"

namespace velmar::bench {

namespace {

constexpr int kShownText = 150;

const QStringList& ledgers() {
  static const QStringList kTables{QStringLiteral("G_LDOCUM"), QStringLiteral("G_DOCUME"),
                                   QStringLiteral("kt_linii"), QStringLiteral("G_I_E"),
                                   QStringLiteral("G_FACCLI"), QStringLiteral("G_LFACCL")};
  return kTables;
}

const QStringList& draftTables() {
  static const QStringList kTables = [] {
    QStringList tables;
    for (const DocumentKind& kind : documentKinds()) tables << kind.headerTable << kind.lineTable;
    tables.removeDuplicates();
    return tables;
  }();
  return kTables;
}

// The names of these tables in a statement: their own names and aliases.
QStringList namesOf(const QStringList& tables, const QString& sql) {
  const QRegularExpression known(
      QStringLiteral("\\b(%1)\\b(?:\\s+(?:AS\\s+)?(\\w+))?").arg(tables.join(u'|')),
      QRegularExpression::CaseInsensitiveOption);
  QStringList names;
  for (auto found = known.globalMatch(sql); found.hasNext();) {
    const auto match = found.next();
    names << match.captured(1).toUpper() << match.captured(2).toUpper();
  }
  return names;
}

// SQLite reports "SCAN kt_linii", PostgreSQL "Seq Scan on kt_linii".
bool readsThrough(const QString& step, const QStringList& ledgers) {
  static const QRegularExpression kScan(QStringLiteral("(?:^SCAN|Seq Scan on) (\\w+)(?: (\\w+))?"),
                                        QRegularExpression::CaseInsensitiveOption);
  const auto found = kScan.match(step);
  return found.hasMatch() &&
         (ledgers.contains(found.captured(1).toUpper()) || ledgers.contains(found.captured(2).toUpper()));
}

QList<LedgerKey> keysOf(const DocumentKind& kind, const QString& number) {
  if (!ledgerKind(kind.id).hasSides) return {{kind.id, number}};
  return {{kind.id, number, LedgerSide::Issue}, {kind.id, number, LedgerSide::Receipt}};
}

// Of the lists in its window, of its validation, and of taking it back.
QStringList statementsOf(const Validated& kind) {
  DocumentEditor editor(kind.prefix);
  database().takeRecordedStatements();
  editor.drafts().list();
  proposeNumber(editor.kind());
  editor.open(kind.number(kLargeDocument, kind.measuredDrafts() - 1));
  for (const LineSource* source : editor.kind().sources)
    if (!source->list().control.isEmpty()) source->offer(editor.onScreen());
  const QHash<QString, QString> typed = editor.headerTexts();
  editor.checkValidation(typed);
  editor.checkLines();
  editor.validate(typed);
  for (const LedgerKey& key : keysOf(editor.kind(), typed.value(editor.kind().numberColumn))) {
    checkRemoval(key);
    takeBack(key);
  }
  return database().takeRecordedStatements();
}

// SQLite reports "USE TEMP B-TREE FOR ORDER BY", PostgreSQL "Sort"; the last part of an order may be sorted.
bool sortsAll(const QString& step) {
  return step.contains(QStringLiteral("TEMP B-TREE FOR ORDER BY")) ||
         (step.contains(QStringLiteral("Sort")) && !step.contains(QStringLiteral("Sort Key")) &&
          !step.contains(QStringLiteral("Incremental Sort")));
}

using Objection = std::function<bool(const QString& step, const QString& sql)>;

Objection readsWhole(const QStringList& tables) {
  return
      [tables](const QString& step, const QString& sql) { return readsThrough(step, namesOf(tables, sql)); };
}

bool printPlans(const QStringList& statements, const Objection& isBad) {
  bool held = true;
  for (const QString& sql : statements) {
    std::printf("%s%s\n", qUtf8Printable(sql.left(kShownText)), sql.size() > kShownText ? " ..." : "");
    for (const QString& step : database().queryPlan(sql)) {
      const bool bad = isBad(step, sql);
      held = held && !bad;
      std::printf("    %s%s\n", qUtf8Printable(step), bad ? "   ! citeste tot registrul" : "");
    }
  }
  return held;
}

void printVerdict(const QStringList& statements, bool held) {
  printRow(QStringLiteral("%1 instructiuni").arg(statements.size()),
           {held ? QStringLiteral("in regula") : QStringLiteral("GRESIT")});
}

bool checkKind(Store store, const Validated& kind) {
  const QString path = copyOfCompany(store, kind.large, QStringLiteral("planuri-%1.mdb").arg(kind.bench));
  if (kind.prepare) kind.prepare(path);
  const OpenCompany company(path);
  const QStringList statements = statementsOf(kind);
  printHeading(store, QStringLiteral("plans: ") + kind.title, {});
  bool held =
      printPlans(statements, readsWhole(ledgers() + (store == Store::Files ? draftTables() : QStringList())));
  if (store == Store::Server) {
    // The draft tables are so small here that the server prefers to read through them.
    ExecutaSql("SET enable_seqscan = off");
    held = printPlans(statements, readsWhole(draftTables())) && held;
  }
  printVerdict(statements, held);
  return held;
}

bool checkLists(Store store) {
  const OpenCompany company(copyOfCompany(store, CompanySize::Grown, QStringLiteral("planuri-liste.mdb")));
  database().takeRecordedStatements();
  const ListRows documents(documentList(), {}, QStringLiteral("DATADOC, DATAINTROD, TIMP"), true,
                           ListRows::Read::FirstPart);
  const ListRows movements(movementList(), {}, QStringLiteral("LINIE, DOCID"), false,
                           ListRows::Read::FirstPart);
  const QStringList statements = database().takeRecordedStatements();
  printHeading(store, QStringLiteral("plans: prima pagina a listelor"), {});
  const bool held =
      printPlans(statements, [](const QString& step, const QString& /*sql*/) { return sortsAll(step); });
  printVerdict(statements, held);
  return held;
}

}  // namespace

bool checkPlans(Store store) {
  bool held = true;
  for (const Validated* kind :
       {&vouchers(), &invoices(), &deliveryNotes(), &invoicesFromNotes(), &stornos(), &transfers(),
        &receiptNotes(), &customerOrders(), &supplierOrders(), &proformas()})
    held = checkKind(store, *kind) && held;
  return checkLists(store) && held;
}

}  // namespace velmar::bench
