#include "shell/windows/MenuTable.h"

#include <optional>
#include <QApplication>

#include "catalogue/windows/FrmActPretVanz.h"
#include "catalogue/windows/frmArticole.h"
#include "catalogue/windows/frmArticoleDiscount.h"
#include "catalogue/windows/frmFamArticole.h"
#include "catalogue/windows/frmTerti.h"
#include "config/windows/frmConexiuni.h"
#include "config/windows/frmCoteTVA.h"
#include "config/windows/frmJurnale.h"
#include "config/windows/frmMagazii.h"
#include "config/windows/frmParamSoc.h"
#include "config/windows/frmPC.h"
#include "config/windows/frmSocietati.h"
#include "config/windows/frmUM.h"
#include "config/windows/frmUtilizatori.h"
#include "config/windows/frmValute.h"
#include "documents/windows/frmGrila.h"
#include "documents/windows/frmGrilaAE.h"
#include "documents/windows/frmGrilaCS.h"
#include "documents/windows/frmGrilaFC2.h"
#include "documents/windows/frmGrilaFF.h"
#include "documents/windows/frmGrilaFFI.h"
#include "documents/windows/frmGrilaNIR.h"
#include "documents/windows/frmLDoc.h"
#include "documents/windows/frmMiscariStoc.h"
#include "documents/windows/frmVerificare.h"
#include "einvoice/windows/frmEFactura.h"
#include "einvoice/windows/frmEFacturaPrimite.h"
#include "hearing/windows/frmComandaAudio.h"
#include "hearing/windows/frmFacturaAudio.h"
#include "hearing/windows/frmGrilaBonReparatie.h"
#include "hearing/windows/frmRapComisioane.h"
#include "reports/windows/frmGrafice.h"
#include "reports/windows/frmRaport.h"
#include "shell/Denomination.h"
#include "shell/Maintenance.h"
#include "shell/windows/frmAbout.h"
#include "shell/windows/frmPanou.h"
#include "shell/windows/frmRestaurare.h"
#include "shell/windows/frmSalvare.h"
#include "stock/Corrections.h"
#include "stock/windows/frmCorectiiCosturi.h"
#include "stock/windows/frmIesiriStoc.h"
#include "util/Messages.h"
#include "util/windows/Forms.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

template <typename Window>
QWidget* make(QWidget* parent) {
  return new Window(parent);
}

// The window of a kind without controls of its own.
QWidget* documentWindow(const QString& prefix, QWidget* parent) { return new frmGrila(prefix, parent); }

QWidget* reportWindow(const QString& name, QWidget* parent) {
  return new frmRaport(stockReport(name), parent);
}

void compact() {
  const Hourglass hourglass;
  CompacteazaBD();
}

void convert() {
  const Hourglass hourglass;
  std::optional<WorkProgress> progress;  // only after the questions
  guarded(QStringLiteral("Module Module1"), QStringLiteral("Denominare"), [&progress] {
    Denominare([&progress](int done, int of) {
      if (!progress) progress.emplace(QStringLiteral("Denominare"), QApplication::activeWindow());
      progress->show(done, of);
    });
  });
}

void correctStock() {
  {
    const Hourglass hourglass;
    WorkProgress progress(QStringLiteral("Corectii stocuri"), QApplication::activeWindow());
    correctStockAndNotes([&progress](int done, int of) { progress.show(done, of); });
  }
  Mesaj("Corectia a fost efectuata.");
}

