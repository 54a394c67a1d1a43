// Direct access to an engine through its C interface, with the settings of the program's store: the reference
// for the ratios, and a fast way to fill a company.
#pragma once

#include <memory>
#include <QByteArray>
#include <QString>
#include <string_view>

namespace velmar::bench {

/// A prepared statement of an engine's C interface.
class BareCursor {
 public:
  virtual ~BareCursor() = default;

  virtual void bind(int position, std::string_view text) = 0;
  virtual void bind(int position, double number) = 0;
  virtual void bind(int position, int number) = 0;
  virtual bool step() = 0;
  virtual double number(int column) const = 0;
  virtual std::string_view text(int column) const = 0;
  virtual int integer(int column) const = 0;
  virtual int columns() const = 0;
  virtual void reset() = 0;
};

/// A connection of an engine's C interface.
class BareLink {
 public:
  virtual ~BareLink() = default;

  virtual void run(const char* sql) = 0;
  virtual void beginWrite() = 0;
  virtual std::unique_ptr<BareCursor> prepare(const char* sql) = 0;
};

/// A prepared statement. Texts must remain valid until it was run.
class BareStatement {
 public:
  explicit BareStatement(std::unique_ptr<BareCursor> cursor) : cursor_(std::move(cursor)) {}

  template <typename Bound>
  BareStatement& bind(int position, const Bound& value) {
    cursor_->bind(position, value);
    return *this;
  }

  /// Steps once; returns whether there is a row.
  bool step() { return cursor_->step(); }
  double number(int column) const { return cursor_->number(column); }
  /// Valid until the next step.
  std::string_view text(int column) const { return cursor_->text(column); }
  int integer(int column) const { return cursor_->integer(column); }
  void reset() { cursor_->reset(); }
  /// Steps to the end and resets the statement; returns the number of rows.
  int run();
  /// As run(), and reads all values as texts, as a list has to; returns their length.
  size_t readAll();

 private:
  std::unique_ptr<BareCursor> cursor_;
};

class BareConnection {
 public:
  /// Opens the company at that path, on the engine that its folder uses.
  explicit BareConnection(const QString& path);

  /// Runs statements without values.
  void run(const char* sql) { link_->run(sql); }
  /// Waits for other writers and begins a transaction with the write lock.
  void beginWrite() { link_->beginWrite(); }
  BareStatement prepare(const char* sql) { return BareStatement(link_->prepare(sql)); }

 private:
  std::unique_ptr<BareLink> link_;
};

std::unique_ptr<BareLink> bareFile(const QString& path);
std::unique_ptr<BareLink> bareServer(const QString& path);

}  // namespace velmar::bench
