#include "shell/SampleHearing.h"

#include <algorithm>

#include "catalogue/Articles.h"
#include "catalogue/Families.h"
#include "catalogue/Partners.h"
#include "config/Session.h"
#include "documents/DocumentEditor.h"
#include "documents/Numbering.h"
#include "hearing/Cancellation.h"
#include "hearing/Invoices.h"
#include "hearing/OrderFile.h"
#include "hearing/Orders.h"
#include "hearing/RepairVouchers.h"
#include "shell/SampleDocuments.h"
#include "shell/Willing.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"

// Outside the namespace, like the functions that the resource compiler generates.
static void loadOrderFiles() { Q_INIT_RESOURCE(sample); }

namespace velmar {

namespace {

constexpr int kDaysBack = 182;
constexpr int kTypedOrders = 37;
const char* const kOrderFiles[] = {":/sample/comanda-F901.xml", ":/sample/comanda-F902.xml",
                                   ":/sample/comanda-F903.xml"};

struct Person {
  const char* name;
  const char* number;
};
constexpr Person kPatients[] = {{"POPESCU ION", "1450504057392"},    {"IONESCU MARIA", "2550805050939"},
                                {"DUMITRU VASILE", "1340113055632"}, {"STAN ELENA", "2480108055332"},
                                {"GHEORGHE PETRU", "1640609057992"}, {"MARIN ANA", "2410209052203"},
                                {"TUDOR NICOLAE", "1311126052678"},  {"DOBRE IOANA", "2470406053182"},
                                {"BARBU MIHAI", "1481128057502"},    {"NISTOR FLOAREA", "2530228056210"},
                                {"LUNGU AUREL", "1511113055197"},    {"SERBAN RODICA", "2450308054850"},
                                {"CRISTEA TRAIAN", "1470227058872"}, {"OPREA VIORICA", "2650501059315"},
                                {"MATEI DUMITRU", "1481023059040"}};

struct Device {
  const char *code, *name, *type, *battery, *model;
  int full, insured;  // lei without VAT
  int cost;
};
constexpr Device kDevices[] = {
    {"AP01", "SONATA 10", "RETROAURICULAR", "13", "ANALOG", 1480, 900, 610},
    {"AP02", "SONATA 20", "RETROAURICULAR", "13", "DIGITAL 4 CANALE", 2100, 900, 880},
    {"AP03", "SONATA 30", "RETROAURICULAR", "312", "DIGITAL 8 CANALE", 2900, 900, 1240},
    {"AP04", "SONATA 40 PUTERE", "RETROAURICULAR", "675", "DIGITAL 8 CANALE", 3950, 900, 1720},
    {"AP05", "DISCRET I", "INTRAAURICULAR", "10", "DIGITAL 4 CANALE", 2650, 900, 1130},
    {"AP06", "DISCRET II", "INTRAAURICULAR", "10", "DIGITAL 12 CANALE", 4300, 900, 1950}};
struct Part {
  const char *code, *name;
  int cost, price;
};
constexpr Part kParts[] = {{"PS01", "BATERIE 13 SET 6 BUC", 11, 24},
                           {"PS02", "OLIVA SILICON", 18, 45},
                           {"PS03", "TUB SONOR", 4, 12},
                           {"PS04", "RECEPTOR", 95, 190},
                           {"PS05", "FILTRU CERUMEN SET", 9, 25}};

class Shop {
 public:
  void make() {
    beTheTrade();
    addPartners();
    addArticles();
    buy(1, dayAt(0));
    for (int i = 0; i < kTypedOrders; ++i) orders_.push_back(order(i));
    for (const char* file : kOrderFiles) orders_.push_back(importOrder(QLatin1String(file)));
    buy(2, dayAt(kTypedOrders / 2));
    repairs();
    bills();
  }

 private:
  // Enough numbers for all invoices, from 2001 on.
  static void beTheTrade() {
    ExecutaSql("UPDATE kt_par SET SERIEFC = 'AUZ', FCSTART = '2001', FCEND = '9999', MODAUDIO = -1");
    InitParaSoc();
    IncarcaSerii();
  }

  qint64 partner(const QString& name, const char* kind, const QString& code = {}, int commission = 0) {
    Row row = newPartner(name, kind);
    row.set("CodTert", code);
    row.set("ORAS", "Oradea");
    row.set("Judet", "BIHOR");
    if (commission > 0) row.set("PROCPEN", Decimal(commission));
    return addPartner(row);
  }

