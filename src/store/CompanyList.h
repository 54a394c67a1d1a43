// The list of companies of a databases folder: `Societat.xml`, a persisted rowset, or once the older
// `Societat.DBF`.
#pragma once

#include <functional>
#include <QList>
#include <QString>

namespace velmar {

struct Company {
  QString COD;       ///< at most 2 characters, upper case; key
  QString DENUMIRE;  ///< at most 50 characters
  QString NUMEBD;    ///< file name in the folder, at most 15 characters
};

/// Reads the list, sorted by code. A missing list is made first: from `Societat.DBF` when that exists, else
/// with the one company "01". Throws StoreError when the list cannot be read or is no rowset of companies.
QList<Company> readCompanyList(const QString& folder);

/// Reads the list anew, lets `change` alter it and writes it whole, all under a lock that other processes
/// respect. When `change` throws, the file stays as it was.
void changeCompanyList(const QString& folder, const std::function<void(QList<Company>&)>& change);

/// Reads the list of companies for the login and makes the first company from the template when its file is
/// missing.
QList<Company> IncarcaSocietati(const QString& folder, QString& gDenSocietateNoua);

/// The companies in a persisted rowset: inserted, changed and deleted rows as they stand pending in it.
QList<Company> companiesFromRowset(const QByteArray& xml);
QByteArray rowsetFromCompanies(const QList<Company>& companies);

/// The companies in a dBase table with the columns COD, DENUMIRE, NUMEBD; deleted records are passed over.
QList<Company> companiesFromDbf(const QByteArray& content);

}  // namespace velmar
