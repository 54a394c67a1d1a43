#include "documents/windows/frmVerificare.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "documents/Undo.h"
#include "documents/windows/frmLDoc.h"
#include "documents/windows/frmMiscariStoc.h"
#include "stock/Corrections.h"
#include "stock/windows/frmCorectiiCosturi.h"
#include "store/Database.h"
#include "store/StockBalance.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Forms.h"
#include "util/windows/WindowHost.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

// The columns of the list; the place of a row among the findings is its key.
const QString kPlaceColumn = QStringLiteral("NR");

Recordset listOf(const std::vector<Disagreement>& found) {
  Recordset rows(std::make_shared<Columns>(QStringList{kPlaceColumn, "REGULA", "LOC"}));
  int place = 0;
  for (const Disagreement& each : found) rows.append({place++, each.what, each.where});
  return rows;
}

}  // namespace

frmVerificare::frmVerificare(QWidget* parent)
    : ListForm("frmVerificare", "Verificare", parent), lblNo_(named(new QLabel, "lblNo")) {
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, objectName());
  grid->setColumns({{"REGULA", "Regula", CellFormat::Text, 74}, {"LOC", "Loc", CellFormat::Text, 34}});
  grid->setEmptyText("Datele societatii corespund intre ele.");
  setList(grid, kPlaceColumn, [this] { return check(); }, {});
  setPrinting({.name = "Verificare",
               .header = "Verificare",
               .footer = R"(\t\tPagina: \p din \P)",
               .boldHeader = true,
               .orientation = QPageLayout::Landscape});
  auto* cmdVerifica = command("cmdVerifica", "Verificare", "Verifica din nou datele societatii", "search",
                              [this] { refresh(); });
  cmdDocument_ = command("cmdDocument", "Document", "Arata documentul, sau miscarile articolului", "stock",
                         [this] { showDocument(); });
  cmdCorectie_ = command("cmdCorectie", "Corectie", "Corecteaza, apoi verifica din nou", "validate",
                         [this] { correct(); });
  auto* counted = new QHBoxLayout;
  counted->addStretch();
  counted->addWidget(new QLabel("Nr. Inregistrari: "));
  counted->addWidget(lblNo_);
  auto* all = new QVBoxLayout(this);
  all->addWidget(grid, 1);
  all->addLayout(counted);
  all->addLayout(
      commandRow({cmdVerifica, cmdDocument_, cmdCorectie_,
                  printCommand("cmdListare", "Listare", "Listare linii selectate"), exitCommand()}));
  finish(grid);
}

std::unique_ptr<RowSource> frmVerificare::check() {
  const Hourglass wait;
  WorkProgress progress(windowTitle(), this);
  found_ = disagreements([&progress](int done, int of) { progress.show(done, of); });
  lblNo_->setText(formatNumber(static_cast<qint64>(found_.size()), 0));
  return std::make_unique<RecordsetRows>(listOf(found_));
}

const Disagreement* frmVerificare::current() const {
  const Row* record = list()->currentRecord();
  return record ? &found_[static_cast<size_t>(record->integer(kPlaceColumn))] : nullptr;
}

void frmVerificare::showRecord(const Row* record) {
  ListForm::showRecord(record);
  const Disagreement* found = current();
  cmdDocument_->setEnabled(found && !found->key.isEmpty());
  cmdCorectie_->setEnabled(found && found->correction != Correction::None);
}

void frmVerificare::showDocument() {
  const Disagreement* found = current();
  if (!found || !windowHost()) return;
  if (found->place == Place::Article) {
    QWidget* window = windowHost()->showOne("frmMiscariStoc", [] { return new frmMiscariStoc; });
    if (auto* movements = qobject_cast<frmMiscariStoc*>(window))
      movements->showOnly("CODARTICOL", found->key);
  } else if (found->place == Place::Document) {
    QWidget* window = windowHost()->showOne("frmLDoc", [] { return new frmLDoc; });
    if (auto* documents = qobject_cast<frmLDoc*>(window)) documents->showOnly("ID", found->key);
  }
}

void frmVerificare::correct() {
  const Disagreement* found = current();
  if (!found) return;
  switch (found->correction) {
    case Correction::None:
      return;
    case Correction::Lots:
      frmCorectiiCosturi(this).exec();
      break;
    case Correction::StockAndNotes: {
      const Hourglass wait;
      WorkProgress progress(QStringLiteral("Corectii stocuri"), this);
      correctStockAndNotes([&progress](int done, int of) { progress.show(done, of); });
      break;
    }
    case Correction::WarehouseStock: {
      Transaction transaction(database());
      refillBalance(database());
      transaction.commit();
      break;
    }
    case Correction::Draft: {
      const auto key = LedgerKey::of(found->key);
      if (!key ||
          !confirmed(
              QStringLiteral("Documentul %1 va reveni in grila de culegere. Continuati ?").arg(found->key),
              windowTitle()))
        return;
      reopenLost(*key);
      break;
    }
  }
  if (found->correction != Correction::Lots) Mesaj("Corectia a fost efectuata.");
  refresh();
}

}  // namespace velmar
