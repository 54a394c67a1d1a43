// The text of a layout's file, with the position of an error marked.
#pragma once

#include <QPlainTextEdit>

#include "reports/Layout.h"

namespace velmar {

class LayoutText : public QPlainTextEdit {
  Q_OBJECT
 public:
  LayoutText();

  /// Shows the text as unmodified; characters that cannot be displayed are replaced.
  void showText(const QString& text);
  bool isChanged() const { return document()->isModified(); }
  /// Marks the current text as unmodified, after it has been applied.
  void accept();
  /// Marks the position, scrolls to it and takes the focus.
  void markDamage(const layout::LayoutError& error);
};

}  // namespace velmar
