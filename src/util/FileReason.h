// Why a file cannot be read or written, in Romanian: the toolkit says it in English.
#pragma once

#include <QString>

class QFileDevice;

namespace velmar {

/// What the system says of the file's last failure.
QString fileReason(const QFileDevice& file);

}  // namespace velmar
