// The measurements. Each prints its part of the table and returns whether its own checks passed; a missed
// target is marked in the table and is not a failure.
#pragma once

#include <QString>
#include <QStringList>

#include "Fixture.h"

namespace velmar::bench {

bool measureVouchers(Store store);
bool measureInvoices(Store store);
bool measureDeliveryNotes(Store store);
bool measureInvoicesFromNotes(Store store);
bool measureFilling(Store store);  ///< a part of measureInvoicesFromNotes()
bool measureStornos(Store store);
bool measureTransfers(Store store);
bool measureReceiptNotes(Store store);
bool measureCustomerOrders(Store store);
bool measureSupplierOrders(Store store);
bool measureProformas(Store store);
bool measureStock(Store store);
bool measureWriters(Store store);
bool checkPlans(Store store);
bool checkSums(Store store);
bool measureArticles(Store store);
bool measureLists(Store store);
bool measureBrowser(Store store);
bool measureDeletion(Store store);
bool measureInvoicePrint(Store store);
bool measureJournals(Store store);
bool measureReports(Store store);
bool measureStockReports(Store store);
bool measureFigures(Store store);
bool measureHearing(Store store);
bool measureEInvoices(Store store);
bool measureSheetImport(Store store);
bool measureStart(Store store);

/// With this option the process is one of the writers that measureWriters() starts.
inline const QString kWriterOption = QStringLiteral("--writer");
int runWriter(const QStringList& arguments);

/// With this option and a databases folder the process is the program that measureStart() measures.
inline const QString kStartOption = QStringLiteral("--start");
int runStartedProgram(int argc, char** argv, const QString& folder);

}  // namespace velmar::bench
