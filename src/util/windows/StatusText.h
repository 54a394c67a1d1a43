// The text of a window that says what happened or what is missing.
#pragma once

#include <QPlainTextEdit>

namespace velmar {

/// As high as its wrapped text needs, but at most five lines; the others are reached by scrolling. The
/// text can be selected and copied, and is never markup.
class StatusText : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit StatusText(const QString& name, QWidget* parent = nullptr);

  void setText(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fit();
};

}  // namespace velmar
