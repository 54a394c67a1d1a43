#include "store/SqlitePlace.h"

#include <sys/stat.h>
#include <optional>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "util/Errors.h"
#include "util/FileRights.h"

namespace velmar::sqlite {

namespace {

// The number of the file on its disk; nothing when there is none.
std::optional<qulonglong> numberOf(const QString& path) {
  struct stat status = {};
  if (stat(QFile::encodeName(path).constData(), &status) != 0) return std::nullopt;
  return status.st_ino;
}

// The number that the mark remembers. A mark that is itself a copy came here with its folder: it says nothing
// about the files here.
std::optional<qulonglong> remembered(const QString& path) {
  QFile mark(placeMark(path));
  if (!mark.open(QIODevice::ReadOnly)) return std::nullopt;
  const QList<QByteArray> numbers = mark.readAll().simplified().split(' ');
  if (numbers.size() != 2 || numbers[1].toULongLong() != numberOf(mark.fileName())) return std::nullopt;
  return numbers[0].toULongLong();
}

}  // namespace

QString placeMark(const QString& path) { return path + QStringLiteral("-loc"); }

// Without a mark the file is only less protected.
void rememberPlace(const QString& path) {
  const auto number = numberOf(path);
  if (!number || remembered(path) == number) return;
  QFile mark(placeMark(path));
  if (!mark.open(QIODevice::WriteOnly)) return;
  protectFile(mark.fileName());
  mark.write(QByteArray::number(*number) + ' ' + QByteArray::number(numberOf(mark.fileName()).value_or(0)) +
             '\n');
}

void requireOwnJournal(const QString& path) {
  const auto known = remembered(path);
  if (!known || known == numberOf(path)) return;
  const QFileInfo journal(path + QStringLiteral("-wal"));
  if (journal.size() == 0) return rememberPlace(path);
  throw StoreError(
      kFileFailure,
      QStringLiteral("Fisierul %1 a fost inlocuit in timp ce societatea era deschisa, iar %2 are datele "
                     "fisierului vechi. Inchideti societatea pe toate calculatoarele, apoi aduceti inapoi "
                     "fisierul vechi, sau mutati %2 si %3 in alt folder daca nu mai aveti nevoie de ele.")
          .arg(QDir::toNativeSeparators(path), journal.fileName(),
               QFileInfo(path + QStringLiteral("-shm")).fileName()));
}

}  // namespace velmar::sqlite
