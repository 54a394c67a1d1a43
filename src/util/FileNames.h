// Names of files that are made from what a user typed.
#pragma once

#include <QString>

namespace velmar {

/// The text with "_" for each character that file names do not take on any system.
QString asFileName(const QString& text);

}  // namespace velmar
