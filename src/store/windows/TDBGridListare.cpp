#include "store/windows/TDBGridListare.h"

#include <QBoxLayout>
#include <QPushButton>

#include "store/windows/GridPrint.h"
#include "util/Errors.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

const QString kControl = QStringLiteral("User Control TDBGridListare");
constexpr int kNoGrid = static_cast<int>(0x80040001);
constexpr int kNoForm = static_cast<int>(0x80040002);
constexpr qreal kMargin = 300 / kTwipsPerMillimetre;

QPalette paperColours() {
  QPalette colours;
  for (const QPalette::ColorRole back : {QPalette::Base, QPalette::AlternateBase, QPalette::Button})
    colours.setColor(back, Qt::white);
  for (const QPalette::ColorRole text : {QPalette::Text, QPalette::ButtonText})
    colours.setColor(text, Qt::black);
  return colours;
}

}  // namespace

TDBGridListare::TDBGridListare(const QString& name, QWidget* parent)
    : QWidget(parent),
      cmdListare_(makeButton("cmdListare", "Listare", "Tiparirea randurilor selectate", "print")) {
  setObjectName(name);
  auto* inside = new QHBoxLayout(this);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addWidget(cmdListare_);
  setFocusProxy(cmdListare_);
  connect(cmdListare_, &QPushButton::clicked, this,
          [this] { guarded(kControl, "cmdListare_Click", [this] { cmdListare_Click(); }); });
}

void TDBGridListare::cmdListare_Click() {
  if (!grid_) throw Error(kNoGrid, QStringLiteral("Nu s-a setat TDBGrid controlulului"));
  if (!form_) throw Error(kNoForm, QStringLiteral("Nu s-a setat FORM-ul controlulului"));
  QStringList totalled;
  for (const GridColumn& column : grid_->columns())
    if (!grid_->footer(column.field).isEmpty()) totalled.append(column.field);
  minimiseForm(form_);
  const bool ready =
      totalled.isEmpty() || guarded(kControl, "pTotalSelected", [&] { pTotalSelected(totalled); });
  const QPalette screen = grid_->palette();
  grid_->setPalette(paperColours());
  if (ready) guarded(kControl, "cmdListare_Click", [this] { print(); });
  if (!grid_ || !form_) return;
  grid_->setPalette(screen);
  emit EndPrint();
  maximiseForm(form_);
}

void TDBGridListare::pTotalSelected(const QStringList& fields) {
  QList<TotalledField> totalled;
  for (const QString& field : fields) totalled.append({field});
  const std::vector<Decimal> sums = sumsOf(grid_->rows(), grid_->selectedPlaces(), totalled);
  for (size_t i = 0; i < sums.size(); ++i)
    grid_->setFooter(fields[static_cast<qsizetype>(i)], formatNumber(sums[i], 2));
}

void TDBGridListare::print() {
  GridPrintSettings settings;
  settings.name = form_->windowTitle();
  settings.header = QStringLiteral("R A P O R T");
  settings.boldHeader = true;
  settings.footer = QStringLiteral(R"(Editat de Tarvon \t\t Pagina: \p din \P)");
  settings.orientation = QPageLayout::Landscape;
  settings.margins = {kMargin, kMargin, kMargin, kMargin};
  settings.repeatFooters = true;
  settings.wrapped = wrapped_;
  printGrid(*grid_, settings, form_->window());
}

}  // namespace velmar
