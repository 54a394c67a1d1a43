#include "documents/kinds/SaleWording.h"

#include <QHash>

namespace velmar::wording {

namespace {

const QString kChooseCustomer = QStringLiteral("Selectati client din lista de clienti");
const QString kRemarkTip = QStringLiteral("Introduceti maxim 45 caractere");

// Sales have more columns than other kinds: narrower ones keep the value visible on the smallest screen.
void fitOnScreen(QList<LineColumn>& columns) {
  static const QHash<QString, int> kWidths{{"CODART", 12},     {"DENUMIRE", 24},  {"CANT", 9},
                                           {"PRETFT", 10},     {"VALOAREFT", 11}, {"ValoareFTCuDiscount", 10},
                                           {"VALOARETVA", 10}, {"VALOARETTI", 11}};
  for (LineColumn& column : columns) column.width = kWidths.value(column.field, column.width);
}

}  // namespace

HeaderField customer(const DocumentKind& kind) {
  return {HeaderFieldType::Partner, kind.partnerColumn, "txtFields(1)", "&Client",
          kChooseCustomer,          "DataCombo1"};
}

HeaderField customerRemark(const DocumentKind& kind) {
  return {HeaderFieldType::Remark, kind.remarkColumn, "txtFields(3)", "&Observatii", kRemarkTip};
}

HeaderField costCentre() {
  return {HeaderFieldType::CostCentre, "", "DataCombo2", "Centru de cost",
          "Selectati centru de cost din lista"};
}

void describeSaleColumns(DocumentKind& kind, LineEntry entry, const QString& currencyPrice) {
  QList<LineColumn> columns = leadingColumns(kind);
  columns.append({"CANT", "Cantitate", entry, 3, 3, 12});
  if (!currencyPrice.isEmpty()) columns.append(price(currencyPrice, "Pret unitar valuta", entry));
  columns.append({price("PRETFT", "Pret unitar", entry, kSessionDecimals),
                  {"DiscountClient", "% Disc. Client", LineEntry::Locked, 2, kAsTyped, 8},
                  {"DiscountArticol", "% Disc. Art", LineEntry::Locked, 2, kAsTyped, 8},
                  price("ValoareFTCuDiscount", "Pret cu Disc.", entry),
                  value("VALOAREFT", "Valoare"),
                  {"VALOARETVA", "Valoare TVA", entry, kSessionDecimals, 2, 14},
                  value("VALOARETTI", "Valoare Totala")});
  fitOnScreen(columns);
  kind.lineColumns = columns;
  kind.lineCheck.netPrice = QStringLiteral("ValoareFTCuDiscount");
}

QStringList printedCustomer(const QStringList& more) {
  return kPrintedPartner + QStringList{"NUMEDELEGAT", "ACTIDENT"} + more;
}

}  // namespace velmar::wording
