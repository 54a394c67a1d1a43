// The engine's plans of all statements of a validation and of the deletion after it, on a ledger of a million
// lines: none may scan a whole ledger.
#include <cstdio>
#include <QRegularExpression>

#include "Benches.h"
#include "documents/DocumentEditor.h"
#include "documents/Undo.h"
#include "Fixture.h"
#include "store/Database.h"
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
  editor.open(draftNumber(kLargeDocument, kDrafts - 1));
  const QHash<QString, QString> typed = editor.headerTexts();
  editor.checkValidation(typed);
  editor.checkLines();
  const LedgerKey key{editor.kind().id, typed.value(editor.kind().numberColumn)};
  editor.validate(typed);
  checkRemoval(key);
  takeBack(key);
  return database().takeRecordedStatements();
}

bool checkKind(Store store, const Validated& kind) {
  const OpenCompany company(
      copyOfCompany(store, kind.large, QStringLiteral("planuri-%1.mdb").arg(kind.bench)));
  const QStringList statements = statementsOf(kind);
  printHeading(store, QStringLiteral("plans: ") + kind.title, {});
  bool held = true;
  for (const QString& sql : statements) {
    std::printf("%s%s\n", qUtf8Printable(sql.left(kShownText)), sql.size() > kShownText ? " ..." : "");
    const QStringList ledgers = ledgerNames(sql);
    for (const QString& step : database().queryPlan(sql)) {
      const bool bad = readsThrough(step, ledgers);
      held = held && !bad;
      std::printf("    %s%s\n", qUtf8Printable(step), bad ? "   ! citeste tot registrul" : "");
    }
  }
  printRow(QStringLiteral("%1 instructiuni").arg(statements.size()),
           {held ? QStringLiteral("in regula") : QStringLiteral("GRESIT")});
  return held;
}

}  // namespace

bool checkPlans(Store store) {
  bool held = true;
  for (const Validated* kind : {&vouchers(), &invoices()}) held = checkKind(store, *kind) && held;
  return held;
}

}  // namespace velmar::bench
