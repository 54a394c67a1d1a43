// The engine's plans of all statements of a validation and of the deletion after it, on a ledger of a million
// lines: none may scan a whole ledger. Those of the first pages of the lists may not sort.
#include <cstdio>
#include <functional>
#include <QRegularExpression>

#include "Benches.h"
#include "documents/DocumentEditor.h"
#include "documents/LedgerLists.h"
#include "documents/Undo.h"
#include "Fixture.h"
#include "store/Database.h"
#include "store/ListRows.h"
#include "Validated.h"

namespace velmar::bench {

namespace {

constexpr int kShownText = 150;

// The names of the ledgers in a statement: their own names and aliases.
QStringList ledgerNames(const QString& sql) {
  static const QRegularExpression kLedger(
      QStringLiteral("\\b(G_LDOCUM|G_DOCUME|kt_linii|G_I_E|G_FACCLI|G_LFACCL)\\b(?:\\s+(?:AS\\s+)?(\\w+))?"),
      QRegularExpression::CaseInsensitiveOption);
  QStringList names;
  for (auto found = kLedger.globalMatch(sql); found.hasNext();) {
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

// Of its validation, and of taking it back.
QStringList statementsOf(const Validated& kind) {
  DocumentEditor editor(kind.prefix);
  database().takeRecordedStatements();
  proposeNumber(editor.kind());
  editor.open(kind.number(kLargeDocument, kind.drafts - 1));
  const QHash<QString, QString> typed = editor.headerTexts();
  editor.checkValidation(typed);
  editor.checkLines();
  const LedgerKey key{editor.kind().id, typed.value(editor.kind().numberColumn)};
  editor.validate(typed);
  checkRemoval(key);
  takeBack(key);
  return database().takeRecordedStatements();
}

// SQLite reports "USE TEMP B-TREE FOR ORDER BY", PostgreSQL "Sort"; the last part of an order may be sorted.
bool sortsAll(const QString& step) {
  return step.contains(QStringLiteral("TEMP B-TREE FOR ORDER BY")) ||
         (step.contains(QStringLiteral("Sort")) && !step.contains(QStringLiteral("Sort Key")) &&
          !step.contains(QStringLiteral("Incremental Sort")));
}

using Objection = std::function<bool(const QString& step, const QString& sql)>;

bool printPlans(Store store, const QString& title, const QStringList& statements, const Objection& isBad) {
  printHeading(store, QStringLiteral("plans: ") + title, {});
  bool held = true;
  for (const QString& sql : statements) {
    std::printf("%s%s\n", qUtf8Printable(sql.left(kShownText)), sql.size() > kShownText ? " ..." : "");
    for (const QString& step : database().queryPlan(sql)) {
      const bool bad = isBad(step, sql);
      held = held && !bad;
      std::printf("    %s%s\n", qUtf8Printable(step), bad ? "   ! citeste tot registrul" : "");
    }
  }
  printRow(QStringLiteral("%1 instructiuni").arg(statements.size()),
           {held ? QStringLiteral("in regula") : QStringLiteral("GRESIT")});
  return held;
}

bool checkKind(Store store, const Validated& kind) {
  const OpenCompany company(
      copyOfCompany(store, kind.large, QStringLiteral("planuri-%1.mdb").arg(kind.bench)));
  return printPlans(store, kind.title, statementsOf(kind), [](const QString& step, const QString& sql) {
    return readsThrough(step, ledgerNames(sql));
  });
}

bool checkLists(Store store) {
  const OpenCompany company(copyOfCompany(store, CompanySize::Grown, QStringLiteral("planuri-liste.mdb")));
  database().takeRecordedStatements();
  const ListRows documents(documentList(), {}, QStringLiteral("DATADOC, DATAINTROD, TIMP"), true,
                           ListRows::Read::FirstPart);
  const ListRows movements(movementList(), {}, QStringLiteral("LINIE, DOCID"), false,
                           ListRows::Read::FirstPart);
  return printPlans(store, QStringLiteral("prima pagina a listelor"), database().takeRecordedStatements(),
                    [](const QString& step, const QString& /*sql*/) { return sortsAll(step); });
}

}  // namespace

bool checkPlans(Store store) {
  bool held = true;
  for (const Validated* kind : {&vouchers(), &invoices()}) held = checkKind(store, *kind) && held;
  return checkLists(store) && held;
}

}  // namespace velmar::bench
