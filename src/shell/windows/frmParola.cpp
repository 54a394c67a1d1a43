#include "shell/windows/frmParola.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "store/Server.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

constexpr int kShownLength = 44;  // characters
const QString kForm = QStringLiteral("frmParola");

}  // namespace

frmParola::frmParola(const Server& server, QWidget* parent) : QDialog(parent) {
  setObjectName(kForm);
  setWindowTitle(QStringLiteral("Parola server"));
  auto* caption =
      named(new QLabel(QStringLiteral("Parola utilizatorului %1 pe serverul %2")
                           .arg(server.user, server.host.isEmpty() ? QStringLiteral("local") : server.host)),
            "Label1");
  caption->setTextFormat(Qt::PlainText);
  txtParola_ = makeTextBox("txtParola", 0, "Parola nu se pastreaza dupa inchiderea programului");
  txtParola_->setEchoMode(QLineEdit::Password);
  txtParola_->setMinimumWidth(fontMetrics().averageCharWidth() * kShownLength);
  caption->setBuddy(txtParola_);
  auto* cmdOK = makeButton("cmdOK", "OK");
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    guarded(kForm, "cmdOK_Click", [this] {
      txtParola_->setFocus();
      if (password().isEmpty())
        throw RuleError(QStringLiteral("Va rugam completati parola !"), {}, kExclamation);
      accept();
    });
  });
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", {}, "exit");
  cmdIesire->setAutoDefault(false);
  connect(cmdIesire, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdIesire);
  auto* all = new QVBoxLayout(this);
  all->addWidget(caption);
  all->addWidget(txtParola_);
  all->addSpacing(fontMetrics().height());
  all->addLayout(buttons);
  txtParola_->setFocus();
}

QString frmParola::password() const { return txtParola_->text(); }

std::optional<QString> askServerPassword(const Server& server, bool refused) {
  if (refused) Mesaj(QStringLiteral("Serverul nu primeste aceasta parola. Incercati din nou."), kExclamation);
  frmParola question(server, QApplication::activeWindow());
  if (question.exec() != QDialog::Accepted) return std::nullopt;
  return question.password();
}

}  // namespace velmar
