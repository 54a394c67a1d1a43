#include "shell/windows/frmSalvare.h"

#include <QBoxLayout>
#include <QDir>
#include <QLabel>
#include <QPushButton>

#include "shell/Maintenance.h"
#include "store/Upkeep.h"
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
constexpr int kShownLength = 96;  // characters
const QString kForm = QStringLiteral("frmSalvare");

// The part before the last separator, "/" or "\"; "" for a relative path.
QString folderOf(const QString& text) {
  QString path = QDir::fromNativeSeparators(text);
  if (!QDir(path.left(path.lastIndexOf(u'/') + 1)).exists() || path.endsWith(u'\\'))
    path.replace(u'\\', u'/');
  const QString folder = path.left(path.lastIndexOf(u'/') + 1);
  return QDir::isAbsolutePath(folder) ? folder : QString();
}

}  // namespace

frmSalvare::frmSalvare(QWidget* parent) : QDialog(parent) {
  setObjectName(kForm);
  setWindowTitle(QStringLiteral("Salvare baza de date"));
  txtCale_ = makeTextBox(QStringLiteral("txtCale"), 0);
  txtCale_->setMinimumWidth(fontMetrics().averageCharWidth() * kShownLength);
  auto* caption = new QLabel(QStringLiteral("Calea bazei de date salvate"));
  caption->setBuddy(txtCale_);
  auto* cmdOpen = makeButton("cmdOpen", "...", "Cautare catalog de slavare");
  cmdOpen->setMaximumWidth(cmdOpen->fontMetrics().averageCharWidth() * kDotsWidth);
  connect(cmdOpen, &QPushButton::clicked, this,
          [this] { guarded(kForm, "cmdOpen_Click", [this] { choose(); }); });
  auto* cmdOK = makeButton("cmdOK", "Ok", "Salvare baza de date in folderul ales", "save");
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, [this] { guarded(kForm, "cmdOK_Click", [this] { save(); }); });
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", {}, "exit");
  setUpExitButton(cmdIesire, this);

  // Enter presses the button that has the focus.
  for (QPushButton* each : {cmdOpen, cmdOK, cmdIesire}) each->setAutoDefault(true);

  auto* path = new QHBoxLayout;
  path->addWidget(txtCale_, 1);
  path->addWidget(cmdOpen);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdIesire);
  auto* all = new QVBoxLayout(this);
  all->addWidget(caption);
  all->addLayout(path);
  all->addSpacing(fontMetrics().height());
  all->addStretch();
  all->addLayout(buttons);
  giveMnemonics(this);
  guarded(kForm, "Form_Load", [this] { load(); });
  txtCale_->setFocus();
}

void frmSalvare::load() {
  txtCale_->setText(QDir::toNativeSeparators(QDir(backupFolder()).filePath(savedCopyName())));
  backupFolder(true);
}

void frmSalvare::choose() {
  const QString path = QDir::fromNativeSeparators(txtCale_->text());
  FileDialog dialog(this, windowTitle(), path, QStringLiteral("Baze de date (*.mdb)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // Only the folder is taken of it: no file is ever replaced by the name chosen.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  txtCale_->setText(QDir::toNativeSeparators(dialog.selectedFiles().first()));
}

void frmSalvare::save() {
  const QString text = txtCale_->text().trimmed();
  txtCale_->setFocus();
  if (text.isEmpty())
    throw RuleError(QStringLiteral("Va rog precizati directorul unde doriti sa salvati baza de date"));
  const QString folder = folderOf(text);
  if (folder.toUpper().contains(kBackupFolderName.toUpper())) QDir().mkpath(folder);
  if (folder.isEmpty() || !QDir(folder).exists())
    throw RuleError(QStringLiteral("Calea introdusa nu este valida"), {}, kInformation);
  QString file;
  {
    const Hourglass hourglass;
    WorkProgress progress(windowTitle(), this);
    file = saveOpenCompany(folder, [&progress](int done, int of) { progress.show(done, of); });
  }
  txtCale_->setText(QDir::toNativeSeparators(file));
  reportSaved();
}

}  // namespace velmar
