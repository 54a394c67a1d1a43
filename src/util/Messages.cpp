#include "util/Messages.h"

#include <stdexcept>

namespace velmar {

namespace {
MessageSink* currentSink = nullptr;
}

MessageSink* setMessageSink(MessageSink* sink) { return std::exchange(currentSink, sink); }

int Mesaj(const QString& text, int buttons, const QString& title, int /*context*/, const QString& caption1,
          const QString& caption2, const QString& caption3, const QString& caption4) {
  if (!currentSink) throw std::logic_error("no message sink: " + text.toStdString());
  return currentSink->show({text,
                            buttons,
                            title.isEmpty() ? QStringLiteral("Velmar") : title,
                            {caption1, caption2, caption3, caption4}});
}

}  // namespace velmar
