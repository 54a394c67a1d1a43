// An accounting row as an object: one property for each column of kt_linii, written by AddNota. For documents
// that fill more columns than vouchers.
#pragma once

#include <QDateTime>
#include <QString>

#include "store/Row.h"

namespace velmar {

class Database;

class cBLLNoteContabile {
 public:
  Database* Connection = nullptr;  ///< null: the open company's
  qint64 NDI = 0;
  qint64 NrLinie = 0;
  QString Jurnal;
  QDate DataInr;
  QString Cont, Expl;
  Decimal Debit, Credit;  ///< lei
  QString DOC, Marca, LitM, CodBUG, CodTREZO;
  QString cod;  ///< currency; empty is written as "LEI"
  Decimal Curs, DevDebit, DevCredit;
  Value Cantit;
  Value Tert;  ///< partner's code; null on rows of other accounts
  Value TVA_LinRef;
  QString CodOper;
  Decimal CotaTVA;
  QString Prov, CodCC;
  QDate DataScad;
  QString Utilizator;
  QDateTime Timp;
  QString CodIE, CodSucursala, ID_Formula, DocExplicatie, tipdoc, FelDoc;
  Value TVAINC;

  /// Writes one row. Without `sameNote` it starts the next note, otherwise it continues the note NDI, after
  /// its last line. Sets Timp to now and DataScad to a month after DataInr. `done` is true on success. Throws
  /// StoreError, also if the table has a column without a property.
  void AddNota(bool sameNote, bool& done);

 private:
  Value valueOf(const QString& column) const;
};

}  // namespace velmar
