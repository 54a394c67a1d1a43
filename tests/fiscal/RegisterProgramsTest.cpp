// The programs of the registers, simulated by scripts: finding, starting and waiting for them.
#include <csignal>
#include "RegisterPlace.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kNotReady = QStringLiteral("Casa de marcat nu este pregatita !");

class RegisterProgramsTest : public RegisterPlace {
 protected:
  static Receipt sale() { return receipt({line("Paine", "1", "1")}, 0); }
};

TEST_F(RegisterProgramsTest, AFileIsFoundInAnySpelling) {
  EXPECT_EQ(missingCommandFile("D"), "Programul de comunicatie cu casa de marcat DATECS nu este instalat");
  EXPECT_EQ(missingCommandFile("P"), "Programul de comunicatie cu casa de marcat PARTNER nu este instalat");
  EXPECT_EQ(missingCommandFile("A"), "Programul de comunicatie cu casa de marcat ACTIVA nu este instalat");
  EXPECT_EQ(missingCommandFile("O"), "Programul de comunicatie cu casa de marcat OPTIMA nu este instalat");
  EXPECT_THROW(missingCommandFile(" "), RuleError);
  EXPECT_THROW(printReceipt("X", sale()), RuleError);

  QDir().mkpath(drive("Program Files/Help Micro"));  // a second spelling without the file
  const QString folder = drive("PROGRAM FILES/help micro/Fiscal printer/");
  put(drive("COMANDA.TXT"));
  put(folder + "Script1.CMD");
  put(app("TX.TXT"));
  put(app("optima.bon"));
  for (const char* letter : {"D", "P", "A", "O", "d"}) EXPECT_EQ(missingCommandFile(letter), "") << letter;

  ExecutaSql("INSERT INTO G_ARTMAG (CODART, ID) VALUES ('A1', 5)");
  putProgram(folder + "VSU.EXE", "{ pwd; echo \"$#:$1:$2\"; } > started.tmp; mv started.tmp started\n");
  EXPECT_EQ(printReceipt("P", sale()), ReceiptResult::Printed);
  EXPECT_EQ(left(folder + "started"), QFile::encodeName(QDir::cleanPath(folder)) + "\n2:/file:script1.cmd\n");
  EXPECT_EQ(contentOf(folder + "Script1.CMD"), "S;5;Paine;1.00;1.000;1;1;0;;\r\nT;1;;;\r\n");
  EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList({"Script1.CMD", "started", "VSU.EXE"}));

  const QString datecs = drive("program files/DATECS/DatPrint/");
  putProgram(datecs + "DatPrint.exe", "cp \"$1\" \"$0.tmp\"; mv \"$0.tmp\" \"$0.read\"\n");
  EXPECT_EQ(printReceipt("D", sale()), ReceiptResult::Printed);
  EXPECT_TRUE(left(datecs + "DatPrint.exe.read").startsWith("H,1,"));
  EXPECT_EQ(contentOf(datecs + "DatPrint.exe.read"), contentOf(drive("COMANDA.TXT")));
  EXPECT_FALSE(QFile::exists(drive("Comanda.txt")));
  EXPECT_TRUE(messages_.isEmpty());
}

TEST_F(RegisterProgramsTest, WithoutItsProgramNothingIsPrinted) {
  const QString datecs =
      QStringLiteral("Va rog configurati calea catre programul DatPrint asociat cu casa de marcat!");
  EXPECT_EQ(printReceipt("D", sale()), ReceiptResult::NotPrinted);
  put(drive("Program Files/Datecs/DatPrint/DatPrint.exe"), "#!/bin/sh\n");  // not executable
  EXPECT_EQ(printReceipt("D", sale()), ReceiptResult::NotPrinted);
  ExecutaSql("INSERT INTO G_ARTMAG (CODART, ID) VALUES ('A1', 5)");
  QDir().mkpath(drive("Program Files/Help Micro/Fiscal Printer/vsu.exe"));  // a folder
  EXPECT_EQ(printReceipt("P", sale()), ReceiptResult::NotPrinted);
  EXPECT_EQ(printReceipt("O", sale()), ReceiptResult::NotPrinted);
  for (const Message& message : messages_.all()) EXPECT_EQ(message.buttons, kInformation);
  put(app("OPTIKEY.EXE"), "no program");
  EXPECT_EQ(printReceipt("O", sale()), ReceiptResult::NotPrinted);
  EXPECT_EQ(printReceipt("A", sale()), ReceiptResult::NotPrinted);
  EXPECT_EQ(
      messages_.take(),
      QStringList({datecs, datecs,
                   "Va rog configurati calea catre programul VSU.EXE asociat cu casa de marcat!",
                   "Va rog instalati programul OPTIKEY asociat cu casa de marcat!", kNotReady, kNotReady}));
}