std::vector<MenuEntry> entries() {
  return {
      {"mnuFile", "&Societate", Opens::Menu, {}},
      {"mnuCreare", "C&reare", Opens::One, "frmSocietati", make<frmSocietati>},
      {"mnuFilemnuSocConf", "&Configurare", Opens::One, "frmParamSoc", make<frmParamSoc>},
      {"mnuUtilizatori", "&Utilizatori", Opens::One, "frmUtilizatori", make<frmUtilizatori>},
      {"mnuMagazii", "&Magazii", Opens::One, "frmMagazii", make<frmMagazii>},
      {"", "", Opens::Separator, {}},
      {"mnuFileExit", "&Iesire", Opens::Own, {}},

      {"mnuView", "&Afisare", Opens::Menu, {}},
      {"mnuViewStatusBar", "&Bara de Stare", Opens::OwnCheck, {}},
      {"", "", Opens::Separator, {}},
      {"mnuViewLeftBar", "Bara S&tanga", Opens::OwnCheck, {}},
      {"mnuViewRightBar", "Bara &Dreapata", Opens::OwnCheck, {}},
      {"", "", Opens::Separator, {}},
      {"mnuPanou", "&Panou", Opens::One, "frmPanou", make<frmPanou>},

      {"mnumnuTabele", "Tabele", Opens::Menu, {}},
      {"mnuTabeleClienti", "&Clienti", Opens::One, "frmTerti C", makeCustomers},
      {"mnuTabeleFurnizori", "&Furnizori", Opens::One, "frmTerti F", makeSuppliers},
      {"", "", Opens::Separator, {}},
      {"mnuTabeleFamArt", "&Familii Articole", Opens::One, "frmFamArticole", make<frmFamArticole>},
      {"mnuTabeleArticole", "&Articole", Opens::One, "frmArticole", make<frmArticole>},
      {"mnuDiscounturiArt", "&Discounturi Articole", Opens::New, "frmArticoleDiscount",
       make<frmArticoleDiscount>},
      {"", "", Opens::Separator, {}},
      {"mnumnuTabelemnuTabPC", "&Plan de Conturi", Opens::One, "frmPC", make<frmPC>},
      {"mnumnuTabelemnuTabTVA", "&TVA", Opens::One, "frmCoteTVA", make<frmCoteTVA>},
      {"mnumnuTabelemnuPrelValuta", "&Valute", Opens::One, "frmValute", make<frmValute>},
      {"", "", Opens::Separator, {}},
      {"mnuJurnale", "&Jurnale", Opens::One, "frmJurnale", make<frmJurnale>},
      {"mnuTabeleDocumente", "&Documente", Opens::One, "frmLDoc", make<frmLDoc>},
      {"mnuMiscastoc", "&Miscari de stoc", Opens::One, "frmMiscariStoc", make<frmMiscariStoc>},
      {"", "", Opens::Separator, {}},
      {"mnuUM", "&Unitati de masura", Opens::One, "frmUM", make<frmUM>},

      {"mnuCumparari", "&Cumparari", Opens::Menu, {}},
      {"mnuCumpFactura", "&Factura", Opens::One, "frmGrilaFF", make<frmGrilaFF>},
      {"mnuCumpFacturaImport", "&Factura Import", Opens::One, "frmGrilaFFI", make<frmGrilaFFI>},
      {"mnuCumpNIR", "&N.I.R.", Opens::One, "frmGrilaNIR", make<frmGrilaNIR>},
      {"", "", Opens::Separator, {}},
      {"mnuBonIntr", "&Bon de intrare", Opens::One, "frmGRILABonIntr",
       [](QWidget* parent) { return documentWindow("BI", parent); }},
      {"mnuCumpComanda", "&Comanda", Opens::One, "frmGrilaCOMF",
       [](QWidget* parent) { return documentWindow("CF", parent); }},
      {"", "", Opens::Separator, {}},
      {"mnuEFacturaPrimite", "e-Facturi &primite", Opens::One, "frmEFacturaPrimite",
       make<frmEFacturaPrimite>},

      {"mnuVanzari", "&Vanzari", Opens::Menu, {}},
      {"mnuCasa", "&Casa", Opens::New, "frmGrilaCS", make<frmGrilaCS>},
      {"mnuVanzFactura", "&Factura", Opens::Modal, "frmGrilaFC2", make<frmGrilaFC2>},
      {"", "", Opens::Separator, {}},
      {"mnuVanzariProforma", "&Proforma", Opens::One, "frmGrilaPRO",
       [](QWidget* parent) { return documentWindow("PR", parent); }},
      {"mnuStorno", "Factura &Storno", Opens::One, "frmGRILAStornare",
       [](QWidget* parent) { return documentWindow("FS", parent); }},
      {"mnuBonConsum", "&Bon de consum", Opens::One, "frmGRILABonConsum",
       [](QWidget* parent) { return documentWindow("BC", parent); }},
      {"", "", Opens::Separator, {}},
      {"mnuVanzariAE", "&Aviz de Expeditie", Opens::One, "frmGrilaAE", make<frmGrilaAE>},
      {"mnuVanzariComanda", "&Comanda", Opens::One, "frmGrilaCOMC",
       [](QWidget* parent) { return documentWindow("CC", parent); }},
      {"mnuTransfer", "&Document de transfer", Opens::One, "frmGRILADocTransfer",
       [](QWidget* parent) { return documentWindow("BT", parent); }},
      {"mnuLine1", "", Opens::Separator, {}},
      {"mnuComenziAudio", "&Comanda", Opens::New, "frmComandaAudio", make<frmComandaAudio>},
      {"mnuFacturiAudio", "&Factura", Opens::New, "frmFacturaAudio", make<frmFacturaAudio>},
      {"mnuBonReparatie", "&Bon de reparatie", Opens::New, "frmGrilaBonReparatie",
       make<frmGrilaBonReparatie>},
      {"", "", Opens::Separator, {}},
      {"mnuEFactura", "e-&Factura", Opens::One, "frmEFactura", make<frmEFactura>},

      {"mnuRap", "&Rapoarte", Opens::Menu, {}},
      {"mnumnuRapmnuJCT", "Jurnal &Cumparari TVA", Opens::One, "frmRapJCTVA",
       [](QWidget* parent) { return reportWindow("frmRapJCTVA", parent); }},
      {"mnumnuRapmnuRapJVT", "Jurnal &Vanzari TVA", Opens::One, "frmRapJVTVA",
       [](QWidget* parent) { return reportWindow("frmRapJVTVA", parent); }},
      {"", "", Opens::Separator, {}},
      {"mnuRapComenziClienti", "Comenzi C&lienti", Opens::One, "frmRapComNelivCl",
       [](QWidget* parent) { return reportWindow("frmRapComNelivCl", parent); }},
      {"mnuRapComenziFurnizori", "Comenzi &Furnizori", Opens::One, "frmRapComNelivFr",
       [](QWidget* parent) { return reportWindow("frmRapComNelivFr", parent); }},
      {"", "", Opens::Separator, {}},
      {"mnuRapAE", "&Avize Expeditie", Opens::One, "frmRapAE",
       [](QWidget* parent) { return reportWindow("frmRapAE", parent); }},
      {"mnuRapDisopnibil", "&Disponibil in stoc", Opens::One, "frmRapDisponibil",
       [](QWidget* parent) { return reportWindow("frmRapDisponibil", parent); }},
      {"mnuRapJurnalStoc", "&Lista de inventariere", Opens::One, "frmRapJStoc",
       [](QWidget* parent) { return reportWindow("frmRapJStoc", parent); }},
      {"mnuRapUrmStoc", "&Urmarire Stoc", Opens::One, "frmRapUrmStoc",
       [](QWidget* parent) { return reportWindow("frmRapUrmStoc", parent); }},
      {"mnuRapDescarcare", "Co&stul Vanzarilor", Opens::One, "frmRapDescarcare",
       [](QWidget* parent) { return reportWindow("frmRapDescarcare", parent); }},
      {"", "", Opens::Separator, {}},
      {"mnuRapStaFurn", "Statistici &Furnizori", Opens::One, "frmRapStaFr",
       [](QWidget* parent) { return reportWindow("frmRapStaFr", parent); }},
      {"mnuRapStaCL", "Statistici &Clienti", Opens::One, "frmRapStaCl",
       [](QWidget* parent) { return reportWindow("frmRapStaCl", parent); }},
      {"mnuRapVanzari", "&Vanzari", Opens::One, "frmRapVanzari",
       [](QWidget* parent) { return reportWindow("frmRapVanzari", parent); }},
      {"mnuComisioane", "Comisioane", Opens::New, "frmRapComisioane", make<frmRapComisioane>},
      {"mnuRapIesiri", "&Iesiri din Stoc", Opens::One, "frmRapIesiri",
       [](QWidget* parent) { return reportWindow("frmRapIesiri", parent); }},
      {"", "", Opens::Separator, {}},
      {"mnuEtichete", "&Etichete articole", Opens::New, "frmArticoleEtichete",
       [](QWidget* parent) { return reportWindow("frmArticoleEtichete", parent); }},
      {"mnuGrafice", "&Grafice", Opens::Modal, "frmGrafice", make<frmGrafice>},

      {"mnuIntretinere", "&Intretinere", Opens::Menu, {}},
      {"mnuIntCompactare", "&Compactare", Opens::Command, {}, nullptr, compact},
      {"mnuIntSalvare", "&Salvare", Opens::Modal, "frmSalvare", make<frmSalvare>},
      {"mnuIntRestaurare", "&Restaurare", Opens::Modal, "frmRestaurare", make<frmRestaurare>},
      {"", "", Opens::Separator, {}},
      {"mnuCorectiiCosturi", "Co&rectii costuri", Opens::Modal, "frmCorectiiCosturi",
       make<frmCorectiiCosturi>},
      {"nmuCorectieStoc", "Corectii stoc&uri", Opens::Command, {}, nullptr, correctStock},
      {"mnuVerificare", "&Verificare", Opens::One, "frmVerificare", make<frmVerificare>},
      {"", "", Opens::Separator, {}},
      {"mnuActualizarePret", "&Actualizare Preturi de Vanzare", Opens::One, "FrmActPretVanz",
       make<FrmActPretVanz>},
      {"mnuCantE", "Cantitati I&esite", Opens::New, "frmIesiriStoc", make<frmIesiriStoc>},
      {"", "", Opens::Separator, {}},
      {"mnuConexiuni", "&Lista conexiuni", Opens::New, "frmConexiuni", make<frmConexiuni>},
      {"mnuDenominare", "&Denominare", Opens::Command, {}, nullptr, convert},

      {"mnuWindow", "&Ferestre", Opens::Menu, {}},
      {"mnuWindowCascade", "&Cascada", Opens::Own, {}},
      {"mnuWindowTileHorizontal", "&Orizontal", Opens::Own, {}},
      {"mnuWindowTileVertical", "&Vertical", Opens::Own, {}},

      {"mnuHelp", "&Help", Opens::Menu, {}},
      {"mnuHelpContents", "&Continut", Opens::Own, {}},
      {"", "", Opens::Separator, {}},
      {"mnuHelpAbout", "&Informatii", Opens::Modal, "frmAbout", make<frmAbout>},
  };
}

}  // namespace

