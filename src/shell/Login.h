// The decisions of the login dialog: which folder holds the companies, whether a chosen file names such a
// folder, and who gets into which company.
#pragma once

#include <functional>
#include <QString>

#include "store/CompanyList.h"

namespace velmar {

class Login {
 public:
  /// Asked with the company's database open and before the user is looked up, so that an upgrade needs no
  /// user; `force` asks for it whatever the version. An exception ends the login.
  using VersionCheck = std::function<void(bool force)>;

  explicit Login(VersionCheck verificaVersiune = {}) : verificaVersiune_(std::move(verificaVersiune)) {}

  /// Finds the databases folder: the one of the settings, or the program's folder when the template lies
  /// there. Gives false when there is none; else `gCaleBD` is set and the companies are read.
  bool load();

  /// Takes the folder of a file chosen by the user when the file is the template or the database of the
  /// company that is current in the list, or the settings of a server. Gives false, and changes nothing, for
  /// any other file.
  bool chooseFile(const QString& file, const QString& currentNUMEBD);

  /// The companies of `gCaleBD`, sorted by code.
  const QList<Company>& companies() const { return companies_; }

  /// Opens the company's database and checks user and password; then the session has the user, the
  /// company's parameters and a place in the roster. Throws RuleError or StoreError, and then no database
  /// is open.
  void enter(const QString& numeBD, const QString& denumire, const QString& user, const QString& password,
             bool forceUpdate = false) const;

 private:
  void useFolder(const QString& folder);

  VersionCheck verificaVersiune_;
  QList<Company> companies_;
};

/// Gives up the place in the roster and closes the company's database.
void leaveCompany();

}  // namespace velmar