TEST_F(RegisterProgramsTest, RegistersThatAnswerAreWaitedFor) {
  const std::pair<const char*, QString> programs[] = {{"A", app("start.bat")}, {"O", app("OPTIKEY.EXE")}};
  for (const auto& [letter, program] : programs) {
    SCOPED_TRACE(letter);
    // It runs in its program folder, finds the complete file, and may write any amount of output.
    putProgram(program, "yes | head -c 300000; sleep 0.2; cat Tx.txt OPTIMA.BON > read; exit 0\n");
    EXPECT_EQ(printReceipt(letter, sale()), ReceiptResult::Printed);
    EXPECT_TRUE(contentOf(app("read")).contains(*letter == 'A' ? "END KARAT\r\n" : "T;1;CASH"));
    EXPECT_TRUE(messages_.isEmpty());

    for (const char* failure : {"exit 3\n", "kill -SEGV $$\n", "exec /nowhere\n"}) {
      putProgram(program, failure);
      EXPECT_EQ(printReceipt(letter, sale()), ReceiptResult::NotPrinted) << failure;
      EXPECT_EQ(messages_.take(), QStringList(kNotReady)) << failure;
    }

    // Giving up does not end the program: it may still print.
    putProgram(program, "echo $$ > pid.tmp; mv pid.tmp pid; exec sleep 60\n");
    user_.patience = 500;
    EXPECT_EQ(printReceipt(letter, sale()), ReceiptResult::Unknown);
    user_.patience = 20000;
    const pid_t process = left(app("pid")).trimmed().toInt();
    QFile::remove(app("pid"));
    ASSERT_GT(process, 0);
    EXPECT_EQ(::kill(process, SIGTERM), 0);
    EXPECT_TRUE(messages_.isEmpty());
  }

  // The error file of OPTIMA's program makes every receipt fail until it is removed.
  putProgram(app("OPTIKEY.EXE"), "exit 0\n");
  put(drive("OptyKey/ERORI.TXT"), "");
  EXPECT_EQ(printReceipt("O", sale()), ReceiptResult::NotPrinted);
  EXPECT_EQ(messages_.take(), QStringList(kNotReady));
  QFile::remove(drive("OptyKey/ERORI.TXT"));
  EXPECT_EQ(printReceipt("O", sale()), ReceiptResult::Printed);
}

TEST_F(RegisterProgramsTest, WithoutACommandFileTheProgramIsNotStarted) {
  putProgram(app("start.bat"), "touch started\n");
  putProgram(app("OPTIKEY.EXE"), "touch started\n");
  QDir().mkpath(app("Tx.txt/x"));
  QDir().mkpath(app("OPTIMA.BON/x"));
  EXPECT_EQ(printReceipt("A", sale()), ReceiptResult::NotPrinted);
  EXPECT_EQ(printReceipt("O", sale()), ReceiptResult::NotPrinted);
  const QStringList errors = messages_.take();
  ASSERT_EQ(errors.size(), 2);
  EXPECT_TRUE(errors[0].endsWith(" in procedura GenereazaBon din Class Module CasaComandaMarcat2 Linia: 0"));
  EXPECT_TRUE(
      errors[1].endsWith(" in procedura GenereazaComanda din Class Module CasaDeMarcat_OPTIMA Linia: 0"));
  EXPECT_FALSE(QFile::exists(app("started")));
  EXPECT_EQ(QDir(app()).entryList(QDir::Files), QStringList({"OPTIKEY.EXE", "start.bat"}));
}

}  // namespace

}  // namespace velmar
