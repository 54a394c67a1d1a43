#include "documents/CashReceipt.h"

#include "config/Session.h"
#include "documents/Drafts.h"
#include "documents/LineChecks.h"
#include "fiscal/FiscalRegisters.h"
#include "store/Database.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

const QString kTitle = QStringLiteral("Casa de marcat");
const QString kNotPrinted = QStringLiteral("Bonul nu poate fi tiparit pe casa de marcat.");

class Sending {
 public:
  Sending(const TypedHeader& typed, const Row& header, const ShownDraft& shown)
      : typed_(typed),
        header_(header),
        shown_(shown),
        drafts_(typed.kind()),
        number_(header.text(typed.kind().numberColumn)),
        letter_(session().CasaMarcat.trimmed().toUpper()) {}

  ReceiptOutcome run() {
    const qint64 known = knownAttempt();
    if (known != 0) {
      const int answer = askWhetherPrinted();
      if (answer == kResultYes) return end(known, true);
      if (answer != kResultNo) return ReceiptOutcome::NotPrinted;
    }
    if (!isStockAccepted()) return ReceiptOutcome::NotPrinted;
    Receipt receipt;
    const qint64 attempt = begin(known, receipt);
    switch (printReceipt(letter_, receipt)) {
      case ReceiptResult::Printed:
        return end(attempt, true);
      case ReceiptResult::NotPrinted:
        return end(attempt, false);
      case ReceiptResult::Unknown:
        break;
    }
    const int answer = askWhetherPrinted();
    return answer == kResultYes || answer == kResultNo ? end(attempt, answer == kResultYes)
                                                       : ReceiptOutcome::NotPrinted;
  }

 private:
  // The stored attempt that has begun and not ended; 0 when there is none.
  qint64 knownAttempt() const {
    const FiscalReceipt& columns = typed_.kind().receipt;
    const auto document = drafts_.load(number_);
    if (document && !document->header.flag("VALIDAT") && document->header.flag(columns.printed))
      throw RuleError(columns.printedText);  // by another workstation
    return document ? document->header.integer(columns.sending) : 0;
  }

  int askWhetherPrinted() const {
    return Mesaj(
        QStringLiteral("Bonul %1 a fost trimis la casa de marcat si nu se stie daca a iesit. Verificati. A "
                       "iesit bonul din casa de marcat ?")
            .arg(number_),
        kYesNoCancel + kQuestion + kThirdDefault, kTitle);
  }

  // A sale whose receipt is printed can only be validated, so missing stock is reported before printing.
  bool isStockAccepted() const {
    const auto document = drafts_.load(number_);
    const auto shortage = document ? shortageOf(*document, Stocked::OnlyHeld) : std::nullopt;
    return !shortage ||
           Mesaj(QStringLiteral("Articolul: %1 are disponibil in stoc numai %2. Tipariti bonul totusi ?")
                     .arg(shortage->article, editNumber(shortage->available)),
                 kYesNo + kQuestion + kSecondDefault, kTitle) == kResultYes;
  }

  // From here on the sale cannot be changed.
  qint64 begin(qint64 known, Receipt& receipt) const {
    Transaction transaction(database());
    const Document document = drafts_.requireAsShown(shown_);
    drafts_.updateHeader(header_);
    const qint64 attempt = drafts_.beginReceipt(number_, known);
    passes({completeLines()}, document);
    receipt.CotaTVA = static_cast<int>(typed_.vatPercent().toDouble());
    receipt.Card = typed_.isTicked("CheckCard");
    receipt.NrZec = session().NrZec;
    receipt.NrCaractere = static_cast<int>(typed_.number("TextNrCaractere").toDouble());
    for (const Row& line : document.lines) receipt.lines.push_back(receiptLine(line));
    transaction.commit();
    return attempt;
  }

  ReceiptOutcome end(qint64 attempt, bool isPrinted) const {
    drafts_.endReceipt(number_, attempt, isPrinted);
    if (isPrinted) return ReceiptOutcome::Printed;
    if (answers()) Mesaj(kNotPrinted);
    return ReceiptOutcome::NotPrinted;
  }

  // For the other registers only the driver knows why nothing was printed.
  bool answers() const { return letter_ == QStringLiteral("A") || letter_ == QStringLiteral("O"); }

  const TypedHeader& typed_;
  const Row& header_;
  const ShownDraft& shown_;
  Drafts drafts_;
  QString number_;
  QString letter_;
};

}  // namespace

ReceiptOutcome printCashReceipt(const TypedHeader& typed, const Row& header, const ShownDraft& shown) {
  if (!typed.isTicked("CheckCasaMarcat")) return ReceiptOutcome::OnPaper;
  const QString missing = missingCommandFile(session().CasaMarcat);
  if (!missing.isEmpty()) {
    Mesaj(missing);
    return ReceiptOutcome::OnPaper;
  }
  return Sending(typed, header, shown).run();
}

}  // namespace velmar
