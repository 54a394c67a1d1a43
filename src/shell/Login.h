// Logic of the login dialog: the databases folder, whether a chosen file identifies such a folder, and which
// user may open which company.
#pragma once

#include <functional>
#include <QString>

#include "store/CompanyList.h"

namespace velmar {

class Login {
 public:
  /// Called when the company's database is open and before the user is checked, so that an upgrade does not
  /// need a user; `force`: offer it for any version. An exception ends the login.
  using VersionCheck = std::function<void(bool force)>;

  explicit Login(VersionCheck verificaVersiune = {}) : verificaVersiune_(std::move(verificaVersiune)) {}

  /// Finds the databases folder: from the settings, or the program's folder if it contains the template.
  /// Returns false if there is none; otherwise sets `gCaleBD` and reads the companies.
  bool load();

  /// Uses the folder of a file chosen by the user if the file is the template, the database of the company
  /// selected in the list, or the settings of a server. Returns false, and changes nothing, for any other
  /// file.
  bool chooseFile(const QString& file, const QString& currentNUMEBD);

  /// The companies of `gCaleBD`, sorted by code.
  const QList<Company>& companies() const { return companies_; }

  /// Opens the company's database and checks user and password; then sets user and parameters of the session
  /// and adds an entry to the roster. If it throws RuleError or StoreError, no database is open.
  void enter(const QString& numeBD, const QString& denumire, const QString& user, const QString& password,
             bool forceUpdate = false) const;

 private:
  void useFolder(const QString& folder);

  VersionCheck verificaVersiune_;
  QList<Company> companies_;
};

/// The warning when today lies before the date of the company's last document; else "".
QString clockWarning();

/// Removes the entry from the roster and closes the company's database.
void leaveCompany();

}  // namespace velmar
