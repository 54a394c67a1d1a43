// Reads a zip archive from outside into memory: with limits, without writing anything. Names of entries are
// only names.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace velmar {

struct ZipEntry {
  QString name;  ///< without the path
  QByteArray content;
};

constexpr qint64 kLargestArchive = 50LL * 1024 * 1024;

bool isZip(const QByteArray& bytes);

/// The files in the archive, in its order. Throws RuleError for a damaged or encrypted archive, for more than
/// 1,000 entries, and for more than 50 MB packed or 20 MB of one file or 50 MB of all files unpacked.
std::vector<ZipEntry> unzipped(const QByteArray& bytes);

}  // namespace velmar
