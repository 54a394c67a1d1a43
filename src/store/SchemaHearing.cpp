// Tables of the hearing-device trade: orders with their audiograms, invoices, repair vouchers, and which
// orders and vouchers are billed on which invoice.
#include <functional>

#include "store/Schema.h"

namespace velmar {

namespace {

constexpr int kNumberWidth = 20;
constexpr int kArticleWidth = 20;
constexpr int kNameWidth = 35;
constexpr int kRemarkWidth = 60;  // as that of the ledger
constexpr int kPathWidth = 255;

QString numbered(const QString& prefix, int first, int count, const std::function<int(int)>& next) {
  QStringList names;
  for (int i = 0, value = first; i < count; ++i, value = next(value))
    names.append(prefix + QString::number(value));
  return names.join(u' ');
}

Table orders() {
  return Table("G_COMANDA_AUDIO")
      .autoNumber("ID_Comanda")
      .integers("ID_Pacient ID_Doctor ID_CAS ID_PunctLucru")
      .text("ID_Dispozitiv", kArticleWidth)
      .dates("Data")
      .text("Nr", kNumberWidth)
      .text("GradHipoacuzie", 30)
      .reals("PretLivrare PretReferinta")
      .flags("UrecheaDreapta")
      .text("NrDecizie", kNumberWidth)
      .dates("DataDecizie")
      .texts("NrCarnetAsigurat NrCertificatGarantie", kNumberWidth)
      .dates("DataCertificatGarantie")
      .texts("SerieDispozitiv TipOliva", 30)
      .flags("IsImport")
      .text("Fisier", kPathWidth)
      .dates("DataImport")
      .numbered("Nr")
      .index("Nr Data")
      .index("Data ID_Comanda")
      .index("ID_CAS ID_PunctLucru")
      .index("ID_PunctLucru")
      .index("ID_Pacient")
      .index("ID_Doctor")
      .index("ID_Dispozitiv");
}

Table audiogram(const QString& name, const QString& cells) {
  return Table(name)
      .integers("ID_Comanda")
      .flags("UrecheaDreapta")
      .text("Urechea", 7)
      .reals(cells)
      .key("ID_Comanda UrecheaDreapta");
}

Table invoices() {
  return Table("G_FacturiClientiAudio")
      .autoNumber("ID_Factura")
      .text("Nr", kNumberWidth)
      .dates("Data DataScadenta")
      .integers("ID_Client ID_PunctLucru")
      .reals("CotaTVA")
      .text("Observatii", kRemarkWidth)
      .flags("Validat")
      .text("UserName", 10)
      .dates("DataOperare")
      .reals("TotalFT TVA Total")
      .flags("IsStorno")
      .numbered("Nr")
      .index("Nr")
      .index("Data", "Validat = 0")
      .index("ID_Client")
      .index("ID_PunctLucru")
      .index("Observatii", "IsStorno <> 0");
}

Table vouchers() {
  return Table("G_BonReparatii")
      .autoNumber("ID_BonReparatie")
      .text("Nr", kNumberWidth)
      .integers("ID_Client")
      .text("ID_Aparat", kArticleWidth)
      .text("TipAparat", 50)
      .text("SerieAparat", 30)
      .texts("Defectiune Observatie", kRemarkWidth)
      .dates("DataReceptie DataTerminare")
      .flags("IsTerminat IsContraCost Validat")
      .text("UserName", 10)
      .dates("DataOperare")
      .numbered("Nr")
      .index("Nr")
      .index("DataReceptie ID_BonReparatie")
      .index("ID_Client")
      .index("ID_Aparat");
}

}  // namespace

std::vector<Table> hearingTables() {
  return {orders(),
          audiogram("G_AudiogramaTonala", numbered("C", 125, 7, [](int value) { return value * 2; })),
          audiogram("G_AudiogramaVocala", numbered("C", 0, 21, [](int value) { return value + 5; })),
          invoices(),
          Table("G_FacturaClientiAudio_Detalii")
              .autoNumber("ID_Detaliu")
              .integers("ID_Factura")
              .text("ID_Articol", kArticleWidth)
              .text("Articol", kNameWidth)
              .reals("Cant PretUnitar Valoare TVA Total Cost")
              .flags("DinComanda")
              .index("ID_Factura")
              .index("ID_Articol"),
          Table("G_AsocieriComenziFacturiAudio")
              .integers("ID_Factura ID_ComandaAudio ID_Client")
              .flags("Stornat")
              .key("ID_Factura ID_ComandaAudio ID_Client")
              .index("ID_ComandaAudio ID_Client"),
          Table("G_AsocieriBonuriFacturiAudio")
              .integers("ID_Factura ID_BonReparatie")
              .flags("Stornat")
              .key("ID_Factura ID_BonReparatie")
              .index("ID_BonReparatie"),
          vouchers(),
          Table("G_BonReparatii_Detalii")
              .autoNumber("ID_DetaliuBon")
              .integers("ID_BonReparatie")
              .text("ID_Articol", kArticleWidth)
              .text("Articol", kNameWidth)
              .reals("Cant PretUnitar Valoare Cost")
              .index("ID_BonReparatie")
              .index("ID_Articol")};
}

}  // namespace velmar
