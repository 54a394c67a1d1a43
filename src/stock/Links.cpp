#include "stock/Links.h"

#include "store/Database.h"
#include "util/Clock.h"

namespace velmar {

namespace {

const QString kNote = QStringLiteral("AE");
const QString kOrder = QStringLiteral("CF");
const QString kReceipt = QStringLiteral("NR");
const QString kNoReference = QStringLiteral(" ");

Recordset linesOf(const QString& key) {
  const QString number = key.mid(2);
  return key.startsWith(kReceipt, Qt::CaseInsensitive)
             ? OpenRs("SELECT CODART, CANT FROM G_LNRFUR WHERE NUMNR = ? ORDER BY NRLINIE", {number})
             : OpenRs("SELECT CODART, CANT FROM G_LFACCL WHERE NUMFAC = ? ORDER BY NRLINIE", {number});
}

}  // namespace

void receiveOrdered(const QString& order, const QString& article, const Decimal& quantity,
                    const LinkReference& receipt) {
  Transaction transaction(database());
  database().execute(
      "UPDATE G_LCOMFU SET CANTRLIV = ROUND_EVEN(COALESCE(CANTRLIV, 0) - ?, 3), REFERINTA = ?, DATASOLD = ? "
      "WHERE NUMCOM = ? AND CODART = ?",
      {quantity, receipt.document, receipt.date, order, article});
  database().execute(
      "UPDATE G_COMFUR SET SOLDAT = -1 WHERE NUMCOM = ? AND SOLDAT = 0 AND NOT EXISTS "
      "(SELECT L.NUMCOM FROM G_LCOMFU L WHERE L.NUMCOM = G_COMFUR.NUMCOM AND L.CANTRLIV > 0)",
      {order});
  database().execute("UPDATE G_LDOCUM SET REFERINTA = ?, DATASOLD = ? WHERE DOCID = ? AND ARTID = ?",
                     {receipt.document, receipt.date, kOrder + order, article});
  transaction.commit();
}

void takeFromNote(const QString& note, const QString& article, const Decimal& quantity,
                  const LinkReference& taker) {
  Transaction transaction(database());
  database().execute(
      "UPDATE G_LAECLI SET CANTRAMAS = ROUND_EVEN(COALESCE(CANTRAMAS, 0) - ?, 3), REFERINTA = ?, DATASOLD = "
      "? "
      "WHERE NUMAE = ? AND CODART = ?",
      {quantity, taker.document, taker.date, note, article});
  database().execute(
      "UPDATE G_LDOCUM SET CANTRAMASA = ROUND_EVEN(COALESCE(CANTRAMASA, 0) - ?, 3), REFERINTA = ?, DATASOLD "
      "= ? "
      "WHERE DOCID = ? AND ARTID = ?",
      {quantity, taker.document, clock::today(), kNote + note, article});
  transaction.commit();
}

void closeNoteIfTaken(const QString& note) {
  Transaction transaction(database());
  const bool isOpen =
      !OpenRs("SELECT NUMAE FROM G_LAECLI WHERE NUMAE = ? AND CANTRAMAS > 0 LIMIT 1", {note}).isEmpty();
  if (!isOpen) {
    database().execute("UPDATE G_AECLI SET FACTURAT = -1 WHERE NUMAE = ?", {note});
    database().execute("UPDATE G_DOCUME SET VALIDAT = -1 WHERE ID = ?", {kNote + note});
  }
  transaction.commit();
}

void CorecteazaComenzi(const QString& invoice) {
  Transaction transaction(database());
  const Recordset ordered = OpenRs(
      "SELECT L.NUMCOM AS NUMCOM, L.NRLINIE AS NRLINIE, L.CODART AS CODART, L.CANT AS CANT, "
      "L.CANTLIV AS CANTLIV FROM G_LCOMCL L WHERE L.NUMCOM IN "
      "(SELECT F.ID_Comanda FROM G_FACTURI_COMENZI_CLIENTI F WHERE F.ID_Factura = ?) "
      "ORDER BY L.NRLINIE, L.NUMCOM",
      {invoice});
  if (ordered.isEmpty()) return;
  for (const Row& line :
       OpenRs("SELECT CODART, CANT FROM G_LFACCL WHERE NUMFAC = ? ORDER BY NRLINIE", {invoice}))
    for (const Row& order : ordered) {
      if (order.text("CODART").compare(line.text("CODART"), Qt::CaseInsensitive) != 0) continue;
      const Decimal quantity = line.decimal("CANT");
      const Decimal left =
          quantity < order.decimal("CANT") ? Round(order.decimal("CANTLIV") - quantity, 3) : Decimal(0);
      database().execute("UPDATE G_LCOMCL SET CANTLIV = ? WHERE NUMCOM = ? AND NRLINIE = ?",
                         {left, order.text("NUMCOM"), order.integer("NRLINIE")});
      break;
    }
  transaction.commit();
}

void CorecteazaAE(const QString& key) {
  Transaction transaction(database());
  const bool isReceipt = key.startsWith(kReceipt, Qt::CaseInsensitive);
  const Recordset taken = OpenRs(
      "SELECT NUMAE, NRLINIE, CODART, CANTRAMAS FROM G_LAECLI WHERE REFERINTA = ? ORDER BY NRLINIE, NUMAE",
      {isReceipt ? key.mid(2) : key});
  if (taken.isEmpty()) return;
  for (const Row& line : linesOf(key))
    for (const Row& note : taken) {
      if (note.text("CODART").compare(line.text("CODART"), Qt::CaseInsensitive) != 0) continue;
      const Decimal left = Round(note.decimal("CANTRAMAS") + line.decimal("CANT"), 3);
      database().execute("UPDATE G_LAECLI SET CANTRAMAS = ?, REFERINTA = ? WHERE NUMAE = ? AND NRLINIE = ?",
                         {left, kNoReference, note.text("NUMAE"), note.integer("NRLINIE")});
      database().execute("UPDATE G_LDOCUM SET CANTRAMASA = ?, REFERINTA = ? WHERE DOCID = ? AND ARTID = ?",
                         {left, kNoReference, kNote + note.text("NUMAE"), note.text("CODART")});
    }
  for (const Row& note : taken)
    database().execute("UPDATE G_AECLI SET FACTURAT = 0 WHERE NUMAE = ?", {note.text("NUMAE")});
  transaction.commit();
}

}  // namespace velmar
