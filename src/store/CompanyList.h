// The list of companies of a databases folder: `Societat.xml`, a persisted rowset, which replaces the older
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

/// Reads the list, sorted by code. A missing list is first created: from `Societat.DBF` if that exists,
/// otherwise with the single company "01". Throws StoreError when the list cannot be read or is not a rowset
/// of companies.
QList<Company> readCompanyList(const QString& folder);

/// Reads the list again, lets `change` modify it and writes the whole file, under a lock shared by all
/// processes. If `change` throws, the file is not modified.
void changeCompanyList(const QString& folder, const std::function<void(QList<Company>&)>& change);

/// Removes what killed processes left of writing the list.
void sweepListDrafts(const QString& folder);

/// Reads the list of companies for the login and creates the first company from the template if its file is
/// missing.
QList<Company> IncarcaSocietati(const QString& folder, QString& gDenSocietateNoua);

/// The companies in a persisted rowset: with its pending insertions, changes and deletions applied.
QList<Company> companiesFromRowset(const QByteArray& xml);
QByteArray rowsetFromCompanies(const QList<Company>& companies);

/// The companies in a dBase table with the columns COD, DENUMIRE, NUMEBD; deleted records are skipped.
QList<Company> companiesFromDbf(const QByteArray& content);

}  // namespace velmar
