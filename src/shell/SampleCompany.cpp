#include "shell/SampleCompany.h"

#include <algorithm>
#include <QDir>

#include "catalogue/Articles.h"
#include "catalogue/DiscountBands.h"
#include "catalogue/Discounts.h"
#include "catalogue/Families.h"
#include "catalogue/Partners.h"
#include "config/CompanyFiles.h"
#include "config/CostMethod.h"
#include "config/Currencies.h"
#include "config/Session.h"
#include "config/Warehouses.h"
#include "shell/Login.h"
#include "shell/SampleData.h"
#include "shell/SampleDocuments.h"
#include "shell/SampleEInvoices.h"
#include "shell/SampleHearing.h"
#include "store/DatabaseFiles.h"
#include "store/Records.h"
#include "store/Workshop.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

// A sample company: its place in the list, and what fills the new company.
struct Sample {
  QString code;
  QString name;
  void (*fill)();
};

std::vector<qint64> addFamilies() {
  std::vector<qint64> codes;
  for (const SampleFamily& family : sampleFamilies())
    codes.push_back(addFamily(newFamily(family.name, "371", "607", "707", family.productStock)));
  return codes;
}

void addPartners(SampleCatalogue& catalogue) {
  for (const SamplePartner& partner : samplePartners()) {
    Row row = newPartner(partner.NUME, partner.TIP);
    row.set("CODFISCAL", partner.CODFISCAL);
    row.set("RegCom", partner.RegCom);
    row.set("AD", partner.AD);
    row.set("CP", partner.CP);
    row.set("ORAS", partner.ORAS);
    row.set("Judet", partner.Judet);
    row.set("TARA", partner.TARA);
    const qint64 code = addPartner(row);
    if (partner.TIP == "F" || partner.TIP == "M") catalogue.suppliers.push_back(code);
    if (partner.TIP == "C" || partner.TIP == "M") catalogue.customers.push_back(code);
  }
}

SampleCatalogue addCatalogue() {
  SampleCatalogue catalogue;
  catalogue.families = addFamilies();
  addPartners(catalogue);
  for (size_t f = 0; f < catalogue.families.size(); ++f) {
    const SampleFamily& family = sampleFamilies()[f];
    for (int i = 0; i < family.articles.size(); ++i) {
      Row article = newArticle();
      const QString code =
          QStringLiteral("%1%2").arg(family.code, QString::number(i + 1).rightJustified(3, u'0'));
      article.set("CODART", code);
      article.set("DENART", family.articles[i]);
      article.set("CODPRODFUR", QStringLiteral("P%1%2").arg(f + 1).arg(i + 101));
      article.set("FAMART", catalogue.families[f]);
      article.set("UM", family.unit);
      article.set("CODFURNIZO",
                  catalogue.suppliers[(f + static_cast<size_t>(i)) % catalogue.suppliers.size()]);
      article.set("PROVENIENTA", family.isMade ? "P" : "M");
      addArticle(article);
      (family.isMade ? catalogue.products : catalogue.goods).append(code);
    }
  }
  return catalogue;
}

