// Asks for the name of a file to be written.
#pragma once

#include <functional>
#include <QString>

class QWidget;

namespace velmar {

/// The file that the user chose, with `complete` applied to its name and the chosen filter; empty when the
/// user cancelled. Asks before a file that exists is replaced.
QString askSaveName(QWidget* parent, const QString& title, const QString& proposed, const QString& filters,
                    const std::function<QString(const QString& path, const QString& filter)>& complete);

/// The name with this ending (".lst") if it has none.
QString withEnding(const QString& path, const QString& ending);

}  // namespace velmar
