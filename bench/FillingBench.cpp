// Filling an invoice from 50 delivery notes of four lines, note by note as in the window, compared with one
// INSERT ... SELECT for each note, and with one for all of them.
#include "Benches.h"
#include "documents/DocumentEditor.h"
#include "documents/LineSource.h"
#include "DraftFill.h"
#include "OtherKinds.h"
#include "store/Database.h"
#include "util/Messages.h"

namespace velmar::bench {

namespace {

constexpr double kAim = 2;

class SaysYes : public MessageSink {
 public:
  SaysYes() : previous_(setMessageSink(this)) {}
  ~SaysYes() override { setMessageSink(previous_); }
  int show(const Message& /*message*/) override { return kResultYes; }

 private:
  MessageSink* previous_;
};

// Three copies of a company: one filled by the program, one note by note, one by a single statement.
struct Filling {
  Filling(Store store, CompanySize size)
      : mine(copyOfCompany(store, size, QStringLiteral("umplere-noi.mdb"))),
        byNote(copyOfCompany(store, size, QStringLiteral("umplere-direct.mdb"))),
        atOnce(copyOfCompany(store, size, QStringLiteral("umplere-odata.mdb"))) {}

  // Note by note in turns, since the disk of a shared machine may be ten times slower a second later.
  void measure(int draft) {
    const int lines = isQuick() ? kSmallDocument : kLargeDocument;
    const QString invoice = invoicesFromNotes().number(lines, draft);
    const int first = firstNote(invoice.toInt());
    const int last = first + lines / kLinesOfNote - 1;
    BareConnection notes(byNote.path), whole(atOnce.path);
    BareStatement addNote = notes.prepare(kFillFromNotes), addAll = whole.prepare(kFillFromNotes);
    const OpenCompany company(mine.path);
    DocumentEditor editor(invoicesFromNotes().prefix);
    editor.open(invoice);
    const LineSource& source = *editor.kind().sources.front();
    double ourTime = 0, noteTime = 0;
    for (int note = first; note <= last; ++note) {
      ourTime += timed([&] { editor.addLines(source, QString::number(note), editor.headerTexts()); });
      noteTime += timed([&] { fill(notes, addNote, invoice, note, note); });
    }
    const double wholeTime = timed([&] { fill(whole, addAll, invoice, first, last); });
    if (draft == 0) return;
    noteByNote.ours.add(ourTime);
    noteByNote.bare.add(noteTime);
    allAtOnce.ours.add(ourTime);
    allAtOnce.bare.add(wholeTime);
  }

  bool agrees() const {
    return agree(invoicesFromNotes(), mine.path, byNote.path) &&
           agree(invoicesFromNotes(), mine.path, atOnce.path);
  }

  Used mine, byNote, atOnce;
  Pair noteByNote, allAtOnce;

 private:
  static void fill(BareConnection& connection, BareStatement& statement, const QString& invoice, int first,
                   int last) {
    const std::string texts[] = {invoice.toStdString(), std::to_string(first), std::to_string(last)};
    for (int at = 0; at < 3; ++at) statement.bind(at + 1, texts[at]);
    connection.beginWrite();
    statement.run();
    connection.run("COMMIT");
  }
};

}  // namespace

bool measureFilling(Store store) {
  const SaysYes sink;
  Filling filling(store, isQuick() ? CompanySize::Trade : CompanySize::GrownTrade);
  for (int draft = 0; draft < (isQuick() ? 1 : kKindDrafts); ++draft) filling.measure(draft);
  if (isQuick()) return printAgreement(filling.agrees());
  printHeading(store, QStringLiteral("notes: umplerea unei facturi din 50 avize"), kContestColumns);
  printRatio(store, QStringLiteral("notes"), QStringLiteral("umplere, aviz cu aviz"), filling.noteByNote,
             kAim);
  printRatio(store, QStringLiteral("notes"), QStringLiteral("umplere, fata de o singura instructiune"),
             filling.allAtOnce, kAim);
  return printAgreement(filling.agrees());
}

}  // namespace velmar::bench
