// The buttons at the bottom of listing and report forms ("Listare", "Proiectare", exit) and the actions of
// the first two.
#pragma once

#include <functional>
#include <QBoxLayout>

#include "reports/ReportData.h"
#include "reports/windows/LabelSheets.h"

namespace velmar {

struct ListingActions {
  std::function<void()> list;
  std::function<void()> design;
};

/// Creates cmdVisualizare, cmdDesign and cmdAnulare. cmdDesign is hidden until P is pressed on
/// cmdVisualizare.
QHBoxLayout* listingCommands(QWidget* form, const QString& exitCaption, const ListingActions& actions);

/// A report with its layout.
struct PreparedReport {
  QString file;
  ReportData data;
  LabelRun labels = {};  ///< of a layout of labels
};

/// Shows the preview. With `choosesTarget`, first prints to the chosen target; if the user cancels that, the
/// preview is still shown.
void listReport(const PreparedReport& report, bool choosesTarget, QWidget* form);
/// Prints the report; with `choosesTarget`, first to the chosen target.
void printReport(const PreparedReport& report, bool choosesTarget, QWidget* form);
void designReport(const PreparedReport& report, QWidget* form);

}  // namespace velmar
