// The names that a layout may speak of, with their types: dragged onto the page or sent there with Enter.
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

  /// A part of the list: where its names come from ("document"), and the names.
  void addNames(const QString& origin, const ReportValues& names);
  /// Puts names of that origin in the place of those that stood there.
  void setNames(const QString& origin, const ReportValues& names);
  /// Hides the names without that text.
  void filter(const QString& text);
  /// The current name, empty when there is none.
  QString currentName() const;

 signals:
  /// The name was chosen with Enter or a double click; `joins`: it belongs into the formula of what is
  /// chosen.
  void nameWanted(const QString& name, bool joins);

 protected:
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace velmar
