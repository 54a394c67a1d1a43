// The drop-down of articles while the user types, with 100,000 articles, compared with one bare statement
// that returns the same rows.
#include "Bare.h"
#include "Benches.h"
#include "config/Lists.h"
#include "Fixture.h"

namespace velmar::bench {

namespace {

constexpr int kArticles = 100'000;
constexpr int kShown = 50;
constexpr double kAimMs = 50;

struct Search {
  const char* name;
  const char* typed;
};

constexpr Search kSearches[] = {
    {"nimic tastat", ""},
    {"o litera", "s"},
    {"primele litere", "sca"},
    {"denumire aproape intreaga", "Robinet model 7391"},
    {"parte din denumire", "lavab"},
    {"parte rara din denumire", "el 73911"},
    {"cod", "A012345"},
    {"parte din cod", "12345"},
    {"cod furnizor", "F-17-"},
    {"fara potrivire", "zzzq"},
};

constexpr const char* kOneStatement =
    "SELECT COALESCE(DENART, '') || ' (' || CODART || ')', CODART, UM, NULL FROM G_ARTMAG "
    "WHERE DENART LIKE ? OR CODART LIKE ? OR CODPRODFUR LIKE ? "
    "ORDER BY CASE WHEN DENART LIKE ? OR CODART LIKE ? THEN 0 ELSE 1 END, DENART, CODART LIMIT 50";

}  // namespace

bool measureArticles(Store store) {
  const QString path = companyWithArticles(store, kArticles);
  const OpenCompany company(path);
  BareConnection bare(path);
  BareStatement one = bare.prepare(kOneStatement);
  printHeading(store, QStringLiteral("articles: lista la 100.000 articole"),
               {QStringLiteral("median"), QStringLiteral("maxim"), QStringLiteral("o instr."),
                QStringLiteral("randuri"), QStringLiteral("tinta")});
  for (const Search& search : kSearches) {
    const QString typed = QString::fromLatin1(search.typed);
    const std::string begins = typed.toStdString() + "%";
    const std::string holds = "%" + begins;
    Times ours;
    Times single;
    int rows = 0;
    for (int round = 0; round < kRounds; ++round) {
      ours.add(timed([&] { rows = findArticles(articleList({}), typed, kShown).size(); }));
      single.add(timed(
          [&] { one.bind(1, holds).bind(2, holds).bind(3, holds).bind(4, begins).bind(5, begins).run(); }));
    }
    noteRatio(QStringLiteral("articles: ") + QString::fromLatin1(search.name), store,
              ours.median() / single.median());
    printRow(QString::fromLatin1(search.name),
             {milliseconds(ours.median()),
              milliseconds(ours.worst()) + (ours.worst() > kAimMs ? QStringLiteral(" !") : QString()),
              milliseconds(single.median()), QString::number(rows), QStringLiteral("<= 50 ms")});
  }
  return true;
}

}  // namespace velmar::bench
