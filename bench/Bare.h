// An engine through its own C interface, with the settings that the program's store uses: the yardstick, and
// the fast way to fill a company.
#pragma once

#include <memory>
#include <QByteArray>
#include <QString>
#include <string_view>

namespace velmar::bench {

/// A statement prepared once, as an engine's own interface runs it.
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
  virtual void reset() = 0;
};

/// A connection as an engine's own interface has it.
class BareLink {
 public:
  virtual ~BareLink() = default;

  virtual void run(const char* sql) = 0;
  virtual void beginWrite() = 0;
  virtual std::unique_ptr<BareCursor> prepare(const char* sql) = 0;
};

/// A statement prepared once. Texts must live until it was run.
class BareStatement {
 public:
  explicit BareStatement(std::unique_ptr<BareCursor> cursor) : cursor_(std::move(cursor)) {}

  template <typename Bound>
  BareStatement& bind(int position, const Bound& value) {
    cursor_->bind(position, value);
    return *this;
  }

  /// Steps once; whether a row stands to be read.
  bool step() { return cursor_->step(); }
  double number(int column) const { return cursor_->number(column); }
  /// Valid until the next step.
  std::string_view text(int column) const { return cursor_->text(column); }
  int integer(int column) const { return cursor_->integer(column); }
  void reset() { cursor_->reset(); }
  /// Steps to the end and makes ready for the next time; gives the number of rows.
  int run();

 private:
  std::unique_ptr<BareCursor> cursor_;
};

class BareConnection {
 public:
  /// The company at that path, on the engine that its folder names.
  explicit BareConnection(const QString& path);

  /// Runs statements without values.
  void run(const char* sql) { link_->run(sql); }
  /// Begins a transaction that keeps other writers out, waiting for them.
  void beginWrite() { link_->beginWrite(); }
  BareStatement prepare(const char* sql) { return BareStatement(link_->prepare(sql)); }

 private:
  std::unique_ptr<BareLink> link_;
};

std::unique_ptr<BareLink> bareFile(const QString& path);
std::unique_ptr<BareLink> bareServer(const QString& path);

}  // namespace velmar::bench
