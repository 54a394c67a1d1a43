// SQLite through its own C interface, with the settings that the program's store uses: the yardstick, and the
// fast way to fill a company.
#pragma once

#include <sqlite3.h>
#include <memory>
#include <QByteArray>
#include <QString>
#include <string_view>

namespace velmar::bench {

class BareStatement;

class BareConnection {
 public:
  explicit BareConnection(const QString& path);

  /// Runs statements without values.
  void run(const char* sql);
  BareStatement prepare(const char* sql);

 private:
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle_;
};

/// A statement prepared once. Texts must live until it was run.
class BareStatement {
 public:
  explicit BareStatement(sqlite3_stmt* statement) : statement_(statement, sqlite3_finalize) {}

  BareStatement& bind(int position, std::string_view text);
  BareStatement& bind(int position, double number);
  BareStatement& bind(int position, int number);

  /// Steps once; whether a row stands to be read.
  bool step();
  double number(int column) const { return sqlite3_column_double(statement_.get(), column); }
  /// Valid until the next step.
  std::string_view text(int column) const;
  int integer(int column) const { return sqlite3_column_int(statement_.get(), column); }
  void reset() { sqlite3_reset(statement_.get()); }
  /// Steps to the end and makes ready for the next time; gives the number of rows.
  int run();

 private:
  std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_;
};

}  // namespace velmar::bench
