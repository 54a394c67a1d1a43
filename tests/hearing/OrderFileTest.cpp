// Order files: a good one with all it may have, and what is refused, with nothing written.
#include <gtest/gtest.h>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>

#include "hearing/OrderFile.h"
#include "Shop.h"

namespace velmar {
namespace {

QString cells(int count, const QString& first) {
  QString text = QStringLiteral("<c>%1</c>").arg(first);
  for (int i = 1; i < count; ++i) text += QStringLiteral("<c>%1</c>").arg(i * 5);
  return text;
}

// A whole order. Each part can be replaced by a test.
QString orderXml() {
  return QStringLiteral(
             "<comanda><nrComanda>ab12</nrComanda><dataComanda><zi>5</zi><luna>3</luna><an>2026</an></"
             "dataComanda>"
             "<dateClient><nume>O'POP</nume><prenume>ANA</prenume><adresa>Str. Lunga "
             "1</adresa><biSerie>XH</biSerie>"
             "<biNr>123456</biNr><cnp>2800101054321</cnp><politia>Oradea</politia><telefon>0259</telefon>"
             "<data><zi>1</zi><luna>2</luna><an>2020</an></data></dateClient><doctor>DR. NOU</doctor>"
             "<punctLucru><nume>CABINET NOU</nume><adresa>Str. Mica "
             "2</adresa><telefon>0259111</telefon></punctLucru>"
             "<dateDispozitivMedical><numeDispMedical>AP1</numeDispMedical><gradHipoAcuzie>medie</"
             "gradHipoAcuzie>"
             "<serieDisp>S77</serieDisp><pretLivrare>2.101,50 lei</pretLivrare><pretReferinta>900 "
             "RON</pretReferinta>"
             "<urechea><dreapta>true</dreapta></urechea></dateDispozitivMedical>"
             "<decizie><nrDecizie>D1</nrDecizie><dataDecizie><zi>1</zi><luna>3</luna><an>2026</an></"
             "dataDecizie>"
             "</decizie><cas>CAS NOU</cas><nrCarnetAsigurat>C1</nrCarnetAsigurat>"
             "<certificatGarantie><nr>G1</nr><data><zi>6</zi><luna>3</luna><an>2026</an></data></"
             "certificatGarantie>"
             "<audiogramaTonala><stanga>%1</stanga><dreapta>%2</dreapta></audiogramaTonala>"
             "<audiogramaVocala><stanga>%3</stanga><dreapta>%4</dreapta></audiogramaVocala></comanda>")
      .arg(cells(7, "-"), cells(7, "12,5"), cells(21, ""), cells(21, "100"));
}

class OrderFileTest : public ::testing::Test {
 protected:
  QString written(const QByteArray& bytes) {
    QFile file(folder.filePath("comanda.xml"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  }

  void expectRefused(const QByteArray& bytes, const QString& text) {
    const int partners = OpenRs("SELECT COUNT(*) AS N FROM kt_ter").first().value("N").toInt();
    try {
      importOrder(written(bytes));
      ADD_FAILURE() << "taken: " << qUtf8Printable(text);
    } catch (const RuleError& error) {
      EXPECT_TRUE(error.text().contains(text)) << qUtf8Printable(error.text());
    }
    EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM kt_ter").first().value("N").toInt(), partners);
    EXPECT_TRUE(OpenRs("SELECT ID_Comanda FROM G_COMANDA_AUDIO").isEmpty());
    EXPECT_TRUE(OpenRs("SELECT ID_Comanda FROM G_AudiogramaTonala").isEmpty());
  }

  QTemporaryDir folder;
  Shop shop{"FIFO"};
};

TEST_F(OrderFileTest, AFileBecomesAnOrderWithItsPartners) {
  const QString path = written(orderXml().toUtf8());
  const qint64 key = importOrder(path);
  const Row order = storedOrder(key);
  EXPECT_EQ(order.text("Nr"), "AB12");
  EXPECT_EQ(order.date("Data"), QDate(2026, 3, 5));
  EXPECT_EQ(order.text("GradHipoacuzie"), "MEDIE");
  EXPECT_EQ(order.decimal("PretLivrare"), *Decimal::parse(u"2101.5"));
  EXPECT_EQ(order.decimal("PretReferinta"), 900);
  EXPECT_TRUE(order.flag("UrecheaDreapta") && order.flag("IsImport"));
  EXPECT_EQ(order.text("Fisier"), path);
  const Recordset tone = audiogram(Audiogram::Tone, key);
  EXPECT_TRUE(tone[0].isNull("C125"));
  EXPECT_EQ(tone[1].decimal("C125"), *Decimal::parse(u"12.5"));
  EXPECT_EQ(tone[1].decimal("C8000"), 30);
  EXPECT_EQ(audiogram(Audiogram::Speech, key)[1].decimal("C0"), 100);
  const Row patient = OpenRs("SELECT * FROM kt_ter WHERE COD = ?", {order.integer("ID_Pacient")}).first();
  EXPECT_EQ(patient.text("NUME") + patient.text("TIP") + patient.text("SerieBI"), "O'POP ANACXH");
  EXPECT_EQ(
      OpenRs("SELECT TELEFON FROM kt_ter WHERE NUME = 'CABINET NOU' AND TIP = 'C'").first().text("TELEFON"),
      "0259111");
  try {
    importOrder(path);
    ADD_FAILURE();
  } catch (const RuleError& error) {
    EXPECT_EQ(error.text(), "Comanda mai exista");
  }
  // The same people again; without a personal number only by name, without a work point none.
  const int partners = OpenRs("SELECT COUNT(*) AS N FROM kt_ter").first().value("N").toInt();
  QString next = orderXml().replace("ab12", "2").replace("CABINET NOU", "");
  EXPECT_TRUE(storedOrder(importOrder(written(next.toUtf8()))).isNull("ID_PunctLucru"));
  next.replace("<nrComanda>2<", "<nrComanda>3<").replace("2800101054321", "");
  const qint64 anonymous = storedOrder(importOrder(written(next.toUtf8()))).integer("ID_Pacient");
  EXPECT_NE(anonymous, order.integer("ID_Pacient"));
  next.replace("<nrComanda>3<", "<nrComanda>4<");
  EXPECT_EQ(storedOrder(importOrder(written(next.toUtf8()))).integer("ID_Pacient"), anonymous);
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM kt_ter").first().value("N").toInt(), partners + 1);
}

TEST_F(OrderFileTest, EncodingsAreRead) {
  const QString name = QString::fromUtf8("DR. ȘTEFAN ŢIRIAC");
  const QString good = orderXml().replace("DR. NOU", QString::fromUtf8("DR. ţigan"));
  const auto declared = [&](const char* encoding) {
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>").arg(encoding) + good;
  };
  EXPECT_EQ(readOrderFile("\xEF\xBB\xBF" + good.toUtf8()).doctor, QString::fromUtf8("DR. ţigan"));
  for (const char* encoding : {"UTF-16", "ISO-8859-2", "windows-1250"}) {
    QByteArray bytes = QStringEncoder(encoding).encode(declared(encoding));
    if (QLatin1String(encoding) == QLatin1String("UTF-16") && !bytes.startsWith("\xFF\xFE"))
      bytes.prepend("\xFF\xFE");
    EXPECT_EQ(readOrderFile(bytes).doctor, QString::fromUtf8("DR. ţigan")) << encoding;
  }
  expectRefused(QByteArray(declared("windows-1250").toLatin1()).replace("DR. ", "DR.\x81"), "octeti");
  expectRefused(declared("UTF-8").toLatin1().replace("DR. ", "DR.\xFE"), "octeti");
  const QByteArray wide =
      QStringEncoder("UTF-16", QStringConverter::Flag::WriteBom).encode(declared("UTF-16"));
  expectRefused(wide + '\x20', "octeti");
  expectRefused(QByteArray(wide).replace(QByteArray("D\0R\0", 4), QByteArray("\0\xD8R\0", 4)), "octeti");
  expectRefused(declared("IBM852").toLatin1(), "codificare necunoscuta");
}

TEST_F(OrderFileTest, BadFilesWriteNothingAndNameTheElement) {
  const QString good = orderXml();
  const auto with = [&](const QString& before, const QString& after) {
    EXPECT_TRUE(good.contains(before)) << qUtf8Printable(before);
    return QString(good).replace(before, after).toUtf8();
  };
  expectRefused("", "linia");
  expectRefused(good.left(200).toUtf8(), "linia");
  expectRefused((good + "<b/>").toUtf8(), "linia");
  expectRefused(with("O'POP", "&om;"), "linia");
  expectRefused("<!DOCTYPE comanda [<!ENTITY a \"b\">]>" + good.toUtf8(), "DOCTYPE");
  expectRefused(QByteArray("<comenzi>") + good.toUtf8() + "</comenzi>", "elementul principal");
  expectRefused(with("<comanda>", "<comanda xmlns=\"urn:x\">"), "elementul principal");
  expectRefused(good.toUtf8() + QByteArray(1024LL * 1024, ' '), "prea mare");
  const QList<std::array<const char*, 3>> faults = {
      {"<cnp>2800101054321</cnp>", "", "comanda/dateClient/cnp lipseste"},
      {"<serieDisp>S77</serieDisp>", "", "//dateDispozitivMedical/serieDisp lipseste"},
      {"ab12", " ", "comanda/nrComanda este gol"},
      {"O'POP", "", "comanda/dateClient/nume este gol"},
      {"DR. NOU", "", "//doctor este gol"},
      {"CAS NOU", "", "//cas este gol"},
      {">AP1<", "><", "//dateDispozitivMedical/numeDispMedical este gol"},
      {"<zi>5</zi>", "<zi>31</zi>", ""},
      {"<zi>5</zi><luna>3</luna>", "<zi>30</zi><luna>2</luna>", "comanda/dataComanda nu este o data"},
      {"<an>2020</an>", "<an>x</an>", "comanda/dateClient/data nu este o data"},
      {"2.101,50 lei", "nan", "//dateDispozitivMedical/pretLivrare nu este un pret"},
      {"900 RON", "9,00,0", "//dateDispozitivMedical/pretReferinta nu este un pret"},
      {"<c>12,5</c>", "<c>nan</c>", "//audiogramaTonala/dreapta[1] nu este un numar"},
      {"<c>12,5</c>", "", "//audiogramaTonala/dreapta are prea putine celule"},
      {"<c>100</c><c>5</c>", "<c>5</c>", "//audiogramaVocala/dreapta are prea putine celule"},
      {"XH", "XHY", "comanda/dateClient/biSerie este prea lung"},
      {"O'POP", "O'POP\u202E", "comanda/dateClient/nume are caractere"}};
  for (const auto& [before, after, text] : faults)
    if (*text != '\0') expectRefused(with(before, QString::fromUtf8(after)), text);
  expectRefused(with("ANA", QString(38, 'A')), "prea lung");
  EXPECT_THROW(importOrder(folder.filePath("lipsa.xml")), RuleError);
}

TEST(PriceTest, GroupsEndWithAPoint) {
  const QList<std::pair<const char*, const char*>> prices = {{"2.101,50", "2101.5"},
                                                             {"2101,50", "2101.5"},
                                                             {"2101.50", "2101.5"},
                                                             {"2.101", "2101"},
                                                             {"1.234.567,8", "1234567.8"},
                                                             {"0.500", "0.5"},
                                                             {"12 lei", "12"},
                                                             {"12RON", "12"},
                                                             {"0", "0"}};
  for (const auto& [text, value] : prices) EXPECT_EQ(parsePrice(text)->toString(), value) << text;
  for (const char* text : {"", "-5", "1.2.3", "1,234.5", "1e3", "lei", "12 eur", "1 000", "12,"})
    EXPECT_FALSE(parsePrice(text)) << text;
}

}  // namespace
}  // namespace velmar
