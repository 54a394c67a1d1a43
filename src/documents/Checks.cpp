#include "documents/Checks.h"

#include "documents/Document.h"
#include "documents/Notices.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

namespace {

QString messageOf(const Check& check, const Fault& fault) {
  QString text = fault.text.isEmpty() ? check.text : fault.text;
  for (const QString& subject : fault.subjects) text = text.arg(subject);
  return text;
}

RuleError refusal(const Check& check, const Fault& fault, int icon) {
  return RuleError(messageOf(check, fault), fault.field.isEmpty() ? check.field : fault.field, icon,
                   check.title);
}

}  // namespace

Check refusedWhen(const QString& text, const QString& field,
                  std::function<bool(const Document& document)> isBroken) {
  return {.text = text, .field = field, .fault = [isBroken = std::move(isBroken)](const Document& document) {
            return isBroken(document) ? std::optional(Fault{}) : std::nullopt;
          }};
}

Check onlyFor(std::function<bool(const Document& document)> applies, Check check) {
  check.fault = [applies = std::move(applies),
                 fault = std::move(check.fault)](const Document& document) -> std::optional<Fault> {
    return applies(document) ? fault(document) : std::nullopt;
  };
  return check;
}

bool passes(const Checks& checks, const Document& document, int icon) {
  for (const Check& check : checks) {
    if (check.at == CheckedAt::UnderLock) continue;
    const auto fault = check.fault(document);
    if (!fault) continue;
    switch (check.outcome) {
      case Outcome::Refuse:
        throw refusal(check, *fault, icon);
      case Outcome::Ask:
        if (Mesaj(messageOf(check, *fault), kYesNo + kQuestion, check.title) != kResultYes) return false;
        break;
      case Outcome::Tell: {
        Notices notices;
        for (const QString& subject : fault->subjects) notices.tell(check.text, subject);
        notices.say();
        break;
      }
    }
  }
  return true;
}

void requireUnderLock(const Checks& checks, const Document& document) {
  for (const Check& check : checks) {
    if (check.outcome != Outcome::Refuse || check.at == CheckedAt::Once) continue;
    const auto fault = check.fault(document);
    if (fault) throw refusal(check, *fault, 0);
  }
}

}  // namespace velmar
