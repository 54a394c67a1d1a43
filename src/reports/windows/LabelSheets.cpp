#include "reports/windows/LabelSheets.h"

#include <QPainter>

#include "util/Errors.h"

namespace velmar {

LabelSheets::LabelSheets(const ReportJob& job, const layout::Page& label, const layout::Labels& labels,
                         const LabelRun& run)
    : job_(job), label_(label), labels_(labels), run_(run) {
  if (run_.firstPlace < 1 || run_.firstPlace > places())
    throw RuleError(
        QStringLiteral("Coala are %1 locuri: primul loc liber este un numar intre 1 si %1 !").arg(places()),
        QStringLiteral("TextPrima"));
}

QPageLayout LabelSheets::pageLayout() const {
  const QSizeF sheet(labels_.sheetWidth, labels_.sheetHeight);
  const bool lies = sheet.width() > sheet.height();
  const QPageSize size(lies ? sheet.transposed() : sheet, QPageSize::Millimeter, QString(),
                       QPageSize::FuzzyMatch);
  return {size, lies ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(), QPageLayout::Millimeter};
}

int LabelSheets::sheetsFor(int labels) const {
  const qint64 used = qint64{labels} * run_.copies + run_.firstPlace - 1;
  return static_cast<int>((used + places() - 1) / places());
}

int LabelSheets::labelAt(int sheet, int place) const {
  const qint64 number = qint64{sheet} * places() + place - (run_.firstPlace - 1);
  if (number < 0 || number / run_.copies >= job_.pageCount()) return -1;
  return static_cast<int>(number / run_.copies);
}

void LabelSheets::paintPage(QPainter& painter, int page) const {
  for (int place = 0; place < places(); ++place) {
    const int label = labelAt(page, place);
    if (label < 0) continue;
    const int column = place % labels_.columns, row = place / labels_.columns;
    painter.save();
    painter.translate((labels_.sheetLeft + column * (label_.width + labels_.gapX)) * kTwipsPerMillimetre,
                      (labels_.sheetTop + row * (label_.height + labels_.gapY)) * kTwipsPerMillimetre);
    job_.paintPage(painter, label);
    painter.restore();
  }
}

QString LabelSheets::pageText(int page) const {
  QStringList texts;
  for (int place = 0; place < places(); ++place)
    if (const int label = labelAt(page, place); label >= 0) texts.append(job_.pageText(label));
  return texts.join(u'\n');
}

}  // namespace velmar
