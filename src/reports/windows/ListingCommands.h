// What listing and report forms end with: "Listare", "Proiectare", the way out, and what the first two do.
#pragma once

#include <functional>
#include <QBoxLayout>

#include "reports/ReportData.h"

namespace velmar {

struct ListingActions {
  std::function<void()> list;
  std::function<void()> design;
};

/// Makes cmdVisualizare, cmdDesign and cmdAnulare. cmdDesign shows once P has been pressed on cmdVisualizare.
QHBoxLayout* listingCommands(QWidget* form, const QString& exitCaption, const ListingActions& actions);

/// A report with its layout.
struct PreparedReport {
  QString file;
  ReportData data;
};

/// The preview; before it, with a choice of the target, the print, which the user may give up without losing
/// the preview.
void listReport(const PreparedReport& report, bool choosesTarget, QWidget* form);
/// The printer.
void printReport(const PreparedReport& report, QWidget* form);
void designReport(const PreparedReport& report, QWidget* form);

}  // namespace velmar
