#include "reports/BarCodes.h"

#include <zint.h>
#include <algorithm>
#include <memory>

namespace velmar::layout {

namespace {

constexpr qsizetype kLongest = 80;  // characters
constexpr qsizetype kEanDigits = 13;

bool isEncodable(BarCodeType type, const QString& text) {
  if (text.isEmpty() || text.size() > kLongest) return false;
  if (type == BarCodeType::Code128)
    return std::all_of(text.begin(), text.end(),
                       [](QChar letter) { return letter >= u' ' && letter <= u'~'; });
  return (text.size() == kEanDigits || text.size() == kEanDigits - 1) &&
         std::all_of(text.begin(), text.end(), [](QChar letter) { return letter >= u'0' && letter <= u'9'; });
}

}  // namespace

QBitArray barModules(BarCodeType type, const QString& text) {
  if (!isEncodable(type, text)) return {};
  const std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)> symbol(ZBarcode_Create(), ZBarcode_Delete);
  if (!symbol) return {};
  symbol->symbology = type == BarCodeType::Ean13 ? BARCODE_EANX : BARCODE_CODE128;
  const QByteArray bytes = text.toLatin1();
  const auto* source = reinterpret_cast<const unsigned char*>(bytes.constData());
  if (ZBarcode_Encode(symbol.get(), source, static_cast<int>(bytes.size())) >= ZINT_ERROR) return {};
  QBitArray modules(symbol->width);
  for (int i = 0; i < symbol->width; ++i)
    modules.setBit(i, (symbol->encoded_data[symbol->rows - 1][i / 8] >> (i % 8)) & 1);
  return modules;
}

QString barText(BarCodeType type, const QString& text) {
  if (type != BarCodeType::Ean13 || text.size() != kEanDigits - 1) return text;
  int sum = 0;
  for (qsizetype i = 0; i < text.size(); ++i) sum += text[i].digitValue() * (i % 2 == 0 ? 1 : 3);
  return text + QString::number((10 - sum % 10) % 10);
}

}  // namespace velmar::layout
