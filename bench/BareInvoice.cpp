#include "BareInvoice.h"

#include <algorithm>
#include <cmath>

#include "util/Errors.h"

namespace velmar::bench {

namespace {

constexpr std::string_view kMoment = "2026-03-15 10:00:00.000";

double rounded(double value, double scale) { return std::nearbyint(value * scale) / scale; }

// The costs of articles of that origin, by groups.
std::string costsBy(const std::string& groups, const std::string& origin) {
  return "SELECT " + groups +
         ", SUM(L.COST) FROM G_LFACCL L JOIN G_ARTMAG A ON A.CODART = L.CODART JOIN G_FAMART F ON F.COD = "
         "A.FAMART WHERE L.NUMFAC = ? AND A.PROVENIENTA = '" +
         origin + "' AND A.FARASTOC = 0 GROUP BY " + groups + " ORDER BY " + groups;
}

}  // namespace

BareInvoice::BareInvoice(const QString& path)
    : connection_(path),
      number_(connection_, "FC"),
      header_(connection_.prepare("SELECT Magazie, CODCLI, MODREG, DATASCAD, OBS, SERIE FROM G_FACCLI "
                                  "WHERE NUMFAC = ? AND VALIDAT = 0")),
      lines_(connection_.prepare("SELECT NRLINIE, CODART, CANT, ValoareFTCuDiscount, VALOAREFT, VALOARETVA "
                                 "FROM G_LFACCL WHERE NUMFAC = ? ORDER BY NRLINIE")),
      rate_(connection_.prepare("SELECT PROCENT, CONT FROM kt_cote WHERE COD = 2")),
      method_(connection_.prepare("SELECT TCOST FROM kt_info")),
      stock_(connection_.prepare(kStockRead)),
      ordered_(connection_.prepare(kOrderedRead)),
      article_(connection_.prepare(kArticleRead)),
      lots_(connection_.prepare(kLotsRead)),
      rest_(connection_.prepare("UPDATE G_LDOCUM SET CANTRAMASA = ? WHERE DOCID = ? AND LINIE = ?")),
      link_(connection_.prepare(
          "INSERT INTO G_I_E (ID_E, TIP_E, ID_I, CODART, CANT) VALUES (?, 'FC', ?, ?, ?)")),
      cost_(connection_.prepare("UPDATE G_ARTMAG SET COST = ? WHERE CODART = ?")),
      draftCost_(connection_.prepare("UPDATE G_LFACCL SET COST = ? WHERE NUMFAC = ? AND NRLINIE = ?")),
      ledger_(connection_.prepare(
          "INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATAINTROD, TIMP, UTILIZATOR, CODMAG, CODTERT, DATADOC, "
          "OBS, "
          "TOTALTVA, TOTALFT, TOTALCOST, CODDEV, TOTALDEV, DATASCAD, MODREG, SERIE) VALUES (?, 'FC', 'E', "
          "'2026-03-15', '10:00:00', 'admin', ?, ?, '2026-03-15', ?, ?, ?, ?, 'LEI', 0, ?, ?, ?)")),
      ledgerLine_(connection_.prepare(
          "INSERT INTO G_LDOCUM (DOCID, LINIE, DATA, CODMAG, ARTID, CANT, PRETFT, PRETTTI, PRETDEV, VALTVA, "
          "COST, COSTDEV, VALCOST, VALCOSTDEV, CODTVA, PROCRAB, VALRAB) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0, ?, ?, 0, ?, 0, ?, 0, ?)")),
      figures_(connection_.prepare("UPDATE G_ARTMAG SET STOC = ? WHERE CODART = ?")),
      mark_(connection_.prepare("UPDATE G_FACCLI SET VALIDAT = -1 WHERE NUMFAC = ? AND VALIDAT = 0")),
      parameters_(connection_.prepare("SELECT JURFACCLI, JURBONCONS, CONTCLIENTI FROM kt_par ORDER BY ID")),
      sales_(connection_.prepare(
          "SELECT F.CONTVEN, SUM(L.VALOAREFT), SUM(L.VALOARETVA) FROM G_LFACCL L JOIN G_ARTMAG A "
          "ON A.CODART = L.CODART JOIN G_FAMART F ON F.COD = A.FAMART WHERE L.NUMFAC = ? "
          "GROUP BY F.CONTVEN ORDER BY 1")),
      goods_(connection_.prepare(costsBy("F.CONTCHELT, F.CONTSTOCMARFA, L.CANT", "M").c_str())),
      products_(connection_.prepare(costsBy("F.CONTSTOCPROD", "P").c_str())),
      lastNote_(connection_.prepare("SELECT MAX(NDI) FROM kt_linii")),
      noteLine_(connection_.prepare(
          "INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, EXPL, DEBIT, CREDIT, DOC, MARCA, COD, "
          "PROV, UTILIZATOR, TIMP, DocExplicatie, TIPDOC, TERT, TVA_LINREF, COTATVA, DATASCAD, CURS, "
          "DEVDEBIT, DEVCREDIT) VALUES (?, ?, ?, '2026-03-15', ?, ?, ?, ?, ?, ?, 'LEI', 'G', 'admin', ?, ?, "
          "NULLIF(?, ''), NULLIF(?, 0), NULLIF(?, 0), NULLIF(?, 0), ?, 0, 0, 0)")) {}

void BareInvoice::validate(const QString& number) {
  number_.next();
  const std::string draft = number.toStdString();
  connection_.beginWrite();
  const Head head = headOf(draft);
  std::vector<Sold> lines = sold(number);
  if (isShort(lines)) throw RuleError(QStringLiteral("Stocul nu ajunge."));
  method_.run();
  rate_.step();
  const Rate rate{rate_.number(0), std::string(rate_.text(1))};
  rate_.reset();
  for (Sold& line : lines) takeLots(line, draft);
  writeLedger(draft, head, rate, lines);
  for (const Sold& line : lines) figures_.bind(1, line.stock - line.quantity).bind(2, line.article).run();
  mark_.bind(1, draft).run();
  writeNotes(draft, head, rate);
  connection_.run("COMMIT");
}

BareInvoice::Head BareInvoice::headOf(const std::string& number) {
  header_.bind(1, number).step();
  const Head head{header_.integer(0),           header_.integer(1),           header_.integer(2),
                  std::string(header_.text(3)), std::string(header_.text(4)), std::string(header_.text(5))};
  header_.reset();
  return head;
}

std::vector<BareInvoice::Sold> BareInvoice::sold(const QString& number) {
  const std::string draft = number.toStdString();
  std::vector<Sold> found;
  lines_.bind(1, draft);
  while (lines_.step())
    found.push_back({lines_.integer(0), std::string(lines_.text(1)), lines_.number(2), lines_.number(3),
                     lines_.number(4), lines_.number(5)});
  lines_.reset();
  return found;
}

bool BareInvoice::isShort(std::vector<Sold>& lines) {
  return std::any_of(lines.begin(), lines.end(), [this](Sold& line) {
    article_.bind(1, line.article).step();
    const bool isHeld = article_.integer(0) == 0;
    line.stock = article_.number(1);
    article_.reset();
    stock_.bind(1, line.article).step();
    double available = stock_.number(0);
    stock_.reset();
    ordered_.bind(1, line.article).step();
    available -= std::abs(ordered_.number(0));
    ordered_.reset();
    return isHeld && available < line.quantity;
  });
}

void BareInvoice::takeLots(Sold& line, const std::string& number) {
  struct Lot {
    std::string document;
    int line;
    double rest, unit, cost;
  };
  std::vector<Lot> open;
  lots_.bind(1, line.article);
  while (lots_.step())
    open.push_back(
        {std::string(lots_.text(0)), lots_.integer(1), lots_.number(2), lots_.number(3), lots_.number(4)});
  lots_.reset();
  double missing = line.quantity;
  for (const Lot& lot : open) {
    if (missing <= 0) break;
    const double taken = std::min(missing, lot.rest);
    const double rest = rounded(lot.rest - taken, 1000);
    line.cost += taken * lot.unit;
    missing -= taken;
    rest_.bind(1, rest).bind(2, lot.document).bind(3, lot.line).run();
    link_.bind(1, number).bind(2, lot.document).bind(3, line.article).bind(4, taken).run();
    if (rest > 0) cost_.bind(1, lot.cost).bind(2, line.article).run();
  }
  line.cost = rounded(line.cost, 10'000);
  draftCost_.bind(1, line.cost).bind(2, number).bind(3, line.line).run();
}

void BareInvoice::writeLedger(const std::string& number, const Head& head, const Rate& rate,
                              const std::vector<Sold>& lines) {
  const std::string key = "FC" + number;
  double value = 0, vat = 0, cost = 0;
  int place = 0;
  for (const Sold& line : lines) {
    value += line.value;
    vat += line.vat;
    cost += line.cost;
    ledgerLine_.bind(1, key).bind(2, ++place).bind(3, kMoment).bind(4, head.warehouse).bind(5, line.article);
    ledgerLine_.bind(6, line.quantity).bind(7, line.price);
    ledgerLine_.bind(8, std::nearbyint(line.price * (100 + rate.percent)) / 100).bind(9, line.vat);
    ledgerLine_.bind(10, line.cost / line.quantity).bind(11, line.cost).bind(12, rate.percent);
    ledgerLine_.bind(13, line.price).run();
  }
  ledger_.bind(1, key).bind(2, head.warehouse).bind(3, head.partner).bind(4, head.remark).bind(5, vat);
  ledger_.bind(6, value).bind(7, cost).bind(8, head.due).bind(9, head.payment).bind(10, head.series).run();
}

void BareInvoice::writeNotes(const std::string& number, const Head& head, const Rate& rate) {
  parameters_.step();
  const std::string journals[] = {std::string(parameters_.text(0)), std::string(parameters_.text(1))};
  const std::string customers(parameters_.text(2));
  parameters_.reset();
  lastNote_.step();
  int note = lastNote_.integer(0) + 1;
  lastNote_.reset();
  int line = 0;
  std::string_view stamp;
  struct Marks {
    int partner = 0, vatLink = 0;
    double percent = 0;
  };
  const auto write = [&](const std::string& journal, std::string_view account, double debit, double credit,
                         const Marks& marks) {
    noteLine_.bind(1, note).bind(2, ++line).bind(3, journal).bind(4, account).bind(5, head.remark);
    noteLine_.bind(6, debit).bind(7, credit).bind(8, number).bind(9, number).bind(10, kMoment);
    noteLine_.bind(11, head.remark).bind(12, stamp).bind(13, marks.partner).bind(14, marks.vatLink);
    noteLine_.bind(15, marks.percent).bind(16, head.due).run();
  };
  double value = 0, vat = 0;
  sales_.bind(1, number);
  while (sales_.step()) {
    value += sales_.number(1);
    vat += sales_.number(2);
    write(journals[0], sales_.text(0), 0, sales_.number(1), {0, 1, rate.percent});
  }
  sales_.reset();
  write(journals[0], rate.account, 0, vat, {0, 1, 0});
  write(journals[0], customers, value + vat, 0, {head.partner, 0, 0});
  ++note;
  line = 0;
  stamp = "FC";
  goods_.bind(1, number);
  while (goods_.step()) {
    write(journals[1], goods_.text(0), goods_.number(3), 0, {});
    write(journals[1], goods_.text(1), 0, goods_.number(3), {});
  }
  goods_.reset();
  products_.bind(1, number).run();
}

}  // namespace velmar::bench
