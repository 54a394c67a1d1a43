// The printed order of a hearing device.
#pragma once

#include "reports/ReportData.h"

namespace velmar {

/// The data for the layouts of an order: the order with its device as variables, the tone audiogram of its
/// ear (G_AT), the partners and the company; as fields the points of the two curves of that ear: AX, AY
/// (loudness in dB, percent) and BX, BY (frequency in Hz, threshold with its sign reversed); null counts 0.
/// Throws RuleError when the patient, the device's supplier, the work point, the insurer or the doctor has a
/// code that does not exist. An order without a work point has its variables empty.
ReportData orderPaper(qint64 order);

/// The path of the front or the back.
QString orderLayout(bool isBack);

}  // namespace velmar
