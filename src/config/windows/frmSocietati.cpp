#include "config/windows/frmSocietati.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "config/CompanyFiles.h"
#include "config/Session.h"
#include "store/windows/TDBGrid.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/Messages.h"
#include "util/windows/Forms.h"
#include "util/windows/KeyFilter.h"

namespace velmar {

namespace {

constexpr int kCodeLength = 2;
constexpr int kNameLength = 50;

Company companyOf(const Row& row) { return {row.text("COD"), row.text("DENUMIRE"), row.text("NUMEBD")}; }

}  // namespace

frmSocietati::frmSocietati(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("frmSocietati"));
  setWindowTitle(QStringLiteral("Lista Societati"));
  grid_ = new TDBGrid(QStringLiteral("TDBGrid1"));
  grid_->setColumns({{"COD", "Cod", CellFormat::Text, 6},
                     {"DENUMIRE", "Denumire", CellFormat::Text, 36},
                     {"NUMEBD", "Baza de date", CellFormat::Text, 16}});
  grid_->setEmptyText(
      QStringLiteral("Nu exista societati. Completati codul si denumirea, apoi apasati \"Adauga\"."));
  grid_->setMinimumSize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 12);

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(companyFrame(), 1);
  bottom->addLayout(buttonBlock());
  auto* all = new QVBoxLayout(this);
  all->addWidget(grid_, 1);
  all->addLayout(bottom);
  setUpKeys(this, findChild<QPushButton*>("cmdAdauga"), findChild<QPushButton*>("cmdIesire"));
  setFocusProxy(txtCod_);
  guarded("frmSocietati", "Form_Load", [this] { refresh(); });
}

QGroupBox* frmSocietati::companyFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Societate"));
  txtCod_ = new QLineEdit;
  txtCod_->setObjectName(QStringLiteral("txtCod"));
  txtCod_->setToolTip(QStringLiteral("Cod alfanumeric, maxim 2 caractere"));
  txtCod_->setMaxLength(kCodeLength);
  txtCod_->setMaximumWidth(fontMetrics().averageCharWidth() * 8);
  txtDenumire_ = new QLineEdit;
  txtDenumire_->setObjectName(QStringLiteral("txtDenumire"));
  txtDenumire_->setToolTip(QStringLiteral("Maxim 50 caractere"));
  txtDenumire_->setMaxLength(kNameLength);
  txtDenumire_->setMinimumWidth(fontMetrics().averageCharWidth() * 34);
  for (QLineEdit* box : {txtCod_, txtDenumire_}) KeyFilter::install(box);
  auto* rows = new QFormLayout(frame);
  rows->addRow(QStringLiteral("Cod"), txtCod_);
  rows->addRow(QStringLiteral("Denumire"), txtDenumire_);
  return frame;
}

QLayout* frmSocietati::buttonBlock() {
  const auto button = [](const QString& name, const QString& caption, const QString& toolTip) {
    auto* made = new QPushButton(caption);
    made->setObjectName(name);
    made->setToolTip(toolTip);
    return made;
  };
  auto* cmdAdauga = button("cmdAdauga", "Adauga", "Creare societate noua");
  connect(cmdAdauga, &QPushButton::clicked, this,
          [this] { guarded("frmSocietati", "cmdAdauga_Click", [this] { add(); }); });
  auto* cmdSterge = button("cmdSterge", "Stergere", "Stergere societate selectata");
  connect(cmdSterge, &QPushButton::clicked, this,
          [this] { guarded("frmSocietati", "cmdSterge_Click", [this] { remove(); }); });
  auto* Cmdschimbare = button("Cmdschimbare", "Schimbare", {});
  cmdNelistate_ = button("cmdNelistate", "Nelistate", "Societati a caror creare a fost intrerupta");
  connect(cmdNelistate_, &QPushButton::clicked, this,
          [this] { guarded("frmSocietati", "cmdNelistate_Click", [this] { finishInterrupted(); }); });
  auto* cmdIesire = button("cmdIesire", "Iesire", {});
  setUpExitButton(cmdIesire, this);
  auto* grid = new QGridLayout;
  grid->setRowStretch(3, 1);
  grid->setContentsMargins(0, fontMetrics().height(), 0, 0);  // below the title of the frame beside it
  grid->addWidget(cmdAdauga, 0, 0);
  grid->addWidget(cmdSterge, 0, 1);
  grid->addWidget(Cmdschimbare, 1, 0);
  grid->addWidget(cmdIesire, 1, 1);
  grid->addWidget(cmdNelistate_, 2, 0);
  return grid;
}

void frmSocietati::refresh() {
  grid_->setRecordset(companyRecordset(readCompanyList(session().gCaleBD)));
  cmdNelistate_->setVisible(!unlistedCompanies(session().gCaleBD).isEmpty());
}

void frmSocietati::finishInterrupted() {
  const QList<Company> unlisted = unlistedCompanies(session().gCaleBD);
  for (const Company& company : unlisted) {
    const int answer = Mesaj(
        QStringLiteral("Baza de date %1 (%2) nu este in lista societatilor. Da - se adauga in lista, Nu - "
                       "se sterge definitiv.")
            .arg(company.NUMEBD, company.DENUMIRE),
        kYesNoCancel + kQuestion + kThirdDefault, QStringLiteral("Societati nelistate"));
    if (answer != kResultYes && answer != kResultNo) break;
    try {
      if (answer == kResultYes)
        listCompany(session().gCaleBD, company);
      else if (Mesaj(removalQuestion(company), kQuestion + kYesNo, QStringLiteral("Confirmare stergere")) ==
               kResultYes)
        removeUnlisted(session().gCaleBD, company);
    } catch (const RuleError& rule) {
      Mesaj(rule.text());
    }
  }
  refresh();
}

void frmSocietati::add() {
  try {
    const Hourglass hourglass;
    createCompany(session().gCaleBD, txtCod_->text(), txtDenumire_->text(), session().gDenSocietateNoua);
  } catch (const RuleError& rule) {
    Mesaj(rule.text());
    if (rule.field().isEmpty()) {
      txtCod_->clear();
      txtDenumire_->clear();
    }
    (rule.field() == QStringLiteral("DENUMIRE") ? txtDenumire_ : txtCod_)->setFocus();
    return;
  }
  const QString code = txtCod_->text().trimmed();
  txtCod_->clear();
  txtDenumire_->clear();
  refresh();
  grid_->selectRecord("COD", code);
  txtCod_->setFocus();
}

void frmSocietati::remove() {
  const Row* current = grid_->currentRecord();
  if (!current) return;
  const Company company = companyOf(*current);
  try {
    offerToForget(pathInFolder(session().gCaleBD, company.NUMEBD));
    requireRemovable(session().gCaleBD, company);
    if (Mesaj(removalQuestion(company), kQuestion + kYesNo, QStringLiteral("Confirmare stergere")) !=
        kResultYes)
      return;
    removeCompany(session().gCaleBD, company);
  } catch (const RuleError& rule) {
    Mesaj(rule.text());
  }
  refresh();
}

}  // namespace velmar
