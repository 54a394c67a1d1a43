// The files of suppliers' electronic invoices: read, judged and stored with their states.
#pragma once

#include "einvoice/Purchases.h"
#include "util/Progress.h"

namespace velmar {

/// Reads files and the files in zip archives, and stores them with their states in place of what was read
/// before. Nothing is written into the books. Files that cannot be read are "refuzata" with the reason.
void readPurchases(const QStringList& paths, const Progress& progress = {});
/// The files of a folder that are read: XML and zip, by name, without links and special files.
QStringList filesOf(const QString& folder);

/// What was read last: ID, FISIER, FURNIZOR, NUMAR, DATA, TOTAL, STARE, LIPSESTE.
Recordset lastPurchases();

/// The stored file with the articles that are known. Throws RuleError when its content was refused.
Purchase storedPurchase(qint64 id, PurchaseSource& source);
/// The content of the file. Throws RuleError when it was not stored.
QByteArray purchaseFile(qint64 id);
/// Stores the state of the file as it is now.
void judgeAgain(qint64 id, PurchaseSource& source);

}  // namespace velmar
