#include "fiscal/CasaComandaMarcat2.h"

#include "fiscal/Generator.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kCurrency = 4;  // decimals
constexpr int kPriceDigits = 8;
constexpr int kQuantityDigits = 9;
constexpr int kAdvertisingWidth = 22;

// A longer number would shift all following fields of the line.
QByteArray numberField(const Decimal& value, int digits, const ReceiptLine& line) {
  const QByteArray field = fixedNumber(value, 0, digits);
  if (field.size() > digits || value.isNegative())
    throw Error(kOverflow, QStringLiteral("Pretul sau cantitatea articolului %1 nu incape in comanda casei "
                                          "de marcat")
                               .arg(line.Denumire));
  return field;
}

}  // namespace

void CasaComandaMarcat2::addTextPublicitar(const QString& text) {
  advertising_.add('P' + commandText(text).left(kAdvertisingWidth));
}

void CasaComandaMarcat2::addArticle(CommandFile& file, const ReceiptLine& line) const {
  const Decimal price = Round(line.PRETFT, kCurrency);
  const Decimal discount = price - Round(line.ValoareFTCuDiscount, kCurrency);
  Decimal sold = withVat(price, CotaTVA, DecimalPoint);  // in the smallest unit
  for (int i = 0; i < DecimalPoint; ++i) sold *= 10;
  const QByteArray decimals = QByteArray::number(DecimalPoint);
  file << '*' + commandText(line.Denumire).leftJustified(nameWidth(NrCaractere), ' ', true) +
              numberField(sold, kPriceDigits, line) + decimals +
              numberField(Round(line.Cant, 0) * 1000, kQuantityDigits, line) + '1' +
              QByteArray::number(SubGroup) + QByteArray::number(Group);
  if (discount > 0) file << '-' + numberField(discount, kPriceDigits, line) + decimals + '1';
}

ReceiptResult CasaComandaMarcat2::GenereazaBon(const std::vector<ReceiptLine>& lines) {
  EroareCasa = false;
  if (lines.empty() || FileName.isEmpty()) return ReceiptResult::NotPrinted;
  int number = 0;  // of the line being written
  const auto generator = [&] {
    CommandFile file;
    file << "KARAT"
         << "P"
         << "PATI CUMPARAT:";
    for (const ReceiptLine& line : lines) {
      ++number;
      addArticle(file, line);
    }
    number = 0;
    advertising_.writeTo(file);
    file << "T0000010000CASH  "
         << "END KARAT";
    file.write(FileName);
    return runRegister(FPRWINPath);
  };
  const ReceiptResult result = generated(generator, [&number](const QString& error) {
    return reportOf(error, QStringLiteral("GenereazaBon"), QStringLiteral("CasaComandaMarcat2"), number);
  });
  EroareCasa = result != ReceiptResult::Printed;
  return result;
}

}  // namespace velmar
