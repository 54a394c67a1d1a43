// A company file of SQLite behind the interface of the store.
#pragma once

#include <QSqlDatabase>

#include "store/Engine.h"

namespace velmar::sqlite {

class FileEngine : public Engine {
 public:
  /// Opens the file, or makes it. Throws StoreError.
  FileEngine(const QString& path, bool create);
  ~FileEngine() override;

  std::shared_ptr<EngineStatement> prepare(const QString& sql) override;
  void run(const QString& sql) override;
  bool tryBeginWrite() override;
  void beginSnapshot() override;
  int rowsPerInsert() const override { return 1; }
  QStringList plan(const QString& sql) override;
  void compact() override;
  void requireWhole() override;
  bool copyAsFile(const QString& path, const EngineProgress& progress) override;
  QString declaredType(const Column& column) const override;
  QString clusteredSuffix() const override;

 private:
  QString path_;
  QString name_;
  QSqlDatabase connection_;
};

}  // namespace velmar::sqlite
