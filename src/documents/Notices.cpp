#include "documents/Notices.h"

#include <algorithm>
#include <utility>

#include "util/Messages.h"

namespace velmar {

void Notices::tell(const QString& text, const QString& subject) {
  auto known = std::find_if(notices_.begin(), notices_.end(),
                            [&text](const Notice& notice) { return notice.text == text; });
  if (known == notices_.end()) known = notices_.insert(notices_.end(), {text, {}});
  if (!subject.isEmpty() && !known->subjects.contains(subject)) known->subjects.append(subject);
}

QStringList Notices::texts() const {
  QStringList texts;
  for (const Notice& notice : notices_)
    texts.append(notice.subjects.isEmpty() ? notice.text
                                           : notice.text.arg(notice.subjects.join(QStringLiteral(", "))));
  return texts;
}

void Notices::say() {
  const QStringList said = texts();
  notices_.clear();
  for (const QString& text : said) Mesaj(text);
}

}  // namespace velmar
