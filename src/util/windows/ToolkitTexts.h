// Romanian translations of the toolkit's own texts: the menu of a text box, the file dialog, the menu of a
// child window. Qt has no Romanian translation.
#pragma once

#include <QTranslator>

namespace velmar {

class ToolkitTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* sourceText, const char* disambiguation,
                    int n) const override;
};

}  // namespace velmar
