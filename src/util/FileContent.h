// Reads a file that the user chose.
#pragma once

#include <QByteArray>
#include <QString>

namespace velmar {

/// The largest XML file that is read, in bytes.
inline constexpr qint64 kLargestXml = 20LL * 1024 * 1024;

/// The content of an ordinary file. Throws RuleError when it cannot be read, is a company's database or has
/// more than `most` bytes.
QByteArray fileContent(const QString& path, qint64 most);

}  // namespace velmar
