// Upgrades the structure of a company to that of the template: tables, columns, types, widths, NOT NULL,
// keys, indexes, stored queries and triggers; the stock by warehouse is computed again. All or nothing; what
// only the company has is kept.
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

  /// Called with the number of tables done and the total; throws Cancelled to stop.
  using Progress = std::function<void(int done, int of)>;

  /// Runs the upgrade in one transaction on its own connection. Throws StoreError, or Cancelled when
  /// `progress` stops it or the user stops waiting for the write lock; the company is then unchanged.
  void Compara(const Progress& progress = {});

 private:
  struct TableParts {
    TableShape shape;
    std::vector<StoredStatement> indexes;
  };

  void readTemplate();
  void CompareTables(const TableParts& wanted, const QString& name);
  /// Changes the type or width if it differs, but never narrows a text; returns whether it changed.
  bool CompareFields(const ColumnShape& wanted, ColumnShape& own) const;
  void ModifyField(const ColumnShape& wanted, ColumnShape& own) const;
  void AdaugaCamp(TableShape& table, const ColumnShape& wanted) const;
  void CompareKeys(const TableShape& wanted, const TableShape& found, TableShape& target) const;
  void CompareIndexes(const TableParts& wanted, const QString& name);
  void CopiazaObiect(const TableParts& table);
  void CompareViews();
  void CompareTriggers();

  void dropIndexes(const TableParts& wanted, const QString& name);
  void setAside();

  QString companyPath_;
  QString templatePath_;
  std::vector<TableParts> tables_;         ///< the template's
  std::vector<StoredStatement> views_;     ///< the template's
  std::vector<StoredStatement> triggers_;  ///< the template's
  Database* company_ = nullptr;            ///< during Compara()
  std::vector<StoredStatement> aside_;     ///< the company's own, until they can be created again
};

}  // namespace velmar
