// The engine for a company in a SQLite file.
#pragma once

#include <QSqlDatabase>

#include "store/Engine.h"

namespace velmar::sqlite {

class FileEngine : public Engine {
 public:
  /// Opens the file, or creates it. Throws StoreError.
  FileEngine(const QString& path, bool create);
  ~FileEngine() override;

  std::shared_ptr<EngineStatement> prepare(const QString& sql) override;
  void run(const QString& sql) override;
  bool tryBeginWrite() override;
  void beginSnapshot() override;
  int rowsPerInsert() const override { return 1; }
  QStringList plan(const QString& sql) override;
  void compact() override;
  void studyTables() override;
  void refreshStatistics() override;
  void requireWhole(const std::function<void()>& meanwhile) override;
  void requireInPlace() override;
  bool copyAsFile(const QString& path, const EngineProgress& progress) override;
  void interrupt() override;
  QString declaredType(const Column& column) const override;
  QString clusteredSuffix() const override;
  std::optional<ColumnType> kindOf(const TableShape& table, const ColumnShape& column) const override;
  QStringList ownKinds() override;
  std::vector<StoredStatement> companyTriggers() const override;
  QStringList tables() override;
  TableShape tableShape(const QString& table) override;
  std::vector<StoredStatement> indexesOf(const QString& table) override;
  std::vector<StoredStatement> views() override;
  std::vector<StoredStatement> triggers() override;
  void dropTrigger(const QString& name) override;
  void reshape(const TableShape& from, const TableShape& to) override;

 private:
  Recordset ask(const QString& sql, const Values& values = {});
  std::vector<StoredStatement> stored(const QString& sql, const Values& values = {});
  QStringList rulesOf(const QString& table);
  void rebuild(const TableShape& from, const TableShape& to);
  void requireConverted(const QString& table, const ColumnShape& column, bool moment);

  QString path_;
  QString name_;
  QSqlDatabase connection_;
};

}  // namespace velmar::sqlite
