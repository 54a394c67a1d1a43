// Bar codes as bars and gaps.
#pragma once

#include <QBitArray>
#include <QString>

#include "reports/Layout.h"

namespace velmar::layout {

/// The modules of the code from left to right, set where there is ink; empty for a text that the code cannot
/// say. An EAN-13 takes 12 digits, or 13 with the right check digit.
QBitArray barModules(BarCodeType type, const QString& text);

/// What stands below the code: an EAN-13 with its check digit.
QString barText(BarCodeType type, const QString& text);

}  // namespace velmar::layout
