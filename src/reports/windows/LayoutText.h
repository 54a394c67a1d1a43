// The text of a layout's file, with the place of its damage marked.
#pragma once

#include <QPlainTextEdit>

#include "reports/Layout.h"

namespace velmar {

class LayoutText : public QPlainTextEdit {
  Q_OBJECT
 public:
  LayoutText();

  /// Shows the text as unchanged; characters that a text cannot show are replaced.
  void showText(const QString& text);
  bool isChanged() const { return document()->isModified(); }
  /// The text was taken over as it stands.
  void accept();
  /// Marks the place, brings it into sight and takes the focus.
  void markDamage(const layout::LayoutError& error);
};

}  // namespace velmar
