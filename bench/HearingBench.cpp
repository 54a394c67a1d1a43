// The hearing-device trade compared with bare prepared statements for the same rows: an invoice of 20 orders,
// the list of 100,000 orders, an order from a file.
#include <algorithm>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "Bare.h"
#include "Benches.h"
#include "Fixture.h"
#include "hearing/Invoices.h"
#include "hearing/OrderFile.h"
#include "hearing/Orders.h"
#include "Validated.h"

namespace velmar::bench {

namespace {

constexpr double kInvoiceAim = 2;
constexpr double kListAim = 1.5;
constexpr double kFileAim = 2;
constexpr int kInvoiceOrders = 20;
constexpr int kListedOrders = 100'000;
constexpr int kPatients = 2000;
constexpr int kFirstPatient = 100'000;
constexpr int kInsurer = 200'001;
constexpr int kDoctor = 200'002;
constexpr int kWorkPoint = 200'003;

void fillPartners() {
  std::vector<Values> rows;
  const auto add = [&rows](int code, const QString& name, const char* kind, const char* own) {
    rows.push_back({code, name, kind, own, false});
  };
  add(kInsurer, "CAS", "C", "CAS");
  add(kDoctor, "DOCTOR", "D", "");
  add(kWorkPoint, "PUNCT", "C", "");
  for (int i = 0; i < kPatients; ++i) add(kFirstPatient + i, QStringLiteral("PACIENT %1").arg(i), "P", "");
  database().insertRows("kt_ter", {"COD", "NUME", "TIP", "CodTert", "Reprezentant"}, rows);
}

QStringList devices() {
  QStringList codes;
  for (const Row& row :
       OpenRs("SELECT DISTINCT ARTID FROM G_LDOCUM L WHERE L.CANTRAMASA > 0 ORDER BY ARTID LIMIT 400"))
    codes.append(row.text("ARTID"));
  return codes;
}

void fillOrders(int count, const QStringList& codes) {
  std::vector<Values> rows;
  for (int i = 0; i < count; ++i)
    rows.push_back({QString::number(i + 1), QDate(2024, 1, 1).addDays(i % 800), kFirstPatient + i % kPatients,
                    kDoctor, kInsurer, kWorkPoint, codes[i % codes.size()], Decimal(2100), Decimal(900), true,
                    false, "MEDIE"});
  database().insertRows("G_COMANDA_AUDIO",
                        {"Nr", "Data", "ID_Pacient", "ID_Doctor", "ID_CAS", "ID_PunctLucru", "ID_Dispozitiv",
                         "PretLivrare", "PretReferinta", "UrecheaDreapta", "IsImport", "GradHipoacuzie"},
                        rows);
}

// Drafts of invoices to the insurer, each with the orders of 20 devices; their keys.
std::vector<qint64> fillInvoices(int count) {
  std::vector<qint64> keys;
  for (int i = 0; i < count; ++i) {
    Row header = newInvoice();
    header.set("Nr", QString::number(500'000 + i));
    header.set("Data", QDate(2026, 3, 15));
    header.set("ID_Client", static_cast<qint64>(kInsurer));
    header.set("ID_PunctLucru", static_cast<qint64>(kWorkPoint));
    const qint64 key = addInvoice(header, BilledBy::Insurer);
    for (int line = 0; line < kInvoiceOrders; ++line) attachOrder(key, i * kInvoiceOrders + line + 1);
    keys.push_back(key);
  }
  return keys;
}

// The validation with one statement for each row.
class BareHearing {
 public:
  explicit BareHearing(const QString& path)
      : connection_(path),
        header_(connection_.prepare(
            "SELECT Nr, ID_Client FROM G_FacturiClientiAudio WHERE ID_Factura = ? AND Validat "
            "= 0")),
        lines_(
            connection_.prepare("SELECT ID_Detaliu, ID_Articol, Cant, PretUnitar, Valoare, TVA, Total FROM "
                                "G_FacturaClientiAudio_Detalii WHERE ID_Factura = ? ORDER BY ID_Detaliu")),
        vouchers_(connection_.prepare(
            "SELECT R.Nr FROM G_AsocieriBonuriFacturiAudio L INNER JOIN G_BonReparatii R ON "
            "R.ID_BonReparatie = L.ID_BonReparatie WHERE L.ID_Factura = ?")),
        method_(connection_.prepare("SELECT TCOST FROM kt_info")),
        article_(connection_.prepare(
            "SELECT A.FARASTOC, A.STOC, F.CONTVEN, F.CONTCHELT, F.CONTSTOCMARFA FROM G_ARTMAG "
            "A LEFT JOIN G_FAMART F ON F.COD = A.FAMART WHERE A.CODART = ?")),
        stock_(connection_.prepare("SELECT CANT FROM G_STOCMAG WHERE ARTID = ? AND CODMAG = 1")),
        later_(connection_.prepare(
            "SELECT SUM(L.CANT) FROM G_DOCUME D INNER JOIN G_LDOCUM L ON L.DOCID = D.ID WHERE "
            "L.ARTID = ? AND D.DATADOC > '2026-03-15' AND L.CODMAG = 1 AND D.TIPIE IN ('I', 'S', "
            "'E')")),
        ordered_(connection_.prepare(
            "SELECT SUM(L.CANT - COALESCE(L.CANTLIV, 0)) FROM G_COMCLI C JOIN G_LCOMCL L ON "
            "C.NUMCOM = L.NUMCOM WHERE L.CODART = ? AND C.VALIDAT = -1")),
        lots_(connection_.prepare(
            "SELECT L.DOCID, L.LINIE, L.CANTRAMASA, L.PRETFT, L.COST FROM G_LDOCUM L JOIN "
            "G_DOCUME D ON D.ID = L.DOCID WHERE L.ARTID = ? AND L.CANTRAMASA > 0 ORDER BY "
            "D.DATADOC, L.DATA, L.DOCID, L.LINIE")),
        rest_(connection_.prepare("UPDATE G_LDOCUM SET CANTRAMASA = ? WHERE DOCID = ? AND LINIE = ?")),
        link_(connection_.prepare(
            "INSERT INTO G_I_E (ID_E, TIP_E, ID_I, CODART, CANT) VALUES (?, 'FC', ?, ?, ?)")),
        figures_(connection_.prepare("UPDATE G_ARTMAG SET STOC = ?, COST = ? WHERE CODART = ?")),
        ledger_(connection_.prepare("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATAINTROD, TIMP, UTILIZATOR, "
                                    "CODMAG, CODTERT, DATADOC, TOTALTVA, "
                                    "TOTALFT, TOTALCOST, CODDEV, CURS, TOTALDEV, IsAudio) VALUES (?, 'FC', "
                                    "'E', '2026-03-15', '10:00:00', "
                                    "'admin', 1, ?, '2026-03-15', ?, ?, ?, 'LEI', 0, 0, -1)")),
        ledgerLine_(connection_.prepare(
            "INSERT INTO G_LDOCUM (DOCID, LINIE, DATA, CODMAG, ARTID, CANT, PRETFT, PRETTTI, VALTVA, COST, "
            "VALCOST, "
            "CODTVA) VALUES (?, ?, '2026-03-15 10:00:00.000', 1, ?, ?, ?, ?, ?, ?, ?, 19)")),
        cost_(connection_.prepare("UPDATE G_FacturaClientiAudio_Detalii SET Cost = ? WHERE ID_Detaliu = ?")),
        parameters_(connection_.prepare("SELECT CONTCLIENTI, TVAVANZARE FROM kt_par ORDER BY ID")),
        lastNote_(connection_.prepare("SELECT MAX(NDI) FROM kt_linii")),
        noteLine_(connection_.prepare(
            "INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, DOC, MARCA, COD, "
            "PROV, "
            "UTILIZATOR, TIMP, TIPDOC, FELDOC, TERT, COTATVA, CURS, DEVDEBIT, DEVCREDIT) VALUES (?, ?, ?, "
            "'2026-03-15', ?, ?, ?, ?, ?, 'LEI', 'G', 'admin', '2026-03-15 10:00:00.000', 'FC', 'FC', ?, 19, "
            "0, 0, "
            "0)")),
        mark_(connection_.prepare("UPDATE G_FacturiClientiAudio SET Validat = -1 WHERE ID_Factura = ?")) {}

  void validate(int invoice) {
    connection_.beginWrite();
    header_.bind(1, invoice).step();
    const std::string number(header_.text(0));
    const int client = header_.integer(1);
    header_.reset();
    vouchers_.bind(1, invoice).run();
    method_.run();
    std::vector<Line> lines = linesOf(invoice);
    const std::string key = "FC" + number;
    double value = 0, vat = 0, cost = 0;
    for (Line& line : lines) {
      check(line);
      takeLots(line, number);
      value += line.value;
      vat += line.vat;
      cost += line.cost;
    }
    ledger_.bind(1, key).bind(2, client).bind(3, vat).bind(4, value).bind(5, cost).run();
    int place = 0;
    for (const Line& line : lines) {
      ledgerLine_.bind(1, key)
          .bind(2, ++place)
          .bind(3, line.article)
          .bind(4, line.quantity)
          .bind(5, line.price);
      ledgerLine_.bind(6, line.total).bind(7, line.vat).bind(8, line.cost).bind(9, line.cost).run();
      cost_.bind(1, line.cost).bind(2, line.key).run();
    }
    note(number, client, value, vat, cost);
    mark_.bind(1, invoice).run();
    connection_.run("COMMIT");
  }

  // What an order from a file inserts, once its partners are known.
  void insertOrder(const OrderFile& order) {
    connection_.beginWrite();
    connection_.run("SELECT COD FROM kt_ter WHERE CNP = '1'");
    for (const char* name : {"CAS", "PUNCT", "DOCTOR"})
      connection_.run((std::string("SELECT COD FROM kt_ter WHERE NUME = '") + name + "'").c_str());
    const std::string number = order.number.toStdString();
    connection_.run(
        ("INSERT INTO G_COMANDA_AUDIO (Nr, Data, ID_Pacient, ID_Doctor, ID_CAS, ID_PunctLucru, "
         "ID_Dispozitiv, PretLivrare, PretReferinta, UrecheaDreapta, IsImport, GradHipoacuzie) VALUES ('" +
         number + "', '2026-03-05', 100000, 200002, 200001, 200003, 'A000001', 2101.5, 900, -1, -1, 'X')")
            .c_str());
    for (const char* table : {"G_AudiogramaTonala", "G_AudiogramaVocala"})
      for (const char* ear : {"0", "-1"})
        connection_.run((std::string("INSERT INTO ") + table +
                         " (ID_Comanda, UrecheaDreapta, Urechea) SELECT MAX(ID_Comanda), " + ear +
                         ", 'x' FROM G_COMANDA_AUDIO")
                            .c_str());
    connection_.run("COMMIT");
  }

  BareConnection& connection() { return connection_; }

 private:
  struct Line {
    int key;
    std::string article;
    double quantity, price, value, vat, total, cost = 0, stock = 0;
  };

  std::vector<Line> linesOf(int invoice) {
    std::vector<Line> lines;
    lines_.bind(1, invoice);
    while (lines_.step())
      lines.push_back({lines_.integer(0), std::string(lines_.text(1)), lines_.number(2), lines_.number(3),
                       lines_.number(4), lines_.number(5), lines_.number(6)});
    lines_.reset();
    return lines;
  }

  void check(Line& line) {
    article_.bind(1, line.article).step();
    line.stock = article_.number(1);
    article_.reset();
    for (BareStatement* each : {&stock_, &later_, &ordered_}) each->bind(1, line.article).run();
  }

  void takeLots(Line& line, const std::string& number) {
    double wanted = line.quantity;
    lots_.bind(1, line.article);
    struct Taken {
      std::string document;
      int place;
      double rest, taken;
    };
    std::vector<Taken> taken;
    while (wanted > 0 && lots_.step()) {
      const double part = std::min(wanted, lots_.number(2));
      taken.push_back({std::string(lots_.text(0)), lots_.integer(1), lots_.number(2) - part, part});
      line.cost += part * lots_.number(3);
      wanted -= part;
    }
    lots_.reset();
    for (const Taken& each : taken) {
      rest_.bind(1, each.rest).bind(2, each.document).bind(3, each.place).run();
      link_.bind(1, number).bind(2, each.document).bind(3, line.article).bind(4, each.taken).run();
    }
    figures_.bind(1, line.stock - line.quantity).bind(2, line.cost).bind(3, line.article).run();
  }

  void note(const std::string& number, int client, double value, double vat, double cost) {
    parameters_.run();
    lastNote_.step();
    const int note = lastNote_.integer(0) + 1;
    lastNote_.reset();
    int place = 0;
    const auto row = [&](const char* journal, const char* account, double debit, double credit) {
      noteLine_.bind(1, note)
          .bind(2, ++place)
          .bind(3, std::string_view(journal))
          .bind(4, std::string_view(account));
      noteLine_.bind(5, debit).bind(6, credit).bind(7, number).bind(8, number).bind(9, client).run();
    };
    row("JV", "411", value + vat, 0.0);
    row("JV", "707", 0.0, value);
    row("JV", "4427", 0.0, vat);
    row("OD", "607", cost, 0.0);
    row("OD", "371", 0.0, cost);
  }

  BareConnection connection_;
  BareStatement header_, lines_, vouchers_, method_, article_, stock_, later_, ordered_, lots_, rest_, link_,
      figures_, ledger_, ledgerLine_, cost_, parameters_, lastNote_, noteLine_, mark_;
};

QByteArray orderXml(const QString& number) {
  const auto cells = [](int count) { return QStringLiteral("<c>40</c>").repeated(count); };
  return QStringLiteral(
             "<comanda><nrComanda>%1</nrComanda><dataComanda><zi>5</zi><luna>3</luna><an>2026</an></"
             "dataComanda>"
             "<dateClient><nume>PACIENT</nume><prenume>0</prenume><adresa/><biSerie/><biNr/><cnp/><politia/>"
             "<data><zi>1</zi><luna>2</luna><an>2020</an></data></dateClient><doctor>DOCTOR</doctor>"
             "<punctLucru><nume>PUNCT</nume></punctLucru><dateDispozitivMedical><numeDispMedical>A000001"
             "</numeDispMedical><gradHipoAcuzie>X</gradHipoAcuzie><serieDisp>S</"
             "serieDisp><pretLivrare>2.101,50"
             "</pretLivrare><pretReferinta>900</pretReferinta><urechea><dreapta>true</dreapta></urechea>"
             "</dateDispozitivMedical><decizie><nrDecizie>D</nrDecizie><dataDecizie><zi>1</zi><luna>3</luna>"
             "<an>2026</an></dataDecizie></decizie><cas>CAS</cas><nrCarnetAsigurat>C</nrCarnetAsigurat>"
             "<certificatGarantie><nr>G</nr><data><zi>6</zi><luna>3</luna><an>2026</an></data></"
             "certificatGarantie>"
             "<audiogramaTonala><stanga>%2</stanga><dreapta>%2</dreapta></audiogramaTonala><audiogramaVocala>"
             "<stanga>%3</stanga><dreapta>%3</dreapta></audiogramaVocala></comanda>")
      .arg(number, cells(7), cells(21))
      .toUtf8();
}

void report(Store store, const QString& name, const Pair& pair, double aim) {
  printRatio(store, QStringLiteral("hearing"), name, pair, aim);
}

// Each in its own copy of the same company, in turns.
void measureInvoice(Store store) {
  const QString path = copyOfCompany(store, CompanySize::Trade, QStringLiteral("auz-noi.mdb"));
  const QString other = copyOfCompany(store, CompanySize::Trade, QStringLiteral("auz-direct.mdb"));
  constexpr int kInvoices = kRounds + 1;
  std::vector<qint64> keys;
  for (const QString& each : {other, path}) {
    const OpenCompany company(each);
    fillPartners();
    fillOrders(kInvoices * kInvoiceOrders, devices());
    keys = fillInvoices(kInvoices);
  }
  const OpenCompany company(path);
  BareHearing bare(other);
  Pair pair;
  for (int i = 0; i < kInvoices; ++i) {
    const qint64 key = keys[static_cast<size_t>(i)];
    const double theirs = timed([&] { bare.validate(static_cast<int>(key)); });
    const double ours = timed([&] { validateInvoice(storedInvoice(key), invoiceLines(key)); });
    if (i == 0) continue;
    pair.bare.add(theirs);
    pair.ours.add(ours);
  }
  report(store, QStringLiteral("factura din 20 de comenzi"), pair, kInvoiceAim);
  removeCompany(path);
  removeCompany(other);
}

void measureList(Store store) {
  const QString path = copyOfCompany(store, CompanySize::Trade, QStringLiteral("auz-lista.mdb"));
  const OpenCompany company(path);
  fillPartners();
  fillOrders(kListedOrders, devices());
  BareConnection bare(path);
  const std::string joined =
      "SELECT C.*, T.NUME, A.DENART, P.NUME, D.NUME, W.NUME FROM G_COMANDA_AUDIO C LEFT JOIN G_ARTMAG A ON "
      "A.CODART = C.ID_Dispozitiv LEFT JOIN kt_ter T ON T.COD = C.ID_CAS LEFT JOIN kt_ter P ON P.COD = "
      "C.ID_Pacient LEFT JOIN kt_ter D ON D.COD = C.ID_Doctor LEFT JOIN kt_ter W ON W.COD = C.ID_PunctLucru "
      "WHERE NOT (A.CODART IS NULL OR T.COD IS NULL OR P.COD IS NULL OR D.COD IS NULL)";
  BareStatement page =
      bare.prepare((joined + " ORDER BY C.Data DESC NULLS LAST, C.ID_Comanda DESC LIMIT 100").c_str());
  BareStatement filtered = bare.prepare(
      (joined + " AND C.ID_Pacient = 100007 ORDER BY C.Data DESC NULLS LAST, C.ID_Comanda DESC").c_str());
  const Condition patient{QStringLiteral("ID_Pacient = ?"), {static_cast<qint64>(kFirstPatient + 7)}};
  const auto shown = [](const Condition& condition) {
    const ListRows rows(kAudioOrders, condition, "Data", true, ListRows::Read::FirstPart);
    rows.fetch(0, std::min(99, rows.size() - 1));
  };
  Pair first, found;
  for (int round = 0; round < kRounds; ++round) {
    first.bare.add(timed([&] { page.readAll(); }));
    first.ours.add(timed([&] { shown({}); }));
    found.bare.add(timed([&] { filtered.readAll(); }));
    found.ours.add(timed([&] { shown(patient); }));
  }
  report(store, QStringLiteral("100.000 de comenzi: prima pagina"), first, kListAim);
  report(store, QStringLiteral("100.000 de comenzi: filtru"), found, kListAim);

  const QTemporaryDir folder;
  BareHearing inserts(path);
  Pair read;
  for (int round = 0; round < kRounds; ++round) {
    const QByteArray bytes = orderXml(QStringLiteral("F%1").arg(round));
    const QString file = folder.filePath("comanda.xml");
    QFile written(file);
    if (!written.open(QIODevice::WriteOnly)) return;
    written.write(bytes);
    written.close();
    read.bare.add(
        timed([&] { inserts.insertOrder(readOrderFile(orderXml(QStringLiteral("B%1").arg(round)))); }));
    read.ours.add(timed([&] { importOrder(file); }));
  }
  report(store, QStringLiteral("comanda dintr-un fisier"), read, kFileAim);
  removeCompany(path);
}

}  // namespace

bool measureHearing(Store store) {
  printHeading(store, QStringLiteral("hearing: aparate auditive"), kContestColumns);
  measureInvoice(store);
  measureList(store);
  return true;
}

}  // namespace velmar::bench
