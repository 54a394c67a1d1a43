#include "config/Parameters.h"

#include "config/AccountPlan.h"
#include "config/CostMethod.h"
#include "config/FiscalYears.h"
#include "store/Records.h"
#include "TestCompany.h"
#include "util/Errors.h"

using namespace velmar;

namespace {

Row textsOf(const QList<std::pair<QString, QString>>& cells) {
  QStringList columns;
  for (const auto& cell : cells) columns.append(cell.first);
  Row row = rowOf(columns.join(' '));
  for (const auto& cell : cells) row.set(cell.first, cell.second);
  return row;
}

// The refusal as "column: text [title, icon]".
template <typename Work>
QString refusal(Work&& work) {
  try {
    work();
  } catch (const RuleError& rule) {
    QString text = rule.field() + ": " + rule.text();
    if (!rule.title().isEmpty()) text += " [" + rule.title() + ", " + QString::number(rule.icon()) + "]";
    return text;
  }
  return {};
}

QString cell(const QString& sql) { return OpenRs(sql).first().at(0).toString(); }

class Parameters : public testing::Test {
 protected:
  /// The identity with one typed column changed.
  static QString refusedIdentity(const QString& column, const QString& text) {
    Row identity = identityOf("ALFA");
    identity.set(column, text);
    return refusal([&] { saveIdentity(identity, {}, false); });
  }

  static Row identityOf(const QString& name) {
    return textsOf({{"DENUMIRE", name}, {"CAPSOC", ""}, {"FP", ""}, {"RAMURA", ""}, {"PLATITVA", ""}});
  }

  /// Both ranges: first and last number, series.
  static Row ranges(const QStringList& invoices, const QStringList& notes = {"", "", ""}) {
    return textsOf({{"FCSTART", invoices[0]},
                    {"FCEND", invoices[1]},
                    {"SERIEFC", invoices[2]},
                    {"AESTART", notes[0]},
                    {"AEEND", notes[1]},
                    {"SERIEAE", notes[2]}});
  }

  static QString refusedRanges(const QStringList& invoices, const QStringList& notes = {"", "", ""}) {
    return refusal([&] { saveAccounts(ranges(invoices, notes), "3"); });
  }

  static QString storedRanges() {
    return cell(
        "SELECT COALESCE(SERIEFC, '-') || COALESCE(FCSTART, '-') || COALESCE(FCEND, '-') || "
        "COALESCE(SERIEAE, '-') || COALESCE(AESTART, '-') || COALESCE(AEEND, '-') AS T FROM kt_par");
  }

  static Row dates(const QStringList& isoDates) {
    Row row = rowOf("DATAIN DATASN DATAIN1 DATASN1 DATAIC DATASC");
    for (int i = 0; i < 6; ++i) row.set(row.columns()[i], QDate::fromString(isoDates[i], Qt::ISODate));
    return row;
  }

