#include "documents/Numbering.h"

#include "config/Numbers.h"
#include "config/Session.h"
#include "documents/kinds/Kinds.h"
#include "util/Messages.h"

namespace velmar {

namespace {

constexpr qint64 kWarningMargin = 50;
const QString kNoRange = QStringLiteral("00");

struct Range {
  QString start, end;
  QString running;  ///< noun in the warning
  QString used;     ///< noun in the message on a used range
};

ProposedNumber inRange(qint64 next, const Range& range) {
  if (range.start == kNoRange) return {};
  const qint64 start = range.start.toLongLong();
  const qint64 end = range.end.toLongLong();
  if (next == 1 || next < start) return {QString::number(start), true, {}};
  if (next > end)
    return {
        {},
        false,
        QStringLiteral("Atentie! S-a depasit plaja de valori pentru %1. Inlocuiti setul de tipizate, apoi "
                       "introduceti noua plaja de valori.")
            .arg(range.used)};
  const QString warning = next > end - kWarningMargin
                              ? QStringLiteral("Atentie! Mai sunt %1 %2 pana la epuizarea plajei de valori.")
                                    .arg(QString::number(end + 1 - next), range.running)
                              : QString();
  return {QString::number(next), true, warning};
}

}  // namespace

ProposedNumber proposeInvoiceNumber(const QString& table) {
  IncarcaSerii();  // another workstation may have entered a new range since this one started
  const Session& s = session();
  if (s.gFCStart == kNoRange) return {};
  return inRange(std::max(NumarUrmator(table), FacturaUrmatoare()),
                 {s.gFCStart, s.gFCEnd, QStringLiteral("facturi"), QStringLiteral("facturi")});
}

ProposedNumber proposeNumber(const DocumentKind& kind) {
  if (kind.numbering == Numbering::NoteRange) IncarcaSerii();
  const Session& s = session();
  switch (kind.numbering) {
    case Numbering::Typed:
      return {};
    case Numbering::InvoiceRange:
      return proposeInvoiceNumber(kind.headerTable);
    case Numbering::NoteRange:
      if (s.gAEStart == kNoRange) return {};
      return inRange(NumarUrmator("g_aecli"), {s.gAEStart, s.gAEEnd, QStringLiteral("avize de expeditie"),
                                               QStringLiteral("avize de expeditie")});
    case Numbering::Continuous:
      return {QString::number(std::max(NumarUrmator("G_BONCASA"), BonUrmator())), true, {}};
  }
  return {};
}

QString seriesOf(const DocumentKind& kind) {
  return kind.numbering == Numbering::NoteRange ? session().gSerieAE : session().gSerieFC;
}

QString NumarDocument(const QString& prefix) {
  const ProposedNumber proposed = proposeNumber(documentKind(prefix));
  if (!proposed.warning.isEmpty()) Mesaj(proposed.warning);
  return proposed.number;
}

}  // namespace velmar
