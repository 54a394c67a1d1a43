// Brings the structure of a company to that of the template: tables, columns, types, widths, required marks,
// keys, indexes and stored queries. All or nothing, and what only the company has stays.
#pragma once

#include <functional>
#include <QString>
#include <vector>

#include "store/Structure.h"

namespace velmar {

class Database;

class clsCompareBD {
 public:
  /// Both paths name databases of the same engine.
  clsCompareBD(const QString& company, const QString& templatePath)
      : companyPath_(company), templatePath_(templatePath) {}

  /// Hears how many tables of how many are done; throws Cancelled to stop.
  using Progress = std::function<void(int done, int of)>;

  /// The whole run, in one transaction of its own connection. Throws StoreError, and then the company is as
  /// it was; likewise Cancelled, when `progress` stops it or the user gave up waiting for another one's work
  /// to end.
  void Compara(const Progress& progress = {});

 private:
  struct TableParts {
    TableShape shape;
    std::vector<StoredStatement> indexes;
  };

  void readTemplate();
  void CompareTables(const TableParts& wanted, const QString& name);
  /// Whether the column got another type or width.
  bool CompareFields(const ColumnShape& wanted, ColumnShape& own) const;
  void ModifyField(const ColumnShape& wanted, ColumnShape& own) const;
  void AdaugaCamp(TableShape& table, const ColumnShape& wanted) const;
  void CompareKeys(const TableShape& wanted, const TableShape& found, TableShape& target) const;
  void CompareIndexes(const TableParts& wanted, const QString& name);
  void CopiazaObiect(const TableParts& table);
  void CompareViews();

  void dropIndexes(const TableParts& wanted, const QString& name);
  void setViewsAside();

  QString companyPath_;
  QString templatePath_;
  std::vector<TableParts> tables_;      ///< the template's
  std::vector<StoredStatement> views_;  ///< the template's
  Database* company_ = nullptr;         ///< while the run lasts
  std::vector<StoredStatement> aside_;  ///< the company's own, until they can stand again
};

}  // namespace velmar