  static QString refusedDates(const QStringList& isoDates) {
    return refusal([&] { saveFiscalYears(dates(isoDates)); });
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(Parameters, TheIdentityIsCheckedInOrderAndStoredCompletely) {
  const QString noName =
      "DENUMIRE: Salvarea nu se poate efectua. Introduceti o denumire pentru societatea curenta ! "
      "[Configurare societate, 16]";
  EXPECT_EQ(refusedIdentity("DENUMIRE", ""), noName);
  EXPECT_EQ(refusedIdentity("DENUMIRE", "   "), noName);
  EXPECT_EQ(refusedIdentity("CAPSOC", "o mie"),
            "CAPSOC: Va rugam introduceti o valoare numerica pentru capitalul social !");
  EXPECT_EQ(refusedIdentity("FP", "x"),
            "FP: Va rugam introduceti o valoare numerica pentru forma de proprietate !");
  EXPECT_EQ(refusedIdentity("RAMURA", "4646a"),
            "RAMURA: Va rugam introduceti o valoare numerica pentru codul CAEN !");
  EXPECT_EQ(refusedIdentity("PLATITVA", "X"),
            "PLATITVA: Va rugam completati D (de la DA) sau N (de la NU) !");
  EXPECT_EQ(refusedIdentity("DENUMIRE", QString(51, 'A')),
            "DENUMIRE: Textul din campul DENUMIRE este prea lung (maxim 50 caractere) !");
  EXPECT_TRUE(storedIdentity().isNull("DENUMIRE"));

  const Row identity = textsOf({{"DENUMIRE", "ALFA 'FII' SRL"},
                                {"CAPSOC", "1234,50"},
                                {"FP", "35"},
                                {"RAMURA", ""},
                                {"PLATITVA", "d"},
                                {"banca", "BANCA UNU"},
                                {"EMAIL2", "a@b.ro"}});
  saveIdentity(identity, {}, true);
  const Row stored = storedIdentity();
  EXPECT_EQ(stored.text("DENUMIRE"), "ALFA 'FII' SRL");
  EXPECT_EQ(stored.decimal("CAPSOC").toString(), "1234.5");
  EXPECT_TRUE(stored.isNull("RAMURA"));
  EXPECT_EQ(stored.text("PLATITVA"), "D");
  EXPECT_EQ(stored.text("BANCA"), "BANCA UNU");
  EXPECT_EQ(stored.text("TCOST"), "");
  EXPECT_EQ(storedParameters().integer("MODAUDIO"), -1);
  EXPECT_FALSE(session().ModAudio) << "until the parameters are read again";
}

TEST_F(Parameters, TheCostMethodIsChosenOnce) {
  const auto save = [](const QString& name, const QString& method) {
    return refusal([&] { saveIdentity(identityOf(name), method, false); });
  };
  EXPECT_EQ(save("ALFA", ""), "");
  EXPECT_EQ(storedIdentity().text("TCOST"), "");
  EXPECT_EQ(save("ALFA", "MP"), "");
  EXPECT_EQ(save("BETA", "MP"), "") << "saving the chosen method again changes nothing";
  EXPECT_EQ(storedIdentity().text("DENUMIRE"), "BETA");
  EXPECT_EQ(session().TCOST, "MP");

  // A second workstation opened the window before the choice: nothing of its tab is stored.
  EXPECT_EQ(save("GAMA", "FIFO"),
            "TCOST: Metoda de evaluare a stocurilor a fost aleasa si nu se mai poate schimba !");
  EXPECT_EQ(storedIdentity().text("TCOST"), "MP");
  EXPECT_EQ(storedIdentity().text("DENUMIRE"), "BETA");
  EXPECT_EQ(session().TCOST, "MP");
}

TEST_F(Parameters, FiscalYearsMustBeConsistent) {
  const QString tail = " ! Salvarea nu se poate efectua ! [Validare, 0]";
  const QString start = "Data de inceput a ", n = "exercitiului N",
                smaller = " trebuie sa fie mai mica decat data de sfarsit";
  const QString y26a = "2026-01-01", y26z = "2026-12-31", y27a = "2027-01-01", y27z = "2027-12-31";
  const std::pair<QStringList, QString> cases[] = {
      {{y26z, y26a, "2025-01-01", "2024-12-31", y26a, "2025-12-31"},  // the first of several faults
       "DATAIN: " + start + "exercitiului" + smaller},
      {{y26a, y26z, y26z, y27z, y26a, y26z},
       "DATAIN1: " + start + n + "+1 trebuie sa fie mai mare decat data de sfarsit a " + n},
      {{y26a, y26z, y27a, y26z, y26a, y26z}, "DATAIN1: " + start + n + "+1" + smaller},
      {{y26a, y26z, y27a, y27z, "2026-03-02", "2026-03-01"},
       "DATAIC: " + start + "perioadei de culegere" + smaller},
      {{y26a, y26z, y27a, y27z, "2025-12-31", "2026-03-01"},
       "DATAIC: Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1"},
      {{y26a, y26z, y27a, y27z, y26a, "2028-01-01"},
       "DATASC: Perioada de culegere trebuie sa fie cuprinsa in exercitiul N, N+1"},
      {{y26a, y26z, "2027-01-02", y27z, y26a, y26z},
       "DATAIN1: " + start + n + "+1 trebuie sa fie ziua urmatoare datei de sfarsit a " + n}};
  for (const auto& [dates, text] : cases) EXPECT_EQ(refusedDates(dates), text + tail);
  EXPECT_EQ(storedParameters().date("DATAIN").toString(Qt::ISODate), y26a);

  // Limits that are just valid: years of one day, a period up to the last day of year N+1.
  EXPECT_EQ(
      refusedDates({"2026-07-01", "2026-07-01", "2026-07-02", "2026-07-02", "2026-07-01", "2026-07-02"}), "");
  EXPECT_EQ(storedParameters().date("DATASC"), QDate(2026, 7, 2));
  EXPECT_EQ(session().DataSC, QDate(2026, 12, 31));
  InitParaSoc();
  EXPECT_EQ(session().DataSC, QDate(2026, 7, 2));
}

TEST_F(Parameters, ADateWarnsOnlyOfItself) {
  const QString smaller = " trebuie sa fie mai mica decat data de ",
                larger = " trebuie sa fie mai mare decat data de ";
  const Row wrong =
      dates({"2026-12-31", "2026-01-01", "2025-01-01", "2024-12-31", "2023-05-02", "2023-05-01"});
  const Row outside =
      dates({"2026-01-01", "2026-12-31", "2028-01-01", "2027-12-31", "2025-06-01", "2028-06-01"});
  const std::tuple<Row, QString, QString> cases[] = {
      {wrong, "DATAIN", "Data de inceput a exercitiului" + smaller + "sfarsit!"},
      {wrong, "DATASN", "Data de sfarsit a exercitiului" + larger + "inceput!"},
      {wrong, "DATAIN1", "Data de inceput a exercitiului N+1" + larger + "sfarsit a exercitiului N!"},
      {wrong, "DATASN1", "Data de sfarsit" + larger + "inceput!"},
      {wrong, "DATAIC", "Data de inceput" + smaller + "sfarsit!"},
      {wrong, "DATASC", "Data de sfarsit" + larger + "inceput!"},
      {outside, "DATAIN", ""},
      {outside, "DATASN", ""},
      {outside, "DATAIN1", "Data de inceput" + smaller + "sfarsit!"},
      {outside, "DATAIC", "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1!"},
      {outside, "DATASC", "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N ,N+1!"}};
  for (const auto& [years, column, text] : cases) EXPECT_EQ(fiscalYearWarning(years, column), text);
}

TEST_F(Parameters, ARangeIsCompleteOrEmpty) {
  const QString invoices = " [Facturi Client--Atentie !, 0]", notes = " [Avize de Expeditie--Atentie !, 0]";
  saveAccounts(ranges({" 100 ", "0200", " AB "}), "2");
  EXPECT_EQ(storedRanges(), "AB1000200---");
  EXPECT_EQ(session().gSerieFC + session().gFCStart + session().gFCEnd, "AB1000200");
  EXPECT_EQ(session().gSerieAE + session().gAEStart + session().gAEEnd, "000000");

  EXPECT_EQ(refusedRanges({"x", "1", "AB1"}), "SERIEFC: Introduceti numai litere pentru Serie !" + invoices);
  EXPECT_EQ(refusedRanges({"1", "2x", "AB"}),
            "FCEND: Introduceti numai cifre pentru plaja de numere !" + invoices);
  EXPECT_EQ(refusedRanges({"-1", "2", "AB"}),
            "FCSTART: Introduceti numai cifre pentru plaja de numere !" + invoices);
  const QString rising = "START: Introduceti limite in ordine crescatoare pentru plaja de numere !";
  EXPECT_EQ(refusedRanges({"100", "100", "AB"}), "FC" + rising + invoices);
  EXPECT_EQ(refusedRanges({"9", "10", "AB"}, {"1000", "999", "AE"}), "AE" + rising + notes)
      << "compared as numbers, the delivery notes after the invoices";
  EXPECT_EQ(refusedRanges({"1", "", ""}), "FCEND: Verificati plaja de numere si seria introduse!" + invoices);
  EXPECT_EQ(refusedRanges({"1", "2", " "}),
            "SERIEFC: Verificati plaja de numere si seria introduse!" + invoices);
  EXPECT_EQ(refusedRanges({"", "", ""}, {"", "", "AE"}),
            "AESTART: Verificati plaja de numere si seria introduse!" + notes);
  EXPECT_EQ(storedRanges(), "AB1000200---") << "neither range";
  EXPECT_EQ(session().gFCStart, "100");
  EXPECT_EQ(storedIdentity().integer("NrZec"), 2) << "nor the decimals";

  saveAccounts(ranges({"", " ", ""}, {"1", "999999999999", "AE"}), "2");
  EXPECT_EQ(storedRanges(), "---AE1999999999999");
  EXPECT_EQ(session().gSerieFC + session().gFCStart + session().gFCEnd, "000000");
  EXPECT_EQ(session().gAEEnd, "999999999999");
}

TEST_F(Parameters, AccountsDecimalsAndJournals) {
  Row accounts = textsOf({{"CONTFurnizori", "404"},
                          {"CONTNIR", ""},
                          {"SERIEFC", ""},
                          {"FCSTART", ""},
                          {"FCEND", ""},
                          {"SERIEAE", ""},
                          {"AESTART", ""},
                          {"AEEND", ""}});
  EXPECT_EQ(refusal([&] {
              saveAccounts(textsOf({{"CONTFurnizori", "401.1"}}), "2");
            }),
            "CONTFurnizori: Contul 401.1 nu exista !");
  saveAccounts(accounts, "patru");
  EXPECT_EQ(storedIdentity().integer("NrZec"), 0);
  saveAccounts(accounts, "4");
  EXPECT_EQ(storedIdentity().integer("NrZec"), 4);
  for (const char* typed : {"-1", "10", "1,5"})
    EXPECT_EQ(refusal([&] { saveAccounts(accounts, typed); }),
              "NrZec: Numarul de zecimale trebuie sa fie un numar intreg de la 0 la 9 !");
  EXPECT_EQ(storedIdentity().integer("NrZec"), 4);
  EXPECT_EQ(storedParameters().text("CONTFurnizori"), "404");
  EXPECT_TRUE(storedParameters().isNull("CONTNIR"));
  EXPECT_EQ(storedParameters().text("CONTClienti"), "411") << "columns missing from the row are kept";

  const auto journals = [](const QString& journal, const QString& kind, const QString& length) {
    return refusal([&] {
      saveJournals(textsOf({{"JURNIR", journal}, {"CASAMARCAT", kind}, {"CASAMARCAT_Nr", length}}));
    });
  };
  EXPECT_EQ(journals("BC", "D", "22"), "");
  EXPECT_EQ(storedParameters().integer("CASAMARCAT_Nr"), 22);
  EXPECT_EQ(journals("NIR", "A", "multe"), "CASAMARCAT_Nr: Valoarea trebuie sa fie numerica");
  EXPECT_EQ(journals("NIR", "A", "2147483648"), "CASAMARCAT_Nr: Valoarea trebuie sa fie numerica");
  EXPECT_EQ(journals("PREA LUNG", "A", "1"), "JURNIR: Jurnalul cu codul PREA LUNG nu exista !");
  EXPECT_EQ(journals("NIR", "X", "1"),
            "CASAMARCAT: Casa de marcat este A (Activa), D (Datecs), O (Optima) sau P (Partner) !");
  EXPECT_EQ(storedParameters().text("JURNIR"), "BC");
  EXPECT_EQ(journals("", "", ""), "");
  InitParaSoc();
  EXPECT_EQ(session().CasaMarcat, " ");
  EXPECT_EQ(session().CasaMarcat_Nr, 0);
}

TEST_F(Parameters, ThePlanIsReplacedWhileNothingIsPosted) {
  EXPECT_TRUE(accountPlanMayChange());
  changeAccountPlan(1);
  EXPECT_EQ(storedIdentity().integer("PlanC"), 1);
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_pc"), cell("SELECT COUNT(*) AS N FROM PLANBUG"));
  EXPECT_EQ(cell("SELECT TITLU || CREARE || CODBUG AS T FROM kt_pc WHERE CONT = '234'"),
            "Furnizori15/03/2026");
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_pc WHERE DEBITN = 0 AND CREDITN_1 = 0 AND SOLDN = 0"),
            cell("SELECT COUNT(*) AS N FROM PLANBUG"));
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_jur WHERE CONT IS NOT NULL"), "0");
  const Recordset rates = OpenRs("SELECT COD, CONT, PROCENT FROM kt_cote ORDER BY COD");
  ASSERT_EQ(rates.size(), 2);
  EXPECT_EQ(rates[0].text("CONT"), "232.31");
  EXPECT_EQ(rates[1].text("CONT"), "232.32");
  EXPECT_EQ(rates[1].decimal("PROCENT"), Decimal(19));
  EXPECT_EQ(defaultAccounts(1).text("CONTClienti"), "225");
  EXPECT_TRUE(defaultAccounts(1).isNull("CONTAVIZEXP_P"));

  changeAccountPlan(2);
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_pc"), cell("SELECT COUNT(*) AS N FROM PLANORG"));
  changeAccountPlan(0);
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_pc"), cell("SELECT COUNT(*) AS N FROM kt_pc_2003"));
  EXPECT_EQ(cell("SELECT CONT AS T FROM kt_cote WHERE COD = 2"), "4427");
  EXPECT_EQ(defaultAccounts(0).text("CONTVAMA"), "446");
  EXPECT_EQ(defaultAccounts(2).text("CONTAVIZEXP_M"), "357");

  // Another workstation posts while the window here still offers the choice.
  Database::open(TestCompany::path())
      ->execute("INSERT INTO kt_linii (NDI, NRLINIE, CONT) VALUES (1, 1, '371')");
  EXPECT_FALSE(accountPlanMayChange());
  EXPECT_EQ(refusal([] { changeAccountPlan(1); }),
            ": Planul de conturi nu se mai poate schimba, deoarece exista inregistrari contabile !");
  EXPECT_EQ(storedIdentity().integer("PlanC"), 0);
  EXPECT_EQ(cell("SELECT CONT AS T FROM kt_cote WHERE COD = 2"), "4427");
}

TEST_F(Parameters, AChangeOfPlanThatFailsMidwayKeepsTheOldPlan) {
  // The accounts of the new plan are missing after those of the old one have been deleted.
  ExecutaSql("ALTER TABLE PLANBUG RENAME TO PLANBUG_VECHI");
  const QString accounts = cell("SELECT COUNT(*) AS N FROM kt_pc");
  EXPECT_THROW(changeAccountPlan(1), StoreError);
  EXPECT_EQ(storedIdentity().integer("PlanC"), 0);
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_pc"), accounts);
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_cote"), "12");
  EXPECT_EQ(cell("SELECT CONT AS T FROM kt_jur WHERE COD = 'JV'"), "411");
}

}  // namespace
