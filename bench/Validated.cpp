#include "Validated.h"

#include <algorithm>
#include <cmath>

#include "BareInvoice.h"
#include "BareRows.h"
#include "BareVoucher.h"
#include "documents/DocumentEditor.h"
#include "documents/kinds/Kinds.h"
#include "store/Database.h"

namespace velmar::bench {

namespace {

template <typename Bare>
std::unique_ptr<BareValidation> made(const QString& path) {
  return std::make_unique<Bare>(path);
}

constexpr double kGrowthAim = 1.2;

using Cells = std::vector<QVariant>;

std::vector<Cells> rowsOf(const QString& path, const QString& sql) {
  std::vector<Cells> rows;
  Database::open(path)->each(sql, [&rows](Cells&& cells) { rows.push_back(std::move(cells)); });
  return rows;
}

// The program computes with decimals, the bare statements with doubles.
bool isSame(const QVariant& one, const QVariant& other) {
  constexpr double kNoise = 1e-6;
  if (one.isNull() || other.isNull()) return one.isNull() == other.isNull();
  if (one.typeId() != QMetaType::Double && other.typeId() != QMetaType::Double) return one == other;
  return std::abs(one.toDouble() - other.toDouble()) < kNoise;
}

bool isSameRow(const Cells& one, const Cells& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), isSame);
}

QString shown(const Cells& cells) {
  QStringList texts;
  for (const QVariant& cell : cells) texts.append(cell.toString());
  return texts.join(u' ');
}

// The rows written by a validation: in the ledgers, the documents of that day.
QStringList writtenBy(const Validated& kind) {
  const DocumentKind& document = documentKind(kind.prefix);
  return {
      QStringLiteral(
          "SELECT ID, TIP, TIPIE, CODTERT, DATADOC, DATASCAD, CODMAG, TOTALFT, TOTALTVA, TOTALCOST, "
          "CODDEV, CURS, TOTALDEV, MODREG, SERIE, OBS FROM G_DOCUME WHERE DATADOC = '2026-03-15' "
          "ORDER BY ID"),
      QStringLiteral("SELECT DOCID, LINIE, ARTID, L.CODMAG, CANT, PRETFT, PRETTTI, PRETDEV, PRETVA, VALTVA, "
                     "COST, COSTDEV, VALCOST, VALCOSTDEV, CODTVA, CODCC, CANTRAMASA, PROCRAB, VALRAB "
                     "FROM G_LDOCUM L JOIN G_DOCUME D ON D.ID = L.DOCID WHERE D.DATADOC = '2026-03-15' "
                     "ORDER BY DOCID, LINIE"),
      QStringLiteral("SELECT DOCID, LINIE, CANTRAMASA FROM G_LDOCUM WHERE CANTRAMASA > 0 "
                     "ORDER BY DOCID, LINIE"),
      QStringLiteral("SELECT ID_E, TIP_E, ID_I, CODART, CANT FROM G_I_E ORDER BY ID_E, ID_I, CODART"),
      QStringLiteral("SELECT CODART, STOC, COST FROM G_ARTMAG ORDER BY CODART"),
      QStringLiteral("SELECT ARTID, CODMAG, CANT FROM G_STOCMAG ORDER BY ARTID, CODMAG"),
      QStringLiteral(
          "SELECT L.NUMFAC, NRLINIE, CODART, DENUMIRE, UM, CANT, PRETFT, ValoareFTCuDiscount, VALOAREFT, "
          "VALOARETVA, VALOARETTI, PRETVALUTA, CANTAVIZ, NUMAE, COST FROM G_LFACCL L "
          "JOIN G_FACCLI F ON F.NUMFAC = L.NUMFAC WHERE DATAFAC = '2026-03-15' "
          "ORDER BY L.NUMFAC, NRLINIE"),
      QStringLiteral("SELECT NUMAE, NRLINIE, CANTRAMAS, VALOARECOST FROM G_LAECLI ORDER BY NUMAE, NRLINIE"),
      QStringLiteral("SELECT NUMAE, VALIDAT, FACTURAT FROM G_AECLI ORDER BY NUMAE"),
      QStringLiteral("SELECT %1 FROM %2 WHERE VALIDAT = -1 ORDER BY %1")
          .arg(document.numberColumn, document.headerTable),
      QStringLiteral("SELECT NDI, NRLINIE, JURNAL, CONT, EXPL, DEBIT, CREDIT, DOC, COD, TERT, TVA_LINREF, "
                     "COTATVA, DATASCAD, TIPDOC, CURS, DEVDEBIT, DEVCREDIT FROM kt_linii "
                     "WHERE DATAINR = '2026-03-15' ORDER BY NDI, NRLINIE")};
}

}  // namespace

