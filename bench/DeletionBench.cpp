// Deleting a validated customer invoice compared with bare prepared statements for the same rows, one row at
// a time, each in its own copy of the same company, in turns.
#include <string>
#include <vector>

#include "Benches.h"
#include "documents/kinds/Kinds.h"
#include "documents/Undo.h"
#include "Validated.h"

namespace velmar::bench {

namespace {

constexpr double kAim = 2;
constexpr int kSizes[] = {kSmallDocument, kLargeDocument};

class BareDeletion {
 public:
  explicit BareDeletion(const QString& path)
      : connection_(path),
        document_(connection_.prepare("SELECT DATADOC FROM G_DOCUME WHERE ID = ?")),
        storno_(connection_.prepare("SELECT ID FROM G_DOCUME WHERE TIP = 'FS' AND TRIM(OBS) = ?")),
        lines_(connection_.prepare("SELECT ARTID, CANT FROM G_LDOCUM WHERE DOCID = ? ORDER BY LINIE")),
        later_(connection_.prepare(
            "SELECT D.ID FROM G_DOCUME D JOIN G_LDOCUM L ON L.DOCID = D.ID WHERE D.TIPIE = 'E' AND "
            "D.DATADOC >= '2026-03-15' AND D.ID <> ? AND L.ARTID = ? LIMIT 1")),
        links_(connection_.prepare("SELECT ID_I, CODART, CANT FROM G_I_E WHERE ID_E = ? AND TIP_E = 'FC'")),
        lot_(connection_.prepare("SELECT LINIE, CANTRAMASA FROM G_LDOCUM WHERE DOCID = ? AND ARTID = ? AND "
                                 "CANTRAMASA IS NOT NULL")),
        rest_(connection_.prepare("UPDATE G_LDOCUM SET CANTRAMASA = ? WHERE DOCID = ? AND LINIE = ?")),
        stock_(connection_.prepare("SELECT STOC FROM G_ARTMAG WHERE CODART = ?")),
        figures_(connection_.prepare("UPDATE G_ARTMAG SET STOC = ? WHERE CODART = ?")),
        mark_(connection_.prepare("UPDATE G_FACCLI SET VALIDAT = 0 WHERE NUMFAC = ?")),
        notes_(connection_.prepare(
            "DELETE FROM kt_linii WHERE DOC = ? AND PROV = 'G' AND DATAINR = '2026-03-15'")),
        noLinks_(connection_.prepare("DELETE FROM G_I_E WHERE ID_E = ? AND TIP_E = 'FC'")),
        noLines_(connection_.prepare("DELETE FROM G_LDOCUM WHERE DOCID = ?")),
        noDocument_(connection_.prepare("DELETE FROM G_DOCUME WHERE ID = ?")) {}

  void remove(const QString& invoice) {
    const std::string number = invoice.toStdString();
    const std::string key = "FC" + number;
    connection_.beginWrite();
    document_.bind(1, key).run();
    storno_.bind(1, number).run();
    struct Line {
      std::string article;
      double quantity;
    };
    std::vector<Line> lines;
    lines_.bind(1, key);
    while (lines_.step()) lines.push_back({std::string(lines_.text(0)), lines_.number(1)});
    lines_.reset();
    later_.bind(1, key).bind(2, lines.front().article).run();
    giveBack(number);
    for (const Line& line : lines) {
      stock_.bind(1, line.article).step();
      const double stock = stock_.number(0) + line.quantity;
      stock_.reset();
      figures_.bind(1, stock).bind(2, line.article).run();
    }
    for (BareStatement* each : {&noLines_, &noDocument_}) each->bind(1, key).run();
    for (BareStatement* each : {&noLinks_, &notes_, &mark_}) each->bind(1, number).run();
    connection_.run("COMMIT");
  }

 private:
  void giveBack(const std::string& number) {
    links_.bind(1, number);
    while (links_.step()) {
      lot_.bind(1, links_.text(0)).bind(2, links_.text(1)).step();
      const double rest = lot_.number(1) + links_.number(2);
      const int line = lot_.integer(0);
      lot_.reset();
      rest_.bind(1, rest).bind(2, links_.text(0)).bind(3, line).run();
    }
    links_.reset();
  }

  BareConnection connection_;
  BareStatement document_, storno_, lines_, later_, links_, lot_, rest_, stock_, figures_, mark_, notes_,
      noLinks_, noLines_, noDocument_;
};

// A draft is validated and deleted at once: two issues of one day would hold each other.
struct Deletions {
  Deletions(Store store, CompanySize size, const QString& name)
      : mine(copyOfCompany(store, size, name + QStringLiteral("-noi.mdb"))),
        theirs(copyOfCompany(store, size, name + QStringLiteral("-direct.mdb"))) {}

  void measureRound() {
    const OpenCompany company(mine.path);
    const auto validation = invoices().bare(theirs.path);
    BareDeletion deletion(theirs.path);
    for (int round = 0; round < 2; ++round, ++draft)
      for (const int lines : kSizes) {
        const QString number = draftNumber(lines, draft);
        invoices().byProgram(number);
        validation->validate(number);
        const double bare = timed([&] { deletion.remove(number); });
        const double ours = timed([&] { takeBack({KindId::CustomerInvoice, number}); });
        if (round == 0) continue;
        pairs[lines].bare.add(bare);
        pairs[lines].ours.add(ours);
      }
  }

  bool agrees() const { return agree(invoices(), mine.path, theirs.path); }

  Used mine, theirs;
  int draft = 0;
  QHash<int, Pair> pairs;
};

}  // namespace

bool measureDeletion(Store store) {
  const Validated& kind = invoices();
  Deletions small(store, kind.small, QStringLiteral("stergere-mic"));
  if (isQuick()) {
    small.measureRound();
    return printAgreement(small.agrees());
  }
  Deletions large(store, kind.large, QStringLiteral("stergere-mare"));
  for (int round = 0; round < kRounds; ++round)
    for (Deletions* each : {&small, &large}) each->measureRound();
  printHeading(store, QStringLiteral("deletion: stergerea unei facturi validate"), kContestColumns);
  for (const int lines : kSizes) {
    for (const auto& [name, ledger] : {std::pair(kind.smallName, &small), std::pair(kind.largeName, &large)})
      printRatio(store, QStringLiteral("deletion"),
                 QStringLiteral("%1 linii, %2").arg(QString::number(lines), name), ledger->pairs[lines],
                 kAim);
    printGrowth(lines, small.pairs[lines], large.pairs[lines]);
  }
  return printAgreement(small.agrees() && large.agrees());
}

}  // namespace velmar::bench
