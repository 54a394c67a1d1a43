#include "util/windows/StatusText.h"

#include <algorithm>
#include <cmath>
#include <QTextBlock>

namespace velmar {

StatusText::StatusText(const QString& name, QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(name);
  setReadOnly(true);
  setTabChangesFocus(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);  // it has the background of the window
  document()->setDocumentMargin(0);
  fit();
}

void StatusText::setText(const QString& text) {
  setPlainText(text);
  fit();
}

void StatusText::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) fit();
}

void StatusText::fit() {
  const int line = fontMetrics().lineSpacing();
  constexpr int kMostLines = 5;
  const int most = line * kMostLines;
  qreal needed = 0;
  for (QTextBlock block = document()->begin(); block.isValid() && needed <= most; block = block.next())
    needed += blockBoundingRect(block).height();
  // Only a text with hidden lines has a scroll bar, and the focus by Tab.
  const bool scrolls = needed > most;
  constexpr int kRoom = 2;  // pixels that the toolkit does not count as visible
  setFixedHeight(scrolls ? most : std::max(static_cast<int>(std::ceil(needed)), line) + kRoom);
  setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::ClickFocus);
}

}  // namespace velmar
