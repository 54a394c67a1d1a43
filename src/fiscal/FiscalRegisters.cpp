#include "fiscal/FiscalRegisters.h"

#include <algorithm>
#include <array>

#include "fiscal/CasaComandaMarcat2.h"
#include "fiscal/CasaDeMarcat_OPTIMA.h"
#include "fiscal/ComandaCasaMarcat.h"
#include "fiscal/OutsidePath.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

namespace {

/// A register and its files: paths on the drive, or names in the program's folder.
struct RegisterFacts {
  char letter;
  const char* name;
  QString (*place)(const QString& file);
  const char* commandFile;
  const char* program;
  ReceiptResult (*print)(const RegisterFacts& facts, const Receipt& receipt);

  QString commandPath() const { return place(QString::fromLatin1(commandFile)); }
  QString programPath() const { return place(QString::fromLatin1(program)); }
};

ComandaCasaMarcat driverOf(const RegisterFacts& facts, const Receipt& receipt) {
  ComandaCasaMarcat driver(receipt.NrZec);
  driver.CotaTVA = receipt.CotaTVA;
  driver.Card = receipt.Card;
  driver.FileName = facts.commandPath();
  driver.DatPrintPath = facts.programPath();
  driver.setTextPublicitar(QStringLiteral("Va Multumim!"), {}, {}, {}, {});
  return driver;
}

ReceiptResult printDatecs(const RegisterFacts& facts, const Receipt& receipt) {
  return driverOf(facts, receipt).GenereazaComanda(receipt.lines);
}

ReceiptResult printHelpMicro(const RegisterFacts& facts, const Receipt& receipt) {
  return driverOf(facts, receipt).GenereazaComanda_PARTNER(receipt.lines);
}

ReceiptResult printActiva(const RegisterFacts& facts, const Receipt& receipt) {
  CasaComandaMarcat2 driver;
  driver.FPRWINPath = facts.programPath();
  driver.COM = 1;
  driver.FileName = facts.commandPath();
  driver.DecimalPoint = receipt.NrZec;
  driver.CotaTVA = receipt.CotaTVA;
  driver.NrCaractere = receipt.NrCaractere;
  driver.SubGroup = 1;
  driver.Group = 1;
  driver.addTextPublicitar(QStringLiteral("VA MULTUMIM!"));
  return driver.GenereazaBon(receipt.lines);
}

ReceiptResult printOptima(const RegisterFacts& facts, const Receipt& receipt) {
  CasaDeMarcat_OPTIMA driver;
  driver.CotaTVA = receipt.CotaTVA;
  driver.DatPrintPath = facts.programPath();
  driver.FileName = facts.commandPath();
  driver.NrCaractere = receipt.NrCaractere;
  driver.DecimalPoint = receipt.NrZec;
  driver.setTextPublicitar(QStringLiteral("Va Multumim!"), {}, {}, {}, {});
  return driver.GenereazaComanda(receipt.lines);
}

constexpr std::array kRegisters = {
    RegisterFacts{'D', "DATECS", onDrive, "Comanda.txt", "Program Files/Datecs/DatPrint/DatPrint.exe",
                  printDatecs},
    RegisterFacts{'P', "PARTNER", onDrive, "Program Files/Help Micro/Fiscal Printer/SCRIPT1.cmd",
                  "Program Files/Help Micro/Fiscal Printer/vsu.exe", printHelpMicro},
    RegisterFacts{'A', "ACTIVA", inProgramFolder, "Tx.txt", "start.bat", printActiva},
    RegisterFacts{'O', "OPTIMA", inProgramFolder, "OPTIMA.BON", "OPTIKEY.EXE", printOptima},
};

const RegisterFacts& registerOf(const QString& letter) {
  const QString wanted = letter.trimmed().toUpper();
  const auto* found =
      std::find_if(kRegisters.begin(), kRegisters.end(),
                   [&wanted](const RegisterFacts& facts) { return wanted == QLatin1Char(facts.letter); });
  if (found == kRegisters.end())
    throw RuleError(QStringLiteral("Nu exista casa de marcat \"%1\". Alegeti in parametrii societatii una "
                                   "dintre A-Activa, D-Datecs, O-Optima, P-Partner.")
                        .arg(wanted),
                    {}, kExclamation);
  return *found;
}

}  // namespace

QString missingCommandFile(const QString& letter) {
  const RegisterFacts& facts = registerOf(letter);
  if (fileExists(facts.commandPath())) return {};
  return QStringLiteral("Programul de comunicatie cu casa de marcat %1 nu este instalat")
      .arg(QString::fromLatin1(facts.name));
}

ReceiptResult printReceipt(const QString& letter, const Receipt& receipt) {
  const RegisterFacts& facts = registerOf(letter);
  return facts.print(facts, receipt);
}

}  // namespace velmar
