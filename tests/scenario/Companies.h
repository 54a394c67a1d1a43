// The companies of a scenario: creates them, starts the program on them and queries their databases.
#pragma once

#include <memory>

#include "Answers.h"
#include "fiscal/windows/frmAsteptare.h"
#include "Folders.h"

namespace velmar {
class StartUp;
}

namespace velmar::scenario {

class Companies {
 public:
  Companies(Folders& folders, Answers& answers);
  ~Companies();

  void addFunctions(Functions& functions);

 private:
  QString freshFolder();
  bool closeAll();
  void begin();
  QString company(const QVariantMap& options);
  void start(const QString& folder);
  QVariantMap paths();

  Folders& folders_;
  Answers& answers_;
  std::unique_ptr<MessageSink> boxes_;
  WindowRegisterWait registerWait_;
  std::unique_ptr<StartUp> startUp_;
  QString firstFolder_;
  bool starting_ = false;
};

}  // namespace velmar::scenario