double Validated::byProgram(const QString& number) const {
  DocumentEditor editor(prefix);
  editor.open(number);
  return timed([&editor] {
    proposeNumber(editor.kind());
    editor.validate(editor.headerTexts());
  });
}

int blockRounds() { return isQuick() ? 1 : 3; }

int Validated::measuredDrafts() const {
  const int block = blockRounds() + 1;
  return isQuick() ? block : std::min(drafts, kRounds / blockRounds() * block);
}

std::unique_ptr<BareValidation> Validated::bareOn(const QString& path, CompanySize size) const {
  if (bare) return bare(path);
  return std::make_unique<BareRows>(path, *this, recordedRows(*this, size));
}

const Validated& vouchers() {
  static const Validated kVouchers{QStringLiteral("voucher"),
                                   QStringLiteral("validare bon de intrare"),
                                   QStringLiteral("BI"),
                                   CompanySize::EmptyLedger,
                                   CompanySize::MillionLines,
                                   QStringLiteral("registru gol"),
                                   QStringLiteral("1.000.000 linii"),
                                   1,
                                   1.5,
                                   made<BareVoucher>};
  return kVouchers;
}

const Validated& invoices() {
  static const Validated kInvoices{QStringLiteral("invoice"),
                                   QStringLiteral("numar si validare factura client"),
                                   QStringLiteral("FC"),
                                   CompanySize::Trade,
                                   CompanySize::GrownTrade,
                                   QStringLiteral("10.000 linii"),
                                   QStringLiteral("1.000.000 linii"),
                                   2,
                                   2.0,
                                   made<BareInvoice>};
  return kInvoices;
}

const Validated& validatedBy(const QString& bench) {
  return bench == invoices().bench ? invoices() : vouchers();
}

const QStringList kContestColumns{QStringLiteral("Velmar"), QStringLiteral("direct"),
                                  QStringLiteral("raport"), QStringLiteral("tinta")};

void printRatio(Store store, const QString& bench, const QString& row, const Pair& pair, double aim) {
  const double times = pair.ours.median() / pair.bare.median();
  noteRatio(bench + QStringLiteral(": ") + row, store, times, aim);
  printRow(row, {milliseconds(pair.ours.median()), milliseconds(pair.bare.median()), ratio(times, aim),
                 QStringLiteral("<= %1").arg(aim, 0, 'f', 1)});
}

void printGrowth(int lines, const Pair& small, const Pair& large, double besideBare) {
  const double ours = large.ours.median() / small.ours.median();
  const double bare = large.bare.median() / small.bare.median();
  printRow(QStringLiteral("%1 linii, crestere mic -> mare").arg(lines),
           {ratio(ours, besideBare > 0 ? kNoAim : kGrowthAim), QString::number(bare, 'f', 2),
            besideBare > 0 ? ratio(ours / bare, besideBare) : QString(),
            QStringLiteral("<= %1").arg(besideBare > 0 ? besideBare : kGrowthAim, 0, 'f', 1)});
}

bool printAgreement(bool held) {
  printRow(QStringLiteral("aceleasi randuri ca direct"),
           {held ? QStringLiteral("in regula") : QStringLiteral("GRESIT")});
  return held;
}

bool agree(const Validated& kind, const QString& one, const QString& other) {
  bool same = true;
  for (const QString& sql : writtenBy(kind)) {
    const auto ours = rowsOf(one, sql);
    const auto theirs = rowsOf(other, sql);
    const auto [here, there] =
        std::mismatch(ours.begin(), ours.end(), theirs.begin(), theirs.end(), isSameRow);
    if (here == ours.end() && there == theirs.end()) continue;
    same = false;
    progress(QStringLiteral("Difera: %1\n  %2\n  %3")
                 .arg(sql, here == ours.end() ? QString() : shown(*here),
                      there == theirs.end() ? QString() : shown(*there)));
  }
  return same;
}

}  // namespace velmar::bench
