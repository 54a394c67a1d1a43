#include "fiscal/ComandaCasaMarcat.h"

#include <QFileInfo>

#include "catalogue/Articles.h"
#include "config/Session.h"
#include "fiscal/Generator.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kModule = QStringLiteral("ComandaCasaMarcat");
constexpr int kDatecsName = 22;  // characters
constexpr int kHelpMicroName = 24;

// Both registers accept prices in whole bani.
Decimal registerPrice(const ReceiptLine& line) { return Round(line.PRETFT, 2); }

// The commands of a line, as returned by `build`; adds the line number to its errors.
template <typename Build>
QByteArray lineCommand(int number, Build&& build) {
  try {
    return build();
  } catch (const Error& error) {
    throw RuleError(reportOf(error.text(), QStringLiteral("getComandaVanzare"), kModule, number));
  }
}

}  // namespace

void ComandaCasaMarcat::setTextPublicitar(const QString& text1, const QString& text2, const QString& text3,
                                          const QString& text4, const QString& text5) {
  advertising_.add(advertisingLine(text1, text2, text3, text4, text5));
}

QByteArray ComandaCasaMarcat::getComandaVanzare(const ReceiptLine& line) const {
  return "S,1,______,_,__;" + commandField(line.Denumire).left(kDatecsName) + ';' +
         fixedNumber(withVat(registerPrice(line), CotaTVA, decimals_), 2, 0) + ';' +
         fixedNumber(line.Cant, 3, 1) + ";1;1;1;0;0;";
}

QByteArray ComandaCasaMarcat::getComandaVanzare_PARTNER(const ReceiptLine& line, qint64 article) const {
  return "S;" + QByteArray::number(article) + ';' +
         commandField(line.Denumire).left(kHelpMicroName).trimmed() + ';' +
         fixedNumber(withVat(registerPrice(line), CotaTVA, decimals_), 2, 0) + ';' +
         fixedNumber(line.Cant, 3, 1) + (CotaTVA == 0 ? ";1;1;0;;" : ";1;1;1;;");
}

// Empty when there is none.
QByteArray ComandaCasaMarcat::discount(const ReceiptLine& line) const {
  constexpr int kHundredths = 100;
  const Decimal netPrice = line.VALOAREFT / line.Cant;
  const Decimal value =
      (registerPrice(line) - netPrice) * line.Cant * (1 + Decimal(CotaTVA) / 100) * kHundredths;
  return value > 0 ? "D;0;" + fixedNumber(value, 2, 1) + ';' : QByteArray();
}

ReceiptResult ComandaCasaMarcat::GenereazaComanda(const std::vector<ReceiptLine>& lines) {
  if (lines.empty() || FileName.isEmpty()) return ReceiptResult::NotPrinted;
  const auto generator = [&] {
    CommandFile file;
    file << "H,1,______,_,__;";
    int number = 0;
    for (const ReceiptLine& line : lines)
      file << lineCommand(++number, [&] { return getComandaVanzare(line); });
    advertising_.writeTo(file);
    file << "T,1,______,_,__;"
         << "F,1,______,_,__;";
    file.write(FileName);
    return startRegister(
        {DatPrintPath, {FileName}, session().gCaleAplicatie},
        QStringLiteral("Va rog configurati calea catre programul DatPrint asociat cu casa de marcat!"));
  };
  return generated(generator, [](const QString& error) {
    return reportOf(error, QStringLiteral("GenereazaComanda"), kModule, 0);
  });
}

ReceiptResult ComandaCasaMarcat::GenereazaComanda_PARTNER(const std::vector<ReceiptLine>& lines) {
  if (lines.empty() || FileName.isEmpty()) return ReceiptResult::NotPrinted;
  const auto generator = [&] {
    QStringList codes;
    for (const ReceiptLine& line : lines) codes.append(line.CodArt.trimmed());
    const std::vector<qint64> articles = articleNumbers(codes);
    CommandFile file;
    for (size_t i = 0; i < lines.size(); ++i) {
      file << lineCommand(static_cast<int>(i) + 1,
                          [&] { return getComandaVanzare_PARTNER(lines[i], articles[i]); });
      if (const QByteArray command = discount(lines[i]); !command.isEmpty()) file << command;
    }
    file << (Card ? "T;3;;;" : "T;1;;;");
    file.write(FileName);
    return startRegister(
        {DatPrintPath,
         {QStringLiteral("/file"), QStringLiteral("script1.cmd")},
         QFileInfo(DatPrintPath).path()},
        QStringLiteral("Va rog configurati calea catre programul VSU.EXE asociat cu casa de marcat!"));
  };
  return generated(
      generator, [](const QString&) { return QStringLiteral("Eroare - Casa de marcat nu este operativa"); });
}

}  // namespace velmar
