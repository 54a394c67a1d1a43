#include "reports/windows/clsListLabel.h"

#include <QDir>
#include <QFileInfo>

#include "reports/windows/frmProiectare.h"
#include "reports/windows/ReportJob.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/Messages.h"
#include "util/PlainText.h"
#include "util/windows/FileDialog.h"

namespace velmar {

namespace {

QString faultText(const QString& file, const layout::LayoutError& error) {
  return QStringLiteral("Raportul %1 nu poate fi folosit.\r\nLinia %2, coloana %3: %4.")
      .arg(QDir::toNativeSeparators(file), QString::number(error.line()), QString::number(error.column()),
           error.text());
}

QString withoutBarsText(const QStringList& texts) {
  constexpr qsizetype kMostListed = 20;
  QStringList lines{
      QStringLiteral("Urmatoarele coduri se tiparesc fara bare, doar ca text, fiindca au litere sau "
                     "semne pe care codul de bare nu le are:")};
  for (const QString& text : texts.mid(0, kMostListed)) lines.append(visibleText(text));
  if (texts.size() > kMostListed) lines.append(QStringLiteral("si inca %1").arg(texts.size() - kMostListed));
  return lines.join(QStringLiteral("\r\n"));
}

}  // namespace

void clsListLabel::setFileName(const QString& path) {
  const QFileInfo given(QString(path).replace(u'\\', u'/'));
  fileName_ = pathInFolder(given.path(), given.fileName());
}

void clsListLabel::setFields(std::shared_ptr<const RowSource> rows, const QStringList& columns) {
  data_.fields = std::move(rows);
  data_.fieldNames = columns;
}

void clsListLabel::setFields(const Recordset& rows) {
  setFields(std::make_shared<RecordsetRows>(rows), rows.columns());
}

void clsListLabel::AddVarsFromRecordset(const Recordset& rows, const QStringList& columns) {
  if (rows.isEmpty()) return;
  for (const QString& column : columns.isEmpty() ? rows.columns() : columns)
    addVariable(column, rows.first().value(column));
}

void clsListLabel::addVariable(const QString& name, const QVariant& value) {
  data_.extraVariables.push_back(described(name, value));
}

void clsListLabel::addField(const QString& name, const QVariant& value) {
  data_.extraFields.push_back(described(name, value));
}

void clsListLabel::Design() {
  if (QFileInfo::exists(fileName_)) {
    const QString chosen =
        askFile(parent_, QStringLiteral("Raport"),
                QFileInfo(fileName_).suffix() == QStringLiteral("lbl") ? QStringLiteral("Etichete (*.lbl)")
                                                                       : QStringLiteral("Rapoarte (*.lst)"),
                fileName_);
    if (chosen.isEmpty()) return;
    setFileName(chosen);
  }
  designLayout(parent_, fileName_, data_);
}

bool clsListLabel::Print_Preview(Mode mode) {
  isLayoutDamaged_ = false;
  try {
    const layout::Layout layout = layout::load(fileName_);
    ReportJob job(fileName_, layout, data_);
    if (job.isEmpty()) return false;
    const PrintWay way = mode == Preview ? PrintWay::Preview : PrintWay::Print;
    if (!layout.labels) return printAndPreview(job, way, parent_);
    LabelSheets sheets(job, layout.page, *layout.labels, labelRun_);
    if (const QStringList texts = job.textsWithoutBars(); !texts.isEmpty())
      Mesaj(withoutBarsText(texts), kExclamation);
    return printAndPreview(sheets, way, parent_);
  } catch (const layout::LayoutError& error) {
    isLayoutDamaged_ = true;
    Mesaj(faultText(fileName_, error), kExclamation);
  } catch (const Cancelled&) {
    // Cancelled: what follows this run, such as the preview after the print, still runs.
  }
  return false;
}

}  // namespace velmar
