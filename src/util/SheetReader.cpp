#include "util/SheetReader.h"

#include <cmath>
#include <QCborArray>
#include <QCborMap>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include "util/Decimal.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kPatience = 60'000;  // milliseconds
constexpr double kLargestExact = 9e15;

// A number typed as text, also with groups of digits where the decimals tell which separator they have:
// "1.234,50", "1,234.50".
std::optional<Decimal> typedNumber(QString text) {
  static const QRegularExpression byPoint(QStringLiteral(R"(^-?\d{1,3}(\.\d{3})+,\d+$)")),
      byComma(QStringLiteral(R"(^-?\d{1,3}(,\d{3})+\.\d+$)"));
  if (byPoint.match(text).hasMatch()) text.remove(u'.');
  if (byComma.match(text).hasMatch()) text.remove(u',');
  return parseNumber(text);
}

// Beside the program, or above it in a build folder.
QString readerProgram() {
  QDir folder(QCoreApplication::applicationDirPath());
  for (int level = 0; level < 3; ++level) {
    const QString path = folder.filePath(QStringLiteral("velmar_sheet"));
    if (QFileInfo(path).isExecutable()) return path;
    folder.cdUp();
  }
  throw StoreError(0, QStringLiteral("Lipseste programul velmar_sheet"));
}

RuleError unreadable(const QString& path, const QString& reason) {
  return RuleError(
      QStringLiteral("Fisierul %1 nu poate fi citit. %2").arg(QDir::toNativeSeparators(path), reason));
}

QCborMap parsed(const QString& path) {
  QProcess reader;
  reader.start(readerProgram(), {path});
  if (!reader.waitForFinished(kPatience)) {
    reader.kill();
    reader.waitForFinished();
    throw unreadable(path, QStringLiteral("Citirea a durat prea mult."));
  }
  const QCborValue read = QCborValue::fromCbor(reader.readAllStandardOutput());
  if (reader.exitStatus() != QProcess::NormalExit || !read.isMap())
    throw unreadable(path, QStringLiteral("Fisierul este deteriorat sau prea mare."));
  const QCborMap sheet = read.toMap();
  if (sheet.contains(QStringLiteral("error")))
    throw unreadable(path, sheet[QStringLiteral("error")].toString());
  return sheet;
}

}  // namespace

int SheetTable::place(QAnyStringView column) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [column](const QString& name) {
    return QAnyStringView::compare(name, column) == 0;
  });
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

QVariant SheetTable::cell(int row, QAnyStringView column) const {
  const int at = place(column);
  const auto& cells = rows_[static_cast<size_t>(row)];
  return at < 0 || at >= static_cast<int>(cells.size()) ? QVariant() : cells[static_cast<size_t>(at)];
}

QString SheetTable::text(int row, QAnyStringView column) const {
  const QVariant value = cell(row, column);
  if (value.typeId() != QMetaType::Double) return value.toString().trimmed();
  const double number = value.toDouble();
  if (std::floor(number) == number && std::abs(number) < kLargestExact)
    return QString::number(static_cast<qint64>(number));
  // A code longer than a number can hold exactly still has no exponent.
  return std::floor(number) == number ? QString::number(number, 'f', 0) : QString::number(number, 'g', 15);
}

QVariant SheetTable::number(int row, QAnyStringView column) const {
  const QVariant value = cell(row, column);
  if (value.typeId() == QMetaType::Double) return value;
  const auto typed = typedNumber(value.toString().trimmed());
  return typed ? QVariant(typed->toDouble()) : QVariant();
}

SheetTable readSheet(const QString& path) {
  if (QFileInfo(path).exists() && !QFileInfo(path).isFile())
    throw unreadable(path, QStringLiteral("Nu este un fisier obisnuit."));
  const QCborArray rows = parsed(path)[QStringLiteral("rows")].toArray();
  SheetTable table;
  bool isHeading = true;
  for (const QCborValueConstRef each : rows) {
    const QCborArray cells = each.toArray();
    std::vector<QVariant> row;
    for (const QCborValueConstRef cell : cells) row.push_back(cell.isNull() ? QVariant() : cell.toVariant());
    const bool isBlank = std::all_of(
        row.begin(), row.end(), [](const QVariant& cell) { return cell.toString().trimmed().isEmpty(); });
    if (isBlank) continue;
    if (!std::exchange(isHeading, false)) {
      table.rows_.push_back(std::move(row));
      continue;
    }
    for (const QVariant& name : row) table.columns_.append(name.toString().trimmed().toUpper());
  }
  if (table.columns_.isEmpty()) throw unreadable(path, QStringLiteral("Foaia este goala."));
  return table;
}

}  // namespace velmar
