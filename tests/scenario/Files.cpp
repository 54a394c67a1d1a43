#include "Files.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace velmar::scenario {

namespace {

QString readFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw Failure(QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString()));
  return QString::fromLatin1(file.readAll());
}

void writeFile(const QString& path, const QString& text, bool executable) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(text.toLatin1()) != text.size() || !file.flush())
    throw Failure(QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString()));
  file.close();
  if (executable)
    file.setPermissions(file.permissions() | QFile::ExeOwner | QFile::ExeUser | QFile::ExeGroup |
                        QFile::ExeOther);
}

void removeFile(const QString& path) {
  const QFileInfo info(path);
  const bool gone = info.isDir() ? QDir(path).removeRecursively() : !info.exists() || QFile::remove(path);
  if (!gone) throw Failure(QStringLiteral("%1 cannot be removed").arg(path));
}

QString pdfText(const QString& path) {
  QProcess reader;
  reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
  if (!reader.waitForFinished() || reader.exitStatus() != QProcess::NormalExit || reader.exitCode() != 0)
    throw Failure(QStringLiteral("%1 is not readable as a PDF: %2")
                      .arg(path, QString::fromLocal8Bit(reader.readAllStandardError()).trimmed()));
  return QString::fromUtf8(reader.readAllStandardOutput());
}

}  // namespace

void addFileFunctions(Functions& functions) {
  functions["readFile"] = [](const Arguments& a) { return readFile(a[0].toString()); };
  functions["writeFile"] = [](const Arguments& a) {
    writeFile(a[0].toString(), a[1].toString(), a[2].toBool());
    return QVariant();
  };
  functions["removeFile"] = [](const Arguments& a) {
    removeFile(a[0].toString());
    return QVariant();
  };
  functions["exists"] = [](const Arguments& a) { return QFileInfo::exists(a[0].toString()); };
  functions["pdfText"] = [](const Arguments& a) { return pdfText(a[0].toString()); };
}

}  // namespace velmar::scenario
