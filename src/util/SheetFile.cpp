#include "util/SheetFile.h"

#include <xlsxwriter.h>
#include <filesystem>
#include <memory>
#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "util/Decimal.h"
#include "util/Errors.h"
#include "util/FileRights.h"
#include "util/NumberText.h"

namespace velmar {

const QString kSheetFilter = QStringLiteral("Registru de calcul (*.xlsx);;Text cu separatori (*.csv)");

namespace {

using Kind = SheetColumn::Kind;

constexpr int kRowsBetweenReports = 1000;
constexpr int kLargestSheet = 1'048'575;  // rows below the headings

QDate dateOf(const QVariant& value) { return QDate::fromString(value.toString().left(10), Qt::ISODate); }

Decimal numberOf(const QVariant& value) {
  return value.typeId() == QMetaType::Double ? Decimal::fromDouble(value.toDouble())
                                             : Decimal(static_cast<qint64>(value.toLongLong()));
}

bool isNumber(const QVariant& value, Kind kind) {
  return kind == Kind::Number && value.typeId() != QMetaType::QString;
}

QString csvText(const QVariant& value, const SheetColumn& column) {
  if (value.isNull()) return {};
  if (isNumber(value, column.kind)) return editNumber(numberOf(value), column.decimals);
  if (column.kind == Kind::Date) return formatDate(dateOf(value));
  QString text = value.toString();
  if (!text.contains(u';') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r'))
    return text;
  return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

void writeCsv(const QString& path, const QList<SheetColumn>& columns, int rows, const SheetCell& cell,
              const Progress& progress) {
  QSaveFile file(path);
  openPrivately(file);
  file.write("\xEF\xBB\xBF");
  const auto writeLine = [&](const std::function<QString(int)>& text) {
    QStringList cells;
    for (int column = 0; column < columns.size(); ++column) cells.append(text(column));
    file.write(cells.join(u';').toUtf8() + "\r\n");
  };
  writeLine([&](int column) { return csvText(columns[column].caption, {}); });
  for (int row = 0; row < rows; ++row) {
    if (row % kRowsBetweenReports == 0) report(progress, row, rows);
    writeLine([&](int column) { return csvText(cell(row, column), columns[column]); });
  }
  if (!file.commit()) throw notWritten(file);
}

// A workbook that is written to disk row by row. It is removed unless it was closed.
class Workbook {
 public:
  explicit Workbook(const QString& path) : path_(path) {
    QFile empty(path_);  // which the library then writes
    openPrivately(empty);
    empty.close();
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    book_ = workbook_new_opt(QFile::encodeName(path_).constData(), &options);
    sheet_ = workbook_add_worksheet(book_, nullptr);
    bold_ = workbook_add_format(book_);
    format_set_bold(bold_);
    date_ = workbook_add_format(book_);
    format_set_num_format(date_, "dd.mm.yyyy");
  }
  ~Workbook() {
    if (book_) workbook_close(book_);
    QFile::remove(path_);
  }
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  void addColumn(int place, const SheetColumn& column) {
    const auto at = static_cast<lxw_col_t>(place);
    worksheet_set_column(sheet_, at, at, column.width + 2, nullptr);
    worksheet_write_string(sheet_, 0, at, column.caption.toUtf8().constData(), bold_);
    lxw_format* format = nullptr;
    if (column.kind == Kind::Date) format = date_;
    if (column.kind == Kind::Number && column.decimals > 0) {
      format = workbook_add_format(book_);
      format_set_num_format(format,
                            ("#,##0." + std::string(static_cast<size_t>(column.decimals), '0')).c_str());
    }
    formats_.push_back(format);
  }

  void write(int row, int place, const QVariant& value, Kind kind) {
    if (value.isNull()) return;
    const auto line = static_cast<lxw_row_t>(row + 1);
    const auto at = static_cast<lxw_col_t>(place);
    lxw_format* format = formats_[static_cast<size_t>(place)];
    const QDate day = kind == Kind::Date ? dateOf(value) : QDate();
    if (isNumber(value, kind)) {
      worksheet_write_number(sheet_, line, at, value.toDouble(), format);
    } else if (day.isValid()) {
      lxw_datetime moment{};
      moment.year = day.year();
      moment.month = day.month();
      moment.day = day.day();
      worksheet_write_datetime(sheet_, line, at, &moment, format);
    } else {
      worksheet_write_string(sheet_, line, at, value.toString().toUtf8().constData(), nullptr);
    }
  }

  /// Replaces the file `target`.
  void close(const QString& target) {
    lxw_workbook* book = std::exchange(book_, nullptr);
    const lxw_error fault = workbook_close(book);
    std::error_code refused;
    if (fault == LXW_NO_ERROR) std::filesystem::rename(path_.toStdString(), target.toStdString(), refused);
    if (fault != LXW_NO_ERROR || refused)
      throw StoreError(0, QStringLiteral("Fisierul %1 nu poate fi scris").arg(target));
  }

 private:
  QString path_;
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
  lxw_format* bold_ = nullptr;
  lxw_format* date_ = nullptr;
  std::vector<lxw_format*> formats_;
};

void writeXlsx(const QString& path, const QList<SheetColumn>& columns, int rows, const SheetCell& cell,
               const Progress& progress) {
  if (rows > kLargestSheet)
    throw RuleError(
        QStringLiteral(
            "O foaie de calcul are cel mult %1 randuri. Alegeti un fisier .csv sau mai putine randuri.")
            .arg(kLargestSheet));
  QSaveFile probe(path);  // the library gives no reason when it cannot write
  if (!probe.open(QIODevice::WriteOnly)) throw notWritten(probe);
  probe.cancelWriting();
  Workbook book(path + QStringLiteral(".tmp"));
  for (int column = 0; column < columns.size(); ++column) book.addColumn(column, columns[column]);
  for (int row = 0; row < rows; ++row) {
    if (row % kRowsBetweenReports == 0) report(progress, row, rows);
    for (int column = 0; column < columns.size(); ++column)
      book.write(row, column, cell(row, column), columns[column].kind);
  }
  book.close(path);
}

}  // namespace

void writeSheet(const QString& path, const QList<SheetColumn>& columns, int rows, const SheetCell& cell,
                const Progress& progress) {
  const QString ending = QFileInfo(path).suffix().toLower();
  if (ending == QStringLiteral("csv")) return writeCsv(path, columns, rows, cell, progress);
  if (ending == QStringLiteral("xlsx")) return writeXlsx(path, columns, rows, cell, progress);
  throw RuleError(QStringLiteral("Numele fisierului trebuie sa se termine cu .xlsx sau .csv"));
}

}  // namespace velmar
