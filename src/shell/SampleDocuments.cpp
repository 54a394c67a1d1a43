#include "shell/SampleDocuments.h"

#include <algorithm>

#include "config/Session.h"
#include "documents/DocumentEditor.h"
#include "documents/LineSource.h"
#include "shell/Willing.h"
#include "stock/Availability.h"
#include "store/Database.h"
#include "util/Clock.h"

namespace velmar {

namespace {

constexpr int kDaysBack = 182;
constexpr int kVouchers = 40;
constexpr int kPurchases = 26;
constexpr int kSales = 52;
constexpr int kConsumptions = 13;
constexpr int kCashSales = 60;
constexpr int kCardEvery = 3;      // cash sales
constexpr int kForeignEvery = 17;  // sales
constexpr auto kVatOfSales = "2";

using Texts = QHash<QString, QString>;

class SampleTrade {
 public:
  explicit SampleTrade(const SampleCatalogue& catalogue) : catalogue_(catalogue) {}

  void voucher(int number, const QDate& date) {
    DocumentEditor editor("BI");
    begin(editor, date,
          {{"NUMNR", QString::number(number)},
           {"CODFUR", pick(catalogue_.suppliers, number)},
           {"OBS", QStringLiteral("Productie %1").arg(date.toString("dd.MM.yyyy"))}});
    for (const auto& [article, position] : articles(catalogue_.products, 6))
      receive(editor, article, cost(position, number), 5 + dice_.below(40));
    // The last one remains a draft, for the user to validate.
    if (number < kVouchers) validate(editor);
  }

  void purchase(int number, const QDate& date) {
    DocumentEditor editor("FF");
    const QString key = QStringLiteral("F%1").arg(1200 + number * 3);
    begin(editor, date,
          {{"NUMFAC", key},
           {"CODFUR", pick(catalogue_.suppliers, number)},
           {"DATASCAD", iso(date.addMonths(1))},
           {"OBS", QStringLiteral("Aprovizionare")}});
    for (const auto& [article, position] : articles(catalogue_.goods, 6))
      receive(editor, article, cost(position, number), 10 + dice_.below(60));
    validate(editor);
  }

  void sale(int number, const QDate& date) {
    const Stock stock = sellable(catalogue_.goods + catalogue_.products);
    if (stock.codes.isEmpty()) return;
    DocumentEditor editor("FC");
    Texts header{{"CODCLI", pick(catalogue_.customers, number)},
                 {"BATVA1", kVatOfSales},
                 {"DATASCAD", iso(date.addMonths(1))},
                 {"OBS", QStringLiteral("Comanda telefonica")},
                 {"DataCombo2", "COM"}};
    const bool isForeign = number % kForeignEvery == 0;
    if (isForeign) {
      header.insert("chkDeviza", "-1");
      header.insert("CODDeviza", "EUR");
      header.insert("Curs", "4,9750");
    }
    begin(editor, date, header);
    issue(editor, stock, 4);
    // Prices of the catalogue are in lei.
    for (size_t line = 0; isForeign && line < editor.lines().size(); ++line)
      editor.setNumber(line, "PRETFT", Round(editor.lines()[line].decimal("PRETFT") / 5, 2).toString());
    validate(editor);
  }

  void cashSale(int number, const QDate& date) {
    const Stock stock = sellable(catalogue_.goods);
    if (stock.codes.isEmpty()) return;
    DocumentEditor editor("BS");
    Texts header{{"BATVA1", kVatOfSales}, {"DataCombo2", "COM"}};
    if (number % kCardEvery == 0) {
      header.insert("CheckCard", "-1");
      header.insert("MODREG", "ALTELE");
      header.insert("OBS", "Incasare card");
    }
    begin(editor, date, header);
    issue(editor, stock, 2);
    if (number < kCashSales) validate(editor);  // the last one remains a draft too
  }

