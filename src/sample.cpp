// Creates the sample companies in the user's databases folder, as examples for new users.
#include <cstdio>
#include <QCoreApplication>

#include "config/Session.h"
#include "hearing/HearingTrade.h"
#include "shell/ApplicationFolder.h"
#include "shell/Login.h"
#include "shell/SampleCompany.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace {

// This program has no user interface: a message becomes an exception that ends it.
class NoMessages : public velmar::MessageSink {
 public:
  int show(const velmar::Message& message) override { throw velmar::RuleError(message.text); }
};

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("velmar"));
  NoMessages sink;
  velmar::setMessageSink(&sink);
  velmar::registerHearingTrade();
  try {
    velmar::prepareApplicationFolder(velmar::defaultApplicationFolder());
    if (velmar::Login login; login.load()) {
      velmar::makeSampleCompany(velmar::session().gCaleBD);
      velmar::makeHearingSampleCompany(velmar::session().gCaleBD);
    }
    return 0;
  } catch (const velmar::Error& error) {
    std::fprintf(stderr, "Societatea de exemplu nu a putut fi creata: %s\n", qPrintable(error.text()));
  } catch (const velmar::Cancelled&) {
    std::fprintf(stderr, "Baza de date este folosita de alt utilizator.\n");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "Societatea de exemplu nu a putut fi creata: %s\n", error.what());
  }
  return 1;
}
