// The command files of the registers, byte for byte.
#include "RegisterPlace.h"

namespace velmar {

namespace {

class CommandFilesTest : public RegisterPlace {
 protected:
  CommandFilesTest() {
    putProgram(drive("Program Files/Datecs/DatPrint/DatPrint.exe"), "");
    putProgram(drive("Program Files/Help Micro/Fiscal Printer/vsu.exe"), "");
    putProgram(app("start.bat"), "");
    putProgram(app("OPTIKEY.EXE"), "");
  }

  QByteArray sent(const char* letter, const Receipt& receipt) {
    EXPECT_EQ(printReceipt(letter, receipt), ReceiptResult::Printed) << letter;
    switch (*letter) {
      case 'D':
        return contentOf(drive("Comanda.txt"));
      case 'P':
        return contentOf(drive("Program Files/Help Micro/Fiscal Printer/SCRIPT1.cmd"));
      case 'A':
        return contentOf(app("Tx.txt"));
      default:
        return contentOf(app("OPTIMA.BON"));
    }
  }

  static ReceiptLine discounted(ReceiptLine line, const char* netPrice, const char* value) {
    line.ValoareFTCuDiscount = dec(netPrice);
    line.VALOAREFT = dec(value);
    return line;
  }
};

TEST_F(CommandFilesTest, DatecsGetsPricesWithVat) {
  // 8.50 with VAT is 10.115, half to even 10.12; 0.35 is 0.4165. 2.345 is 2.34 to the ban, and 2.7846 with
  // VAT.
  EXPECT_EQ(
      sent("D", receipt({line("Ciocolata cu lapte si alune 100g", "8.5", "1.5"),
                         line("Brânză și ţuică 漢", "0.35", "12"), line("Apa; plata", "2.345", "0.125")})),
      "H,1,______,_,__;\r\n"
      "S,1,______,_,__;Ciocolata cu lapte si ;10.12;1.500;1;1;1;0;0;\r\n"
      "S,1,______,_,__;Br\xE2nz\xE3 \xBAi \xFEuic\xE3 ?;.42;12.000;1;1;1;0;0;\r\n"
      "S,1,______,_,__;Apa, plata;2.78;0.125;1;1;1;0;0;\r\n"
      "P,1,______,_,__;Va Multumim!;;;;;\r\n"
      "T,1,______,_,__;\r\n"
      "F,1,______,_,__;\r\n");
  // Without VAT the line is the same; two decimals are written whatever the rounding.
  const auto price = [this](const char* net, int vat, int decimals) {
    return sent("D", receipt({line("X", net, "1")}, vat, decimals)).split(';').at(3);
  };
  EXPECT_EQ(price("0.5", 0, 2), ".50");
  EXPECT_EQ(price("8.5", 19, 0), "10.00");
  EXPECT_EQ(price("8.55", 19, 4), "10.17");
  EXPECT_EQ(price("0", 19, 2), ".00");
}

TEST_F(CommandFilesTest, HelpMicroGetsArticlesAndDiscounts) {
  for (const char* code : {"C1", "că2", "C3"})
    ExecutaSql("INSERT INTO G_ARTMAG (CODART, ID) VALUES (?, ?)",
               {QString::fromUtf8(code), *code == 'c' ? Value() : Value(40 + code[1] - '0')});
  // 1 leu off 3 pieces is 3.57 with VAT; 0.40 off 1.5 is 0.714. The article without a number gets the next
  // one.
  Receipt sale = receipt({discounted(line("Suc de portocale Fresca 1L", "10", "3", "C1 "), "9", "27"),
                          line(" Paine", "0.8", "2", "Că2"),
                          discounted(line("Cascaval", "4", "1.5", "C3"), "3.6", "5.4")});
  const QByteArray first =
      "S;41;Suc de portocale Fresca;11.90;3.000;1;1;1;;\r\n"
      "D;0;357.00;\r\n"
      "S;44;Paine;.95;2.000;1;1;1;;\r\n"
      "S;43;Cascaval;4.76;1.500;1;1;1;;\r\n"
      "D;0;71.40;\r\n";
  EXPECT_EQ(sent("P", sale), first + "T;1;;;\r\n");
  sale.Card = true;
  database().takeRecordedStatements();
  EXPECT_EQ(sent("P", sale), first + "T;3;;;\r\n");
  EXPECT_EQ(database().takeRecordedStatements().size(), 1);

  // Without VAT: the flag is 0, and the discount that of the price without VAT.
  sale = receipt({discounted(line("Carte", "0.5", "2", "C1"), "0.45", "0.9")}, 0);
  EXPECT_EQ(sent("P", sale), "S;41;Carte;.50;2.000;1;1;0;;\r\nD;0;10.00;\r\nT;1;;;\r\n");
}

TEST_F(CommandFilesTest, ActivaGetsFieldsOfFixedWidth) {
  // 8.50 with VAT is 1012 bani; halves of pieces round to even; 4.5 off is 4, without VAT.
  EXPECT_EQ(sent("A", receipt({line("Paine", "8.5", "1.5"),
                               discounted(line("Ciocolata cu lapte și alune", "10", "2.5"), "5.5", "13.75"),
                               discounted(line("Punga", "7.7", "12"), "0", "0")})),
            "KARAT\r\n"
            "P\r\n"
            "PATI CUMPARAT:\r\n"
            "*Paine               000010122000002000111\r\n"
            "*Ciocolata cu lapte \xBA"
            "000011902000002000111\r\n"
            "-0000000421\r\n"
            "*Punga               000009162000012000111\r\n"
            "-0000000821\r\n"
            "PVA MULTUMIM!\r\n"
            "T0000010000CASH  \r\n"
            "END KARAT\r\n");
  // Without a width it is 20; Romanian letters have a cedilla.
  Receipt unset = receipt({line("ȘșȚț Ciocolata cu lapte", "1", "1")});
  unset.NrCaractere = 0;
  EXPECT_EQ(sent("A", unset).split('\n').at(3).left(21), "*\xAA\xBA\xDE\xFE Ciocolata cu la");
  EXPECT_EQ(sent("O", unset).split(';').at(1), "\xAA\xBA\xDE\xFE Ciocolata cu la ");
  const auto article = [this](const char* net, int vat, int decimals) {
    return sent("A", receipt({line("X", net, "1")}, vat, decimals)).split('\n').at(3).mid(21, 9);
  };
  EXPECT_EQ(article("8.5", 19, 0), "000000100");
  EXPECT_EQ(article("0.5", 0, 4), "000050004");
  EXPECT_EQ(article("1.00005", 19, 4), "000119004");  // the price itself has four decimals
}

TEST_F(CommandFilesTest, OptimaGetsAPaymentThatCoversTheReceipt) {
  // 3.20 with VAT is 3.81, times 3 is 11.43; 0.50 is 0.595, half to even 0.60, times 2 is 1.20.
  const Receipt sale = receipt({discounted(line("Ciocolata cu lapte si alune", "4", "3"), "3.2", "9.6"),
                                discounted(line("Paine", "0.5", "1.5"), "0", "0.75")});
  EXPECT_EQ(sent("O", sale),
            "1\r\n"
            "S;Ciocolata cu lapte s ;3.81;3;2;\r\n"
            "S;Paine ;0.6;2;2;\r\n"
            "T;12.63;CASH;;;;;;;;;;;\r\n");
  Receipt whole = sale;
  whole.NrZec = 0;
  EXPECT_EQ(sent("O", whole),
            "1\r\nS;Ciocolata cu lapte s ;4;3;2;\r\nS;Paine ;1;2;2;\r\nT;14;CASH;;;;;;;;;;;\r\n");
  whole.CotaTVA = 0;
  whole.NrZec = 4;
  EXPECT_EQ(sent("O", whole),
            "1\r\nS;Ciocolata cu lapte s ;3.2;3;2;\r\nS;Paine ;0.5;2;2;\r\nT;10.6;CASH;;;;;;;;;;;\r\n");
}

TEST_F(CommandFilesTest, AReceiptThatCannotBeEncodedIsNotSent) {
  put(drive("Comanda.txt"));
  put(app("Tx.txt"));
  ReceiptLine endless = line("Y", "1", "1");
  endless.PRETFT = dec("9e6144");
  EXPECT_EQ(printReceipt("D", receipt({line("X", "1", "1"), endless})), ReceiptResult::NotPrinted);
  EXPECT_EQ(messages_.take(),
            QStringList("Rezultatul depaseste limitele de calcul in procedura getComandaVanzare "
                        "din Class Module ComandaCasaMarcat Linia: 2"));
  EXPECT_EQ(contentOf(drive("Comanda.txt")), "vechi");

  EXPECT_EQ(printReceipt("A", receipt({line("X", "1000000", "1")})), ReceiptResult::NotPrinted);
  EXPECT_EQ(
      messages_.take(),
      QStringList("Pretul sau cantitatea articolului X nu incape in comanda casei de marcat in procedura "
                  "GenereazaBon din Class Module CasaComandaMarcat2 Linia: 1"));
  EXPECT_EQ(contentOf(app("Tx.txt")), "vechi");

  // An unknown article, and a quantity of 0 as divisor.
  put(drive("Program Files/Help Micro/Fiscal Printer/SCRIPT1.cmd"));
  EXPECT_EQ(printReceipt("P", receipt({line("X", "1", "1", "nimic")})), ReceiptResult::NotPrinted);
  ExecutaSql("INSERT INTO G_ARTMAG (CODART, ID) VALUES ('A1', 1)");
  EXPECT_EQ(printReceipt("P", receipt({line("X", "1", "0")})), ReceiptResult::NotPrinted);
  EXPECT_EQ(messages_.take(), QStringList(2, "Eroare - Casa de marcat nu este operativa"));
  EXPECT_EQ(contentOf(drive("Program Files/Help Micro/Fiscal Printer/SCRIPT1.cmd")), "vechi");

  // Without lines there is no receipt.
  for (const char* letter : {"D", "P", "A", "O"})
    EXPECT_EQ(printReceipt(letter, receipt({})), ReceiptResult::NotPrinted);
  EXPECT_FALSE(QFile::exists(app("OPTIMA.BON")));
  EXPECT_TRUE(messages_.isEmpty());
}

}  // namespace

}  // namespace velmar
