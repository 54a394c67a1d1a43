#include "shell/windows/frmLogin.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "config/CompanyFiles.h"
#include "config/Session.h"
#include "store/Server.h"
#include "store/windows/TDBGrid.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/FileDialog.h"
#include "util/windows/Forms.h"
#include "util/windows/KeyFilter.h"
#include "util/windows/Look.h"

namespace velmar {

namespace {

constexpr int kBoxLength = 10;

QPushButton* button(const QString& name, const QString& caption, const QString& toolTip) {
  auto* made = new QPushButton(caption);
  made->setObjectName(name);
  made->setToolTip(toolTip);
  return made;
}

}  // namespace

frmLogin::frmLogin(Login::VersionCheck verificaVersiune, QWidget* parent)
    : QDialog(parent), login_(std::move(verificaVersiune)) {
  setObjectName(QStringLiteral("frmLogin"));
  setWindowTitle(QStringLiteral("Selectie societate"));
  grid_ = new TDBGrid(QStringLiteral("TDBGrid1"));
  grid_->setColumns({{"COD", "Cod", CellFormat::Text, 6},
                     {"DENUMIRE", "Denumire", CellFormat::Text, 36},
                     {"NUMEBD", "Baza de date", CellFormat::Text, 16}});
  grid_->setEmptyText(QStringLiteral("Lista de societati este goala."));
  grid_->hide();
  hint_ = new QLabel(QStringLiteral(
      "Nu este ales folderul bazelor de date.\nApasati \"Cautare\" si alegeti fisierul Tarvon.mdb."));
  hint_->setAlignment(Qt::AlignCenter);
  hint_->setForegroundRole(QPalette::PlaceholderText);

  auto* all = new QVBoxLayout(this);
  all->addWidget(serverFrame());
  societati_ = new QLabel(QStringLiteral("Societati"));
  societati_->setBuddy(grid_);
  societati_->hide();
  all->addWidget(societati_);
  all->addWidget(grid_, 1);
  all->addWidget(hint_, 1);
  all->addWidget(userFrame());
  all->addLayout(buttonRow());
  resize(fontMetrics().averageCharWidth() * 74, fontMetrics().height() * 26);
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  txtUserName_->setFocus();
  guarded("frmLogin", "Form_Load", [this] { load(); });
}

QWidget* frmLogin::serverFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Selectie server "));
  label1_ = new QLabel;
  label1_->setObjectName(QStringLiteral("Label1"));
  label1_->setTextFormat(Qt::PlainText);
  label1_->setWordWrap(true);
  auto* cmdCauta = button("cmdCauta", "Cautare", "Selectati calea de acces catre baza de date (Tarvon.mdb)");
  cmdCauta->setIcon(icon("search"));
  cmdCauta->setAutoDefault(false);
  connect(cmdCauta, &QPushButton::clicked, this,
          [this] { guarded("frmLogin", "cmdCauta_Click", [this] { search(); }); });
  auto* row = new QHBoxLayout(frame);
  row->addWidget(label1_, 1);
  row->addWidget(cmdCauta);
  return frame;
}

QWidget* frmLogin::userFrame() {
  auto* frame = new QWidget;
  txtUserName_ = new QLineEdit;
  txtUserName_->setObjectName(QStringLiteral("txtUserName"));
  txtUserName_->setToolTip(QStringLiteral("Utilizator implicit: \"admin\""));
  txtPassword_ = new QLineEdit;
  txtPassword_->setObjectName(QStringLiteral("txtPassword"));
  txtPassword_->setToolTip(QStringLiteral("Parola implicita: \"admin\""));
  txtPassword_->setEchoMode(QLineEdit::Password);
  for (QLineEdit* box : {txtUserName_, txtPassword_}) {
    box->setMaxLength(kBoxLength);
    KeyFilter::install(box);
  }
  auto* rows = new QFormLayout(frame);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addRow(QStringLiteral("&Utilizator"), txtUserName_);
  rows->addRow(QStringLiteral("&Parola"), txtPassword_);
  return frame;
}