  void consumption(int number, const QDate& date) {
    const Stock stock = sellable(catalogue_.goods + catalogue_.products);
    if (stock.codes.isEmpty()) return;
    DocumentEditor editor("BC");
    begin(editor, date,
          {{"NUMAE", QString::number(number)},
           {"CODCLI", pick(catalogue_.customers, 0)},
           {"BATVA1", "19"},
           {"DataCombo2", "ADM"},
           {"OBSERV", QStringLiteral("Consum propriu")}});
    issue(editor, stock, 2);
    validate(editor);
  }

  // One article from the order to its supplier to the invoice and its storno, with all kinds of documents.
  void chain(const QDate& date) {
    const QString article = catalogue_.goods.first();
    const QString supplier = pick(catalogue_.suppliers, 0), customer = pick(catalogue_.customers, 1);
    enter("CF", date, {{"NUMCOM", "501"}, {"CODFUR", supplier}}, {article, "40", "PRETFT", "6"});
    from("NR", date, {{"NUMNR", "601"}, {"CODFUR", supplier}}, KindId::SupplierOrder, "501", "25");
    from("NR", date, {{"NUMNR", "602"}, {"CODFUR", supplier}}, KindId::SupplierOrder, "501", {});
    enter("PR", date, {{"NUMPF", "701"}, {"CODCLI", customer}}, {article, "6", {}, {}});
    enter("CC", date, {{"NUMCOM", "801"}, {"CODCLI", customer}}, {article, "6", {}, {}});
    const QString invoice =
        from("FC", date, {{"CODCLI", customer}, {"BATVA1", kVatOfSales}}, KindId::CustomerOrder, "801", {});
    enter("AE", date, {{"NUMAE", "901"}, {"CODCLI", customer}}, {article, "10", {}, {}});
    from("FC", date, {{"CODCLI", customer}, {"BATVA1", kVatOfSales}}, KindId::DeliveryNote, "901", "4");
    from("NR", date, {{"NUMNR", "603"}, {"CODFUR", supplier}}, KindId::DeliveryNote, "901", "1");
    from("FC", date, {{"CODCLI", customer}, {"BATVA1", kVatOfSales}}, KindId::DeliveryNote, "901", {});
    enter("BT", date, {{"NUMAE", "951"}, {"DESTMAGAZIE", "2"}}, {article, "5", {}, {}});
    enter("FI", date,
          {{"NUMFAC", "E77"},
           {"CODFUR", supplier},
           {"CODFURTR", supplier},
           {"CODVALUTA", "EUR"},
           {"CURSVALUTA", "4,975"}},
          {article, "20", "PRETVAL", "1,2"});
    DocumentEditor storno("FS");
    storno.open(invoice);
    validate(storno);
    // What is still open on both sides: goods to deliver, goods to receive, a note to bill.
    enter("CC", date, {{"NUMCOM", "802"}, {"CODCLI", customer}}, {article, "3", {}, {}});
    enter("CF", date, {{"NUMCOM", "502"}, {"CODFUR", supplier}}, {article, "30", "PRETFT", "6"});
    enter("AE", date, {{"NUMAE", "902"}, {"CODCLI", customer}}, {article, "2", {}, {}});
  }

 private:
  struct Line {
    QString article, quantity, priceColumn, price;
  };

  static void enter(const QString& prefix, const QDate& date, const Texts& header, const Line& line) {
    DocumentEditor editor(prefix);
    begin(editor, date, header);
    editor.setArticle(0, line.article);
    editor.setNumber(0, "CANT", line.quantity);
    if (!line.priceColumn.isEmpty()) editor.setNumber(0, line.priceColumn, line.price);
    validate(editor);
  }

  // Enters a document from another one; an empty quantity takes all. Returns its number.
  static QString from(const QString& prefix, const QDate& date, const Texts& header, KindId source,
                      const QString& number, const QString& quantity) {
    DocumentEditor editor(prefix);
    begin(editor, date, header);
    for (const LineSource* offered : editor.kind().sources)
      if (offered->kind() == source) editor.addLines(*offered, number, editor.headerTexts());
    if (!quantity.isEmpty()) editor.setNumber(0, "CANT", quantity);
    validate(editor);
    return editor.number();
  }

  struct Stock {
    QStringList codes;
    Quantities quantities;
  };

