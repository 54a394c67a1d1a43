#include "fiscal/CasaDeMarcat_OPTIMA.h"

#include "fiscal/Generator.h"
#include "fiscal/OutsidePath.h"

namespace velmar {

namespace {

constexpr int kCurrency = 4;  // decimals

// The discounted price, if there is one.
Decimal priceOf(const ReceiptLine& line) {
  const Decimal net = Round(line.ValoareFTCuDiscount, kCurrency);
  return net.isZero() ? Round(line.PRETFT, kCurrency) : net;
}

// The register's program writes the error file when the register did not print, and does not remove it.
bool errorFileExists() { return fileExists(onDrive(QStringLiteral("OPTYKEY/Erori.txt"))); }

}  // namespace

void CasaDeMarcat_OPTIMA::setTextPublicitar(const QString& text1, const QString& text2, const QString& text3,
                                            const QString& text4, const QString& text5) {
  advertising_.add(advertisingLine(text1, text2, text3, text4, text5));
}

ReceiptResult CasaDeMarcat_OPTIMA::GenereazaComanda(const std::vector<ReceiptLine>& lines) {
  EroareCasa = false;
  if (lines.empty() || FileName.isEmpty()) return ReceiptResult::NotPrinted;
  int number = 0;  // of the line being written
  const auto generator = [&] {
    CommandFile file;
    file << "1";
    Decimal total;
    for (const ReceiptLine& line : lines) {
      ++number;
      const Decimal price = withVat(priceOf(line), CotaTVA, DecimalPoint);
      const Decimal quantity = Round(line.Cant, 0);
      total = Round(total + price * quantity, DecimalPoint);
      file << "S;" + commandField(line.Denumire).left(nameWidth(NrCaractere)) + " ;" + shortNumber(price) +
                  ';' + shortNumber(quantity) + ";2;";
    }
    number = 0;
    file << "T;" + shortNumber(total) + ";CASH;;;;;;;;;;;";
    file.write(FileName);
    requireProgram(DatPrintPath,
                   QStringLiteral("Va rog instalati programul OPTIKEY asociat cu casa de marcat!"));
    return runRegister(DatPrintPath, errorFileExists);
  };
  const ReceiptResult result = generated(generator, [&number](const QString& error) {
    return reportOf(error, QStringLiteral("GenereazaComanda"), QStringLiteral("CasaDeMarcat_OPTIMA"), number);
  });
  EroareCasa = result != ReceiptResult::Printed;
  return result;
}

}  // namespace velmar