QLayout* frmLogin::buttonRow() {
  const QString toolTip = QStringLiteral("Deschidere societate selectata in lista \"Societati\"");
  auto* cmdOK = button("cmdOK", "OK", toolTip);
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this,
          [this] { guarded("frmLogin", "cmdOK_Click", [this] { enter(); }); });
  auto* cmdActualizare = button("cmdActualizare", "Actualizare", toolTip);
  cmdActualizare->setAutoDefault(false);
  connect(cmdActualizare, &QPushButton::clicked, this, [this] {
    forceUpdate_ = true;
    guarded("frmLogin", "cmdActualizare_Click", [this] { enter(); });
  });
  auto* cmdIesire = button("cmdIesire", "Iesire", "Inchidere aplicatie");
  cmdIesire->setAutoDefault(false);
  connect(cmdIesire, &QPushButton::clicked, this, &QDialog::reject);
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (QPushButton* each : {cmdOK, cmdActualizare, cmdIesire}) row->addWidget(each);
  return row;
}

void frmLogin::load() {
  if (login_.load()) showCompanies();
}

void frmLogin::showCompanies() {
  label1_->setText(QDir::toNativeSeparators(session().gCaleBD));
  grid_->setRecordset(companyRecordset(login_.companies()));
  hint_->hide();
  societati_->show();
  grid_->show();
}

void frmLogin::search() {
  FileDialog dialog(this, QStringLiteral("Select Database"), session().gCaleAplicatie,
                    QStringLiteral("TARVON.MDB (*.mdb *.MDB);;Server (Server.ini)"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.selectFile(QStringLiteral("Tarvon.mdb"));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const QFileInfo chosen(dialog.selectedFiles().first());
  if (chosen.fileName() == kServerFile) offerVerification(chosen.path());
  const Row* current = grid_->isHidden() ? nullptr : grid_->currentRecord();
  const QString currentName = current ? current->text("NUMEBD") : QString();
  const bool accepted = login_.chooseFile(chosen.filePath(), currentName);
  if (!accepted) {
    Mesaj(QStringLiteral("Eroare selectare BD!"));
    return;
  }
  showCompanies();
}

// Before the first connection: the password goes only to the server of the certificate.
void frmLogin::offerVerification(const QString& folder) {
  const auto server = serverOf(folder);
  if (!server || !server->isUnverified()) return;
  const QString question =
      QStringLiteral(
          "Programul nu verifica daca serverul %1 este cel adevarat.\r\nDoriti sa alegeti "
          "certificatul cu care sa fie verificat ?")
          .arg(server->host);
  if (Mesaj(question, kYesNo + kQuestion) != kResultYes) return;
  const QString certificate = askFile(this, QStringLiteral("Certificat server"),
                                      QStringLiteral("Certificate (*.crt *.pem *.cer)"), folder);
  if (!certificate.isEmpty()) verifyServer(folder, certificate);
}

void frmLogin::enter() {
  if (grid_->isHidden()) return;
  const Row* current = grid_->currentRecord();
  try {
    const Hourglass hourglass;
    login_.enter(current ? current->text("NUMEBD") : QString(),
                 current ? current->text("DENUMIRE") : QString(), txtUserName_->text(), txtPassword_->text(),
                 forceUpdate_);
  } catch (const RuleError& rule) {
    focusFieldAtFault(rule.field());
    throw;
  }
  const QString warning = clockWarning();
  if (!warning.isEmpty()) Mesaj(warning, kExclamation);
  loginSucceeded_ = true;
  accept();
}

void frmLogin::focusFieldAtFault(const QString& field) {
  QLineEdit* box = field == QStringLiteral("NUME")     ? txtUserName_
                   : field == QStringLiteral("PAROLA") ? txtPassword_
                                                       : nullptr;
  if (!box) return;
  box->setFocus();
  box->selectAll();
}

bool frmLogin::eventFilter(QObject* watched, QEvent* event) {
  // The key below Esc forces a comparison of the structures, whatever the version.
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    forceUpdate_ = forceUpdate_ || key == Qt::Key_QuoteLeft || key == Qt::Key_AsciiTilde;
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace velmar