  void addPartners() {
    supplier_ = partner("AUDIO PROD SRL", "F");
    insurers_ = {partner("CAS BIHOR", "C", "CAS"), partner("CAS SATU MARE", "C", "CAS")};
    workPoints_ = {partner("CABINET ORL BEIUS", "C", {}, 8), partner("OPTICA MARGHITA", "C", {}, 6),
                   partner("FARMACIA SALVIA", "C", {}, 5)};
    doctors_ = {partner("DR. MICLEA", "D", {}, 3), partner("DR. SABAU", "D", {}, 3),
                partner("DR. ARDELEAN", "D")};
    for (const Person& person : kPatients) {
      Row row = newPartner(person.name, "P");
      row.set("CNP", person.number);
      row.set("AD", "Str. Republicii 1");
      row.set("ORAS", "Oradea");
      row.set("SerieBI", "XB");
      row.set("NrBI", "100200");
      patients_.push_back(addPartner(row));
    }
  }

  void addArticles() {
    const qint64 devices = addFamily(newFamily("Aparate auditive", "371", "607", "707", "345"));
    const qint64 parts = addFamily(newFamily("Piese si baterii", "371", "607", "707", "345"));
    const auto add = [this](const QString& code, const QString& name, qint64 family, const Device* device) {
      const Row made = newArticle();
      Row article = rowOf(made.columns() + QStringList{"TipAparat", "TipBaterie", "TipEmitator",
                                                       "PretVanzare", "CompensareCAS"},
                          made);
      article.set("CODART", code);
      article.set("DENART", name);
      article.set("FAMART", family);
      article.set("CODFURNIZO", supplier_);
      if (device) {
        article.set("TipAparat", device->type);
        article.set("TipBaterie", device->battery);
        article.set("TipEmitator", device->model);
        article.set("PretVanzare", Decimal(device->full));
        article.set("CompensareCAS", Decimal(device->insured));
      }
      addArticle(article);
    };
    for (const Device& device : kDevices) add(device.code, device.name, devices, &device);
    for (const Part& part : kParts) add(part.code, part.name, parts, nullptr);
  }

  // The day of that order among all.
  static QDate dayAt(int place) {
    const QDate first = std::max(session().DataIC, clock::today().addDays(-kDaysBack));
    return first.addDays(first.daysTo(clock::today()) * place / (kTypedOrders + 3));
  }

  void buy(int number, const QDate& date) {
    DocumentEditor editor("FF");
    editor.newDocument();
    auto header = editor.headerTexts();
    header.insert("NUMFAC", QStringLiteral("AP%1").arg(7000 + number));
    header.insert("CODFUR", QString::number(supplier_));
    header.insert("DATAFAC", date.toString(Qt::ISODate));
    header.insert("DATASCAD", date.addMonths(1).toString(Qt::ISODate));
    editor.save(header);
    const auto receive = [&editor](const char* code, int quantity, int cost, int price) {
      const size_t line = editor.setArticle(editor.lines().size(), code);
      editor.setNumber(line, "CANT", QString::number(quantity));
      editor.setNumber(line, "PRETFT", QString::number(cost));
      editor.setNumber(line, "PRETVA", QString::number(price));
    };
    for (const Device& device : kDevices) receive(device.code, 12, device.cost + 10 * number, device.full);
    for (const Part& part : kParts) receive(part.code, 30, part.cost, part.price);
    if (editor.checkLines()) editor.validate(editor.headerTexts());
  }

  // Thresholds that rise with the frequency, and how much is understood at each loudness.
  void audiograms(qint64 order, bool isRight) {
    Transaction transaction(database());
    for (const bool ear : {false, true}) {
      int threshold = (ear == isRight ? 40 : 20) + dice_.below(15);
      for (const AudiogramPoint& point : audiogramPoints(Audiogram::Tone)) {
        threshold = std::min(120, threshold + 5 * dice_.below(4));
        // Some frequencies are not measured.
        if (dice_.below(12) > 0)
          storeAudiogramPoint(Audiogram::Tone, order, ear, point.column, Decimal(threshold));
      }
      const int begin = (ear == isRight ? 40 : 20) + dice_.below(4) * 5;
      for (const AudiogramPoint& point : audiogramPoints(Audiogram::Speech))
        if (point.at >= begin)
          storeAudiogramPoint(Audiogram::Speech, order, ear, point.column,
                              Decimal(std::min(100, (point.at - begin) * 2)));
    }
    transaction.commit();
  }

  qint64 order(int i) {
    const auto place = static_cast<size_t>(i);
    const Device& device = kDevices[place % std::size(kDevices)];
    const QString number = QString::number(101 + i);
    const QDate date = dayAt(i);
    const bool isRight = i % 2 == 0;
    Row row = newOrder();
    row.set("Nr", number);
    row.set("Data", date);
    row.set("ID_Pacient", patients_[place % patients_.size()]);
    row.set("ID_Doctor", doctors_[place % doctors_.size()]);
    row.set("ID_CAS", insurers_[i % 5 == 4 ? 1 : 0]);
    // Every fourth order is sold directly.
    if (i % 4 != 3) row.set("ID_PunctLucru", workPoints_[place % workPoints_.size()]);
    row.set("ID_Dispozitiv", device.code);
    row.set("PretLivrare", Decimal(device.full) + Decimal(i % 3) / 2);
    row.set("PretReferinta", Decimal(device.insured));
    row.set("UrecheaDreapta", isRight);
    row.set("GradHipoacuzie", i % 3 == 0 ? "SEVERA" : "MEDIE");
    row.set("NrDecizie", "DZ" + number);
    row.set("DataDecizie", date);
    row.set("NrCarnetAsigurat", "CA" + number);
    row.set("NrCertificatGarantie", "CG" + number);
    row.set("DataCertificatGarantie", date);
    row.set("SerieDispozitiv", QStringLiteral("S%1").arg(48000 + 7 * i));
    row.set("TipOliva", "SILICON");
    const qint64 key = addOrder(row);
    audiograms(key, isRight);
    return key;
  }

