#include "documents/windows/SheetDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "config/Session.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/FileDialog.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

constexpr int kPathWidth = 50;  // characters

}  // namespace

SheetDialog::SheetDialog(const QString& name, const QString& title, QWidget* parent,
                         const QString& fileToolTip)
    : QDialog(parent),
      rows_(new QFormLayout),
      txtSourceSpec1_(named(new QLineEdit, "txtSourceSpec1", fileToolTip)),
      lblProgressMsg_(named(new QLabel("Import in curs, va rugam asteptati ......"), "lblProgressMsg")) {
  setObjectName(name);
  setWindowTitle(title);
  txtSourceSpec1_->setMinimumWidth(fontMetrics().averageCharWidth() * kPathWidth);
  auto* choose = makeButton("cmdGetSourceSpec1", "...", "Alegerea fisierului");
  choose->setAutoDefault(false);
  connect(choose, &QPushButton::clicked, this, &SheetDialog::chooseFile);
  auto* file = new QHBoxLayout;
  file->addWidget(txtSourceSpec1_, 1);
  file->addWidget(choose);
  rows_->addRow("Fisier:", file);
  lblProgressMsg_->setVisible(false);
}

void SheetDialog::finish() {
  QPushButton* ok = makeButton("cmdOK", "&OK", {}, "validate");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &SheetDialog::runImport);
  QPushButton* leave = makeButton("cmdIesire", "Iesire", {}, "close");
  leave->setAutoDefault(false);
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  auto* commands = new QHBoxLayout;
  commands->addWidget(lblProgressMsg_, 1);
  commands->addStretch();
  commands->addWidget(ok);
  commands->addWidget(leave);
  auto* all = new QVBoxLayout(this);
  all->addLayout(rows_);
  all->addStretch();
  all->addLayout(commands);
  giveMnemonics(this);
}

QString SheetDialog::path() const { return txtSourceSpec1_->text().trimmed(); }

void SheetDialog::chooseFile() {
  const QString path = askFile(this, windowTitle(),
                               "Foi de calcul (*.xls *.xlsx *.ods *.XLS *.XLSX *.ODS);;Toate fisierele (*)",
                               QDir(session().gCaleAplicatie).filePath("IMPORT"));
  if (!path.isEmpty()) txtSourceSpec1_->setText(QDir::toNativeSeparators(path));
}

void SheetDialog::runImport() {
  if (!entriesAccepted(this)) return;
  guarded(objectName(), "ImportXLS", [this] {
    try {
      lblProgressMsg_->setVisible(true);
      QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
      import();
      lblProgressMsg_->setVisible(false);
    } catch (const RuleError& rule) {
      lblProgressMsg_->setVisible(false);
      Mesaj(rule.text());
      QWidget* at = controlOf(rule.field());
      if (!at) return;
      at->setFocus();
      if (auto* list = qobject_cast<QComboBox*>(at)) list->showPopup();
    } catch (...) {
      lblProgressMsg_->setVisible(false);
      throw;
    }
  });
}

}  // namespace velmar