  static QString iso(const QDate& date) { return date.toString(Qt::ISODate); }

  static QString pick(const std::vector<qint64>& codes, int number) {
    return QString::number(codes[static_cast<size_t>(number) % codes.size()]);
  }

  static void begin(DocumentEditor& editor, const QDate& date, const Texts& typed) {
    editor.newDocument();
    Texts header = editor.headerTexts();
    header.insert(editor.kind().dateColumn, iso(date));
    for (auto it = typed.cbegin(); it != typed.cend(); ++it) header.insert(it.key(), it.value());
    editor.save(header);
  }

  static void validate(DocumentEditor& editor) {
    const Texts header = editor.headerTexts();
    if (editor.checkLines()) editor.validate(header);
  }

  // The cost of an article varies little and increases slowly over the months.
  Decimal cost(int position, int number) {
    return Decimal(450 + position * 137 + number * 3 + dice_.below(40)) / 100;
  }

  std::vector<std::pair<QString, int>> articles(const QStringList& codes, int count) {
    std::vector<std::pair<QString, int>> chosen;
    const int start = dice_.below(static_cast<int>(codes.size()));
    for (int i = 0; i < count; ++i) {
      const int position = (start + i * 7) % static_cast<int>(codes.size());
      chosen.emplace_back(codes[position], position);
    }
    return chosen;
  }

  static void receive(DocumentEditor& editor, const QString& article, const Decimal& cost, int quantity) {
    const size_t line = editor.setArticle(editor.lines().size(), article);
    editor.setNumber(line, "CANT", QString::number(quantity));
    editor.setNumber(line, "PRETFT", cost.toString());
    editor.setNumber(line, "PRETVA", Round(cost * Decimal(14) / 10, 2).toString());
  }

  // The articles of which the warehouse has at least some pieces.
  static Stock sellable(const QStringList& all) {
    constexpr int kSome = 4;
    Stock stock;
    stock.quantities = warehouseStock(all, session().gMagazie);
    for (const QString& code : all)
      if (stock.quantities.of(code) >= kSome) stock.codes.append(code);
    return stock;
  }

  void issue(DocumentEditor& editor, const Stock& stock, int count) {
    const int most = static_cast<int>(stock.codes.size());
    const int start = dice_.below(most);
    for (int i = 0; i < std::min(count, most); ++i) {
      const QString& code = stock.codes[(start + i) % most];
      const int there = static_cast<int>(stock.quantities.of(code).toDouble());
      const size_t line = editor.setArticle(editor.lines().size(), code);
      editor.setNumber(line, "CANT", QString::number(1 + dice_.below(there / 2)));
    }
  }

  const SampleCatalogue& catalogue_;
  SampleDice dice_;
};

struct Planned {
  QDate date;
  void (SampleTrade::*enter)(int number, const QDate& date);
  int number;
};

}  // namespace

void addSampleDocuments(const SampleCatalogue& catalogue) {
  const QDate last = clock::today();
  const QDate first = std::max(session().DataIC, last.addDays(-kDaysBack));
  const int days = static_cast<int>(first.daysTo(last));
  std::vector<Planned> plan;
  const auto spread = [&](int count, auto enter) {
    for (int number = 1; number <= count; ++number)
      plan.push_back({first.addDays(days * number / count), enter, number});
  };
  spread(kVouchers, &SampleTrade::voucher);
  spread(kPurchases, &SampleTrade::purchase);
  spread(kSales, &SampleTrade::sale);
  spread(kConsumptions, &SampleTrade::consumption);
  spread(kCashSales, &SampleTrade::cashSale);
  std::stable_sort(plan.begin(), plan.end(),
                   [](const Planned& a, const Planned& b) { return a.date < b.date; });
  SampleTrade trade(catalogue);
  Transaction transaction(database());  // one transaction for all: nobody else uses the company yet
  for (const Planned& document : plan) (trade.*document.enter)(document.number, document.date);
  const Willing willing;
  trade.chain(last);
  transaction.commit();
}

}  // namespace velmar
