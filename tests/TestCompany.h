// Basis of the tests of the core: a new company, open, with a fixed date; and a message recorder.
#pragma once

#include <gtest/gtest.h>
#include <deque>
#include <QTemporaryDir>
#include <vector>

#include "config/Session.h"
#include "Printers.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "TestServer.h"
#include "util/Clock.h"
#include "util/FileNames.h"
#include "util/Messages.h"

namespace velmar {

/// A company created from the template, open while this object exists. The session is reset to the company's
/// parameters, and today is 15 March 2026 unless specified otherwise.
class TestCompany {
 public:
  explicit TestCompany(const QDate& today = QDate(2026, 3, 15)) {
    clock::setToday(today);
    makeCompanyFile(folder(), kFirstCompanyName);
    setOpenDatabase(Database::open(path()));
    session() = Session();
    session().gCaleBD = folder();
    session().gNumeBD = kFirstCompanyName;
    session().gConexiune = path();
    session().gUtilizator = QStringLiteral("admin");
    session().gMagazie = 1;
    InitParaSoc();
    IncarcaSerii();
  }

  ~TestCompany() {
    session() = Session();
    setOpenDatabase(nullptr);
    removeDatabaseFile(folder(), kFirstCompanyName);
    clock::setToday({});
  }

  TestCompany(const TestCompany&) = delete;
  TestCompany& operator=(const TestCompany&) = delete;

  /// The databases folder, with the template; the same for the whole run.
  static QString folder() {
    static const QTemporaryDir dir;
    static const bool written = [] {
      nameTestServer(dir.path());
      bringTemplateUpToDate(dir.path());
      return true;
    }();
    return written ? dir.path() : QString();
  }

  /// The company's file; a second workstation is Database::open(path()).
  static QString path() { return pathInFolder(folder(), kFirstCompanyName); }
};

/// Records every message while it exists. A message with only an OK button is answered automatically; every
/// other one gets the next answer of the queue. Without one the test fails and the answer is no or cancel.
class MessageRecorder : public MessageSink {
 public:
  MessageRecorder() : previous_(setMessageSink(this)) {}
  ~MessageRecorder() override {
    setMessageSink(previous_);
    EXPECT_TRUE(answers_.empty()) << "questions that were not asked: " << answers_.size();
  }

  /// Queues the answer (MessageResult) to the next question.
  MessageRecorder& answer(int result) {
    answers_.push_back(result);
    return *this;
  }

  const std::vector<Message>& all() const { return recorded_; }
  bool isEmpty() const { return recorded_.empty(); }
  /// The texts recorded since the last call, in order.
  QStringList take() {
    QStringList texts;
    for (const Message& message : recorded_) texts.append(message.text);
    recorded_.clear();
    return texts;
  }

  int show(const Message& message) override {
    constexpr int kButtonSets = 15;
    recorded_.push_back(message);
    const int set = message.buttons & kButtonSets;
    if (set == kOk) return kResultOk;
    if (answers_.empty()) {
      ADD_FAILURE() << "no answer for: " << qUtf8Printable(message.text);
      return set == kYesNo ? kResultNo : kResultCancel;
    }
    const int result = answers_.front();
    answers_.pop_front();
    return result;
  }

 private:
  MessageSink* previous_;
  std::deque<int> answers_;
  std::vector<Message> recorded_;
};

}  // namespace velmar
