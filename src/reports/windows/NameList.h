// The names available to a layout, with their types: dragged onto the page or inserted with Enter.
#pragma once

#include <QTreeWidget>

#include "reports/ReportData.h"

namespace velmar {

/// "numar", "text", ...
QString typeName(LLTip type);

class NameList : public QTreeWidget {
  Q_OBJECT
 public:
  explicit NameList(QWidget* parent = nullptr);

  /// Adds a section to the list: the origin of its names ("document"), and the names.
  void addNames(const QString& origin, const ReportValues& names);
  /// Replaces the names of that origin.
  void setNames(const QString& origin, const ReportValues& names);
  /// Hides the names that do not contain the text.
  void filter(const QString& text);
  /// The current name, empty when there is none.
  QString currentName() const;

 signals:
  /// The name was chosen with Enter or a double click; `joins`: it is to be added to the formula of the
  /// selected part.
  void nameWanted(const QString& name, bool joins);

 protected:
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace velmar
