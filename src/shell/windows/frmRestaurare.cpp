#include "shell/windows/frmRestaurare.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>

#include "config/Session.h"
#include "shell/Maintenance.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/FileDialog.h"
#include "util/windows/Forms.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

constexpr int kDotsWidth = 8;     // characters
constexpr int kShownLength = 84;  // characters
const QString kForm = QStringLiteral("frmRestaurare");

}  // namespace

frmRestaurare::frmRestaurare(QWidget* parent) : QDialog(parent) {
  setObjectName(kForm);
  setWindowTitle(QStringLiteral("Restaurare baza de date ..."));
  lblProgressMsg_ =
      named(new QLabel(QStringLiteral("Restaurare in curs, va rugam asteptati ......")), "lblProgressMsg");
  QSizePolicy keepsItsRoom = lblProgressMsg_->sizePolicy();
  keepsItsRoom.setRetainSizeWhenHidden(true);
  lblProgressMsg_->setSizePolicy(keepsItsRoom);
  lblProgressMsg_->hide();
  auto* all = new QVBoxLayout(this);
  all->addLayout(fields());
  all->addWidget(lblProgressMsg_);
  all->addStretch();
  all->addLayout(buttons());
  giveMnemonics(this);
  guarded(kForm, "Form_Load", [this] { txtDirector_->setText(QDir::toNativeSeparators(backupFolder())); });
  txtSourceSpec1_->setFocus();
}

QLayout* frmRestaurare::fields() {
  txtDirector_ = makeTextBox("txtDirector", 0, "Folderul copiei salvate");
  txtSourceSpec1_ = makeTextBox("txtSourceSpec1", 0, "Copia salvata care se restaureaza");
  txtSourceSpec1_->setMinimumWidth(fontMetrics().averageCharWidth() * kShownLength);
  auto* cmdGetSourceSpec1 = makeButton("cmdGetSourceSpec1", "...", "Cautare copie salvata");
  cmdGetSourceSpec1->setMaximumWidth(fontMetrics().averageCharWidth() * kDotsWidth);
  cmdGetSourceSpec1->setAutoDefault(true);
  connect(cmdGetSourceSpec1, &QPushButton::clicked, this,
          [this] { guarded(kForm, "cmdGetSourceSpec1_Click", [this] { choose(); }); });
  auto* folderCaption = new QLabel(QStringLiteral("Director:"));
  folderCaption->setBuddy(txtDirector_);
  auto* fileCaption = new QLabel(QStringLiteral("Fisier:"));
  fileCaption->setBuddy(txtSourceSpec1_);
  auto* rows = new QGridLayout;
  rows->addWidget(folderCaption, 0, 0);
  rows->addWidget(txtDirector_, 0, 1, 1, 2);
  rows->addWidget(fileCaption, 1, 0);
  rows->addWidget(txtSourceSpec1_, 1, 1);
  rows->addWidget(cmdGetSourceSpec1, 1, 2);
  return rows;
}

QLayout* frmRestaurare::buttons() {
  auto* cmdOK = makeButton("cmdOK", "Ok", "Restaurare baza de date din copia aleasa", "validate");
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this,
          [this] { guarded(kForm, "cmdOK_Click", [this] { restore(); }); });
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", {}, "exit");
  setUpExitButton(cmdIesire, this);
  // Enter presses the button that has the focus.
  for (QPushButton* each : {cmdOK, cmdIesire}) each->setAutoDefault(true);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(cmdOK);
  row->addWidget(cmdIesire);
  return row;
}

void frmRestaurare::choose() {
  QString start = backupFolder();
  if (!QDir(start).exists()) {
    Mesaj(QStringLiteral("Nu exista directorul cu salvarile!"), kExclamation);
    backupFolder(true);
    start = session().gCaleBD;
  }
  const QString name = QFileInfo(session().gNumeBD).completeBaseName();
  FileDialog dialog(this, QStringLiteral("Restaurare baza de date"), start,
                    QStringLiteral("[Baza de date].mdb (*%1*.mdb)").arg(name));
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const QFileInfo chosen(dialog.selectedFiles().first());
  txtDirector_->setText(QDir::toNativeSeparators(chosen.absolutePath()));
  txtSourceSpec1_->setText(chosen.fileName());
}

// A whole path may be typed as well.
QString frmRestaurare::file() const {
  const QString name = QDir::fromNativeSeparators(txtSourceSpec1_->text().trimmed());
  if (name.isEmpty()) return {};
  return QDir(QDir::fromNativeSeparators(txtDirector_->text().trimmed())).filePath(name);
}

void frmRestaurare::restore() {
  const QString chosen = file();
  if (!QFileInfo(chosen).isFile()) {
    txtSourceSpec1_->setFocus();
    throw RuleError(QStringLiteral("Fisierul: %1 nu exista!").arg(QDir::toNativeSeparators(chosen)), {},
                    kExclamation);
  }
  requireAlone();
  if (Mesaj(restoreQuestion(chosen), kYesNo + kQuestion + kSecondDefault, windowTitle()) != kResultYes)
    return;
  work(chosen);
  Mesaj(QStringLiteral("Restaurare cu succes a bazei de date"));
  accept();
}

void frmRestaurare::work(const QString& file) {
  const Hourglass hourglass;
  lblProgressMsg_->show();
  const auto done = qScopeGuard([this] { lblProgressMsg_->hide(); });
  lblProgressMsg_->repaint();
  WorkProgress progress(windowTitle(), this);
  restoreOpenCompany(file, [&progress](int parts, int of) { progress.show(parts, of); });
}

}  // namespace velmar
