// Encodes texts as bar codes.
#pragma once

#include <QBitArray>
#include <QString>

#include "reports/Layout.h"

namespace velmar::layout {

/// The modules of the code from left to right, a set bit for a bar; empty for a text that cannot be encoded.
/// An EAN-13 needs 12 digits, or 13 with the correct check digit.
QBitArray barModules(BarCodeType type, const QString& text);

/// The text below the code: an EAN-13 with its check digit.
QString barText(BarCodeType type, const QString& text);

}  // namespace velmar::layout