  qint64 voucher(int number, bool isPaid, const QDate& date, const std::vector<int>& parts) {
    const Row sold = storedOrder(orders_[static_cast<size_t>(number)]);
    Row header = newVoucher();
    header.set("ID_Client", sold.integer("ID_Pacient"));
    header.set("ID_Aparat", sold.text("ID_Dispozitiv"));
    header.set("TipAparat", "RETROAURICULAR");
    header.set("SerieAparat", sold.text("SerieDispozitiv"));
    header.set("Defectiune", isPaid ? "Oliva uzata" : "Nu se aude");
    header.set("DataReceptie", date);
    header.set("DataTerminare", date);
    header.set("IsTerminat", true);
    header.set("IsContraCost", isPaid);
    const qint64 key = addVoucher(header);
    for (const int part : parts) {
      Row line = lineWithArticle(emptyVoucherLine(), kParts[part].code);
      computeVoucherLine(line);
      addVoucherLine(key, line);
    }
    return key;
  }

  // The last one is still in repair.
  void repairs() {
    const auto done = [this](int number, bool isPaid, const std::vector<int>& parts) {
      const qint64 key = voucher(number, isPaid, dayAt(number + 12), parts);
      validateVoucher(storedVoucher(key), voucherLines(key));
      return key;
    };
    done(1, false, {3});
    paid_.push_back(done(4, true, {1, 2}));
    done(7, false, {2});
    paid_.push_back(done(10, true, {1, 4}));
    done(13, true, {0});
    voucher(16, true, clock::today(), {3});
  }

  // A draft of what the client has not been billed yet, up to that order.
  qint64 draft(qint64 client, BilledBy by, qint64 workPoint, const QDate& date, int orders) {
    Row header = newInvoice();
    header.set("Nr", proposeInvoiceNumber(QStringLiteral("G_FacturiClientiAudio")).number);
    header.set("Data", date);
    header.set("DataScadenta", date.addMonths(1));
    header.set("ID_Client", client);
    if (workPoint != 0) header.set("ID_PunctLucru", workPoint);
    const qint64 key = addInvoice(header, by);
    for (const Row& open : billableOrders(storedInvoice(key), by)) {
      const auto place = std::find(orders_.begin(), orders_.end(), open.integer("ID_Comanda"));
      if (place - orders_.begin() <= orders) attachOrder(key, *place);
    }
    return key;
  }

  static bool validated(qint64 invoice) {
    if (invoiceLines(invoice).empty()) {
      removeInvoice(invoice);
      return false;
    }
    validateInvoice(storedInvoice(invoice), invoiceLines(invoice));
    return true;
  }

  void bills() {
    for (const int month : {12, 25}) {
      const QDate date = dayAt(month + 2);
      for (const qint64 workPoint : workPoints_) {
        for (const qint64 insurer : insurers_)
          validated(draft(insurer, BilledBy::Insurer, workPoint, date, month));
        validated(draft(workPoint, BilledBy::WorkPoint, 0, date, month));
      }
    }
    for (size_t i = 0; i < 4; ++i)
      validated(draft(patients_[3 + 4 * i % 12], BilledBy::Patient, 0, dayAt(30), 28));
    const qint64 repair =
        draft(storedVoucher(paid_[0]).integer("ID_Client"), BilledBy::Voucher, 0, dayAt(32), -1);
    attachVoucher(repair, paid_[0]);
    validated(repair);
    // One is cancelled, one waits for its validation.
    const qint64 wrong = draft(workPoints_[0], BilledBy::WorkPoint, 0, dayAt(33), 32);
    const QString number = storedInvoice(wrong).text("Nr");
    if (validated(wrong))
      cancelHearingInvoice({KindId::DeviceInvoice, number},
                           proposeInvoiceNumber(QStringLiteral("G_FacturiClientiAudio")).number,
                           clock::today());
    draft(insurers_[0], BilledBy::Insurer, workPoints_[1], clock::today(), 36);
  }

  SampleDice dice_;
  qint64 supplier_ = 0;
  std::vector<qint64> insurers_, workPoints_, doctors_, patients_, orders_, paid_;
};

}  // namespace

void fillHearingCompany() {
  loadOrderFiles();
  const Willing answers;
  Shop().make();
}

}  // namespace velmar
