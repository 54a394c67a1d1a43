// Answers the questions that a user would be asked with yes, while a sample company is made.
#pragma once

#include "util/Messages.h"

namespace velmar {

class Willing : public MessageSink {
 public:
  Willing() : previous_(setMessageSink(this)) {}
  ~Willing() override { setMessageSink(previous_); }
  Willing(const Willing&) = delete;
  Willing& operator=(const Willing&) = delete;

  int show(const Message& message) override { return message.buttons & kYesNo ? kResultYes : kResultOk; }

 private:
  MessageSink* previous_;
};

}  // namespace velmar