const std::vector<MenuEntry>& menuTable() {
  static const std::vector<MenuEntry> theEntries = entries();
  return theEntries;
}

const std::vector<ToolEntry>& toolbarTable() {
  static const std::vector<ToolEntry> theEntries = {
      {1, "Configurare ", "Configurare parametrii de lucru ai societatii", "mnuFilemnuSocConf", "settings"},
      {3, "Clienti", "Lista Clienti", "mnuTabeleClienti", "customers"},
      {5, "Furnizori", "Lista Furnizori", "mnuTabeleFurnizori", "suppliers"},
      {7, "Articole", "Lista articole ", "mnuTabeleArticole", "articles"},
      {10, "Fact. Furn.", "Culegere date din facturi furnizori", "mnuCumpFactura", "invoice-in"},
      {12, "NIR", "Culegere date din Nota de Intrare Receptie", "mnuCumpNIR", "receipt"},
      {14, "Fact. Client", "Culegere date din factura client", "mnuVanzFactura", "invoice-out"},
      {16, "Bon Casa", "Culegere date pentru casa", "mnuCasa", "cash"}};
  return theEntries;
}

const std::vector<ToolEntry>& reportToolbarTable() {
  static const std::vector<ToolEntry> theEntries = {
      {1, "Stoc disp.", "Disponibil in stoc", "mnuRapDisopnibil", "stock"},
      {3, "Urmarire stoc", "Urmarire stoc", "mnuRapUrmStoc", "track"},
      {5, "Inventar", "Lista articolelor ingestiune", "mnuRapJurnalStoc", "inventory"},
      {7, "Cost Vanzari", "Costul Vanzarilor", "mnuRapDescarcare", "cost"},
      {9, "Iesiri din Stoc", "Iesiri din Stoc", "mnuRapIesiri", "exit"},
      {11, "Vanzari", "Raport Vanzari", "mnuRapVanzari", "sales"}};
  return theEntries;
}

}  // namespace velmar
