#include "BareVoucher.h"

#include <cmath>
#include <string>

namespace velmar::bench {

namespace {

constexpr std::string_view kMoment = "2026-03-15 10:00:00.000";

}  // namespace

BareVoucher::BareVoucher(const QString& path)
    : connection_(path),
      header_(
          connection_.prepare("SELECT Magazie, CODFUR, BATVA FROM G_BONINT WHERE NUMNR = ? AND VALIDAT = 0")),
      lines_(connection_.prepare(
          "SELECT CODART, CANT, PRETFT, VALOAREFT, PRETVA FROM G_LBONINT WHERE NUMNR = ? ORDER BY NRLINIE")),
      ledger_(connection_.prepare("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATAINTROD, TIMP, UTILIZATOR, "
                                  "CODMAG, CODTERT, DATADOC, OBS, "
                                  "TOTALTVA, TOTALFT, TOTALCOST, CODDEV, CURS, TOTALDEV) "
                                  "VALUES (?, 'BI', 'I', '2026-03-15', '10:00:00', 'admin', ?, ?, "
                                  "'2026-03-15', 'productie', 0, ?, ?, "
                                  "'LEI', 0, 0)")),
      ledgerLine_(connection_.prepare("INSERT INTO G_LDOCUM (DOCID, LINIE, DATA, CODMAG, ARTID, CANT, "
                                      "PRETFT, PRETTTI, PRETDEV, VALTVA, COST, "
                                      "COSTDEV, VALCOST, VALCOSTDEV, CODTVA, CANTRAMASA, PRETVA) "
                                      "VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0, 0, ?, 0, ?, 0, ?, ?, ?)")),
      article_(
          connection_.prepare("SELECT STOC, COST, ADAOS, PRETVFT, PRETVTTI FROM G_ARTMAG WHERE CODART = ?")),
      figures_(connection_.prepare(
          "UPDATE G_ARTMAG SET STOC = ?, COST = ?, ADAOS = ?, PRETVFT = ?, PRETVTTI = ? WHERE CODART = ?")),
      mark_(connection_.prepare("UPDATE G_BONINT SET VALIDAT = -1 WHERE NUMNR = ? AND VALIDAT = 0")),
      totals_(connection_.prepare(
          "SELECT F.CONTSTOCPROD, SUM(L.VALOAREFT) FROM G_LBONINT L JOIN G_ARTMAG A ON A.CODART = L.CODART "
          "JOIN G_FAMART F ON F.COD = A.FAMART WHERE L.NUMNR = ? GROUP BY F.CONTSTOCPROD ORDER BY 1")),
      journal_(connection_.prepare("SELECT JURBONINTR FROM kt_par ORDER BY ID")),
      lastNote_(connection_.prepare("SELECT MAX(NDI) FROM kt_linii")),
      noteLine_(connection_.prepare("INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, EXPL, DEBIT, "
                                    "CREDIT, DOC, MARCA, COD, PROV, "
                                    "UTILIZATOR, TIMP, DocExplicatie) "
                                    "VALUES (?, ?, ?, '2026-03-15', ?, 'productie', ?, ?, ?, ?, 'LEI', "
                                    "'G', 'admin', ?, 'productie')")),
      stamp_(connection_.prepare("UPDATE kt_linii SET TIPDOC = 'BI' WHERE NDI = ?")) {}

void BareVoucher::validate(const QString& number) {
  const std::string draft = number.toStdString();
  const std::string key = "BI" + draft;
  connection_.beginWrite();
  header_.bind(1, draft).step();
  double total = 0;
  int line = 0;
  lines_.bind(1, draft);
  while (lines_.step()) {
    total += lines_.number(3);
    writeLine(key, ++line);
    updateArticle();
  }
  lines_.reset();
  ledger_.bind(1, key).bind(2, header_.integer(0)).bind(3, header_.integer(1)).bind(4, total).bind(5, total);
  ledger_.run();
  header_.reset();
  mark_.bind(1, draft).run();
  writeNote(draft);
  connection_.run("COMMIT");
}

void BareVoucher::writeLine(const std::string& key, int line) {
  const std::string_view article = lines_.text(0);
  ledgerLine_.bind(1, key).bind(2, line).bind(3, kMoment).bind(4, header_.integer(0)).bind(5, article);
  ledgerLine_.bind(6, lines_.number(1)).bind(7, lines_.number(2)).bind(8, lines_.number(2));
  ledgerLine_.bind(9, lines_.number(2)).bind(10, lines_.number(3)).bind(11, header_.number(2));
  ledgerLine_.bind(12, lines_.number(1)).bind(13, lines_.number(4)).run();
}

void BareVoucher::updateArticle() {
  const std::string_view article = lines_.text(0);
  const double quantity = lines_.number(1);
  const double unitCost = lines_.number(2);
  article_.bind(1, article).step();
  const double stock = article_.number(0) + quantity;
  const double cost = (article_.number(0) * article_.number(1) + quantity * unitCost) / stock;
  article_.reset();
  const double markUp = (lines_.number(4) - unitCost) / unitCost * 100;
  const double price = cost * (1 + markUp / 100);
  figures_.bind(1, stock).bind(2, cost).bind(3, markUp).bind(4, std::nearbyint(price));
  figures_.bind(5, std::nearbyint(price * 1.19)).bind(6, article).run();
}

void BareVoucher::writeNote(const std::string& number) {
  journal_.step();
  const std::string journal(journal_.text(0));
  journal_.reset();
  lastNote_.step();
  const int note = lastNote_.integer(0) + 1;
  lastNote_.reset();
  int line = 0;
  const auto write = [&](std::string_view account, double debit, double credit) {
    noteLine_.bind(1, note).bind(2, ++line).bind(3, journal).bind(4, account).bind(5, debit);
    noteLine_.bind(6, credit).bind(7, number).bind(8, number).bind(9, kMoment).run();
  };
  totals_.bind(1, number);
  while (totals_.step()) {
    write(totals_.text(0), totals_.number(1), 0);
    write("711", 0, totals_.number(1));
  }
  totals_.reset();
  stamp_.bind(1, note).run();
}

}  // namespace velmar::bench
