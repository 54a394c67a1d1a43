#include "accounting/cBLLNoteContabile.h"

#include <functional>
#include <QHash>

#include "store/Database.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

using Reader = std::function<Value(const cBLLNoteContabile&)>;

Value textOrNull(const QString& text) { return text.isEmpty() ? Value() : Value(text); }

template <typename Member>
Reader plain(Member member) {
  return [member](const cBLLNoteContabile& note) { return Value(note.*member); };
}

Reader text(QString cBLLNoteContabile::*member) {
  return [member](const cBLLNoteContabile& note) { return textOrNull(note.*member); };
}

const QHash<QString, Reader>& readers() {
  using N = cBLLNoteContabile;
  static const QHash<QString, Reader> table = {
      {"NDI", plain(&N::NDI)},
      {"NRLINIE", plain(&N::NrLinie)},
      {"JURNAL", text(&N::Jurnal)},
      {"DATAINR", plain(&N::DataInr)},
      {"CONT", text(&N::Cont)},
      {"EXPL", text(&N::Expl)},
      {"DEBIT", plain(&N::Debit)},
      {"CREDIT", plain(&N::Credit)},
      {"DOC", text(&N::DOC)},
      {"MARCA", text(&N::Marca)},
      {"LITM", text(&N::LitM)},
      {"CODBUG", text(&N::CodBUG)},
      {"CODTREZO", text(&N::CodTREZO)},
      {"COD", [](const N& note) { return Value(note.cod.isEmpty() ? QStringLiteral("LEI") : note.cod); }},
      {"CURS", plain(&N::Curs)},
      {"DEVDEBIT", plain(&N::DevDebit)},
      {"DEVCREDIT", plain(&N::DevCredit)},
      {"CANTIT", plain(&N::Cantit)},
      {"TERT", plain(&N::Tert)},
      {"TVA_LINREF", plain(&N::TVA_LinRef)},
      {"CODOPER", text(&N::CodOper)},
      {"COTATVA", plain(&N::CotaTVA)},
      {"PROV", text(&N::Prov)},
      {"CODCC", text(&N::CodCC)},
      {"DATASCAD", plain(&N::DataScad)},
      {"UTILIZATOR", text(&N::Utilizator)},
      {"TIMP", plain(&N::Timp)},
      {"CODIE", text(&N::CodIE)},
      {"CODSUCURSALA", text(&N::CodSucursala)},
      {"ID_FORMULA", text(&N::ID_Formula)},
      {"DOCEXPLICATIE", text(&N::DocExplicatie)},
      {"TIPDOC", text(&N::tipdoc)},
      {"FELDOC", text(&N::FelDoc)},
      {"TVAINC", plain(&N::TVAINC)},
  };
  return table;
}

}  // namespace

Value cBLLNoteContabile::valueOf(const QString& column) const {
  const auto reader = readers().constFind(column.toUpper());
  if (reader == readers().cend())
    throw StoreError(0, QStringLiteral("Coloana %1 din kt_linii nu are proprietate.").arg(column));
  return (*reader)(*this);
}

void cBLLNoteContabile::AddNota(bool sameNote, bool& done) {
  done = false;
  Database& on = Connection ? *Connection : database();
  Transaction transaction(on);
  if (!sameNote) NDI = on.query("SELECT MAX(NDI) AS NDI FROM kt_linii").first().integer("NDI") + 1;
  NrLinie = on.query("SELECT MAX(NRLINIE) AS NRLINIE FROM kt_linii WHERE NDI = ?", {NDI})
                .first()
                .integer("NRLINIE") +
            1;
  Timp = clock::now();
  DataScad = DataInr.addMonths(1);
  QStringList columns;
  Values values;
  const Recordset empty = on.query("SELECT * FROM kt_linii WHERE 1 = 0");
  for (const QString& column : empty.columns()) {
    columns.append(column);
    values.push_back(valueOf(column));
  }
  on.insertRows("kt_linii", columns, {values});
  transaction.commit();
  done = true;
}

}  // namespace velmar
