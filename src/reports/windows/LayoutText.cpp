#include "reports/windows/LayoutText.h"

#include <QFontDatabase>

#include "reports/LayoutFaults.h"

namespace velmar {

LayoutText::LayoutText() {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setLineWrapMode(QPlainTextEdit::NoWrap);
}

void LayoutText::showText(const QString& text) {
  setPlainText(QString(text).replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter)));
  accept();
}

void LayoutText::accept() {
  setExtraSelections({});
  document()->setModified(false);
}

void LayoutText::markDamage(const layout::LayoutError& error) {
  const QString text = toPlainText();
  QTextCursor cursor(document());
  cursor.setPosition(layout::placeIn(text, error.line(), error.column()));
  setTextCursor(cursor);
  QTextEdit::ExtraSelection line, place;
  line.cursor = cursor;
  line.format.setBackground(QColor(0xff, 0xe4, 0xe0));
  line.format.setProperty(QTextFormat::FullWidthSelection, true);
  place.cursor = cursor;
  // The reported position is after the character that could not be read.
  place.cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
  place.format.setBackground(QColor(0xf0, 0x90, 0x80));
  setExtraSelections({line, place});
  centerCursor();
  setFocus();
}

}  // namespace velmar
