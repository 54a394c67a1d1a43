// Messages for the user, gathered during a step and said once each.
#pragma once

#include <QStringList>
#include <vector>

namespace velmar {

class Notices {
 public:
  /// Adds a message; `%1` in its text stands for what it is about. The same text with another subject makes
  /// one message that names both.
  void tell(const QString& text, const QString& subject = {});
  bool isEmpty() const { return notices_.empty(); }
  /// The messages in the order in which they were first added; subjects are joined by ", ".
  QStringList texts() const;
  /// Shows the messages and forgets them.
  void say();

 private:
  struct Notice {
    QString text;
    QStringList subjects;
  };
  std::vector<Notice> notices_;
};

}  // namespace velmar
