#include "config/windows/JournalsPage.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "config/Lists.h"
#include "config/Parameters.h"
#include "config/windows/CodeBox.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kNameLengthWidth = 5;

struct JournalField {
  const char* caption;
  const char* column;
};

const JournalField kJournals[] = {{"Factura furnizori", "JURFACFUR"}, {"Factura import", "JURFACIMP"},
                                  {"Factura clienti", "JURFACCLI"},   {"Factura storno", "JURFACSTORNO"},
                                  {"Aviz expeditie", "JURAVIZ"},      {"Bon de intrare", "JURBONINTR"},
                                  {"Bon de consum", "JURBONCONS"},    {"NIR", "JURNIR"}};

const BoundList kJournalList = codeList("kt_jur", "COD", "TITLU", "TIP IN ('C', 'V', 'D')");
constexpr int kShownName = 40;  // characters

}  // namespace

JournalsPage::JournalsPage(QWidget* parent) : ParameterPage(parent) {
  auto* all = new QVBoxLayout(this);
  all->addWidget(journalsFrame());
  all->addWidget(registerRow());
  all->addStretch();
}

QWidget* JournalsPage::journalsFrame() {
  auto* frame = new QGroupBox("Jurnale");
  auto* grid = new QGridLayout(frame);
  for (int i = 0; i < static_cast<int>(std::size(kJournals)); ++i) {
    QLineEdit* box = addTextBox(QStringLiteral("txtDoc(%1)").arg(i), "kt_par", kJournals[i].column);
    auto* combo = new SearchCombo(QStringLiteral("cboJurnal(%1)").arg(i), {}, kShownName, this);
    moveOnWithEnter(combo);
    pairWithCombo(box, combo);
    requireKnownCodeWhenLeft(box, "CodJurnal");
    combos_.append(combo);
    addField(grid, i, 0, kJournals[i].caption, box);
    grid->addWidget(combo, i, 2);
  }
  grid->setColumnStretch(3, 1);
  return frame;
}

QWidget* JournalsPage::registerRow() {
  auto* frame = new QGroupBox("Casa de marcat");
  auto* grid = new QGridLayout(frame);
  QLineEdit* kind = addTextBox("TextCM", "kt_par", "CASAMARCAT", "A-Activa,D-Datecs,O-Optima,P-Partner");
  KeyFilter::install(kind, KeyFilter::UpperCase);
  addField(grid, 0, 0, " Casa de marcat", kind);
  addField(
      grid, 0, 2, " Numar caractere",
      addNumberBox("TextNrCaracter", "CASAMARCAT_Nr", kNameLengthWidth, "Valoarea trebuie sa fie numerica",
                   "Numar de caractere suportate de casa de marcat pentru denumire articol"));
  grid->setColumnStretch(4, 1);
  return frame;
}

void JournalsPage::showStored() {
  card().show(storedParameters());
  fillCodeCombos(combos_, kJournalList);
}

void JournalsPage::storeShown() { saveJournals(card().typed()); }

}  // namespace velmar