// Two currencies, with a rate for each working day of the last month.
void addRates() {
  constexpr int kRateDays = 30;
  struct Start {
    const char* currency;
    int rate;  ///< in ten-thousandths of a leu
  };
  SampleDice dice;
  for (const Start& start : {Start{"EUR", 49'750}, Start{"USD", 45'900}}) {
    int rate = start.rate;
    for (int back = kRateDays; back >= 0; --back) {
      const QDate day = clock::today().addDays(-back);
      rate += dice.below(61) - 30;
      if (day.dayOfWeek() > Qt::Friday) continue;
      Row row = rowOf("CURS DATA");
      row.set("CURS", Decimal(rate) / 10'000);
      row.set("DATA", day);
      enterRate(start.currency, row);
    }
  }
}

// The data of the company that is printed on documents.
void giveIdentity() {
  ExecutaSql(
      "UPDATE kt_info SET NREGCOM = 'J32/417/2016', CODFISCAL = 'RO36100205', CAPSOC = 200, "
      "banca = 'Banca Sibiana', contbancar = 'RO49AAAA1B31007593840000', STRADA1 = 'Olarilor', NR1 = '14', "
      "ORAS1 = 'Sibiu', JUDET1 = 'SB', CODPOSTAL1 = '550001', TELEFON1 = '0269 111 222'");
}

// Invoice numbers start at 1001.
void giveInvoiceNumbers() {
  ExecutaSql("UPDATE kt_par SET SERIEFC = 'EXS', FCSTART = '1001', FCEND = '9999'");
  IncarcaSerii();
}

void addWarehouses() {
  for (const char* name : {"Depozit central", "Magazin Piata Mare"}) {
    Row row = rowOf("DENUMIRE JURNAL");
    row.set("DENUMIRE", name);
    addWarehouse(row);
  }
}

// Discount bands of a whole family and of one article, and percents of good customers.
void addDiscounts(const SampleCatalogue& catalogue) {
  const auto fill = [](DiscountBands bands, const std::vector<TypedBand>& typed) {
    for (const TypedBand& band : typed) bands.save(bands.add(), band);
    return bands;
  };
  DiscountBands family = fill(DiscountBands::ofFamily(catalogue.families.front()),
                              {{"1", "9", "0"}, {"10", "49", "3"}, {"50", "1000", "5"}});
  family.applyToArticles();
  fill(DiscountBands::ofArticle(catalogue.products.last()), {{"1", "20", "0"}, {"21", "500", "7.5"}});
  int percent = 2;
  for (size_t i = 0; i < catalogue.customers.size(); i += 3)
    setPartnerDiscount(catalogue.customers[i], Decimal(percent++));
}

void fillTrader() {
  giveIdentity();
  addWarehouses();
  giveInvoiceNumbers();
  addRates();
  const SampleCatalogue catalogue = addCatalogue();
  addDiscounts(catalogue);
  addSampleDocuments(catalogue);
  addSampleEInvoices();
}

void fillShop() {
  giveIdentity();
  fillHearingCompany();
}

bool exists(const Sample& sample, const QString& folder) {
  const QList<Company> companies = readCompanyList(folder);
  return std::any_of(companies.begin(), companies.end(),
                     [&sample](const Company& company) { return company.COD == sample.code; });
}

// Creates the company in a temporary folder, so that a killed process leaves no incomplete company.
void makeIn(const QString& workshop, const Sample& sample) {
  session().gCaleBD = workshop;
  bringTemplateUpToDate(workshop);
  createCompany(workshop, sample.code, sample.name, session().gDenSocietateNoua);
  Login().enter(companyFileName(sample.code), sample.name, "admin", "admin");
  const Row warehouse = workingWarehouses().first();
  session().gMagazie = warehouse.integer("COD");
  session().gDenMagazie = warehouse.text("DENUMIRE");
  chooseCostMethod("FIFO");
  sample.fill();
}

// The folder is passed by value: the argument is usually `gCaleBD`, which changes meanwhile.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool make(QString folder, const Sample& sample) {
  session().gCaleBD = folder;
  if (exists(sample, folder)) return false;
  const Workshop workshop(folder, kSamplePrefix);
  shareServer(folder, workshop.path());
  try {
    makeIn(workshop.path(), sample);
  } catch (...) {
    leaveCompany();
    session().gCaleBD = folder;
    removeDatabaseFile(workshop.path(), companyFileName(sample.code));
    removeDatabaseFile(workshop.path(), kTemplateName);
    throw;
  }
  leaveCompany();
  session().gCaleBD = folder;
  removeDatabaseFile(workshop.path(), kTemplateName);
  try {
    adoptCompany(folder, sample.code, sample.name, workshop.filePath(companyFileName(sample.code)));
  } catch (const RuleError&) {
    if (exists(sample, folder)) return false;  // another process has just created it
    throw;
  }
  return true;
}

}  // namespace

bool makeSampleCompany(const QString& folder) {
  return make(folder, {kSampleCode, QStringLiteral("EXEMPLU SRL"), fillTrader});
}

bool makeHearingSampleCompany(const QString& folder) {
  return make(folder, {kHearingSampleCode, QStringLiteral("EXEMPLU AUZ SRL"), fillShop});
}

}  // namespace velmar
