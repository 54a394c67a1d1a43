// Third parties: customers, suppliers and those that are both.
#pragma once

#include <QString>

namespace velmar {

struct Partner {
  QString NUME;            ///< at most 40 characters
  QString TIP;             ///< "C" customer, "F" supplier, "M" both, "P" private person
  QString CODFISCAL = {};  ///< fiscal code
  QString RegCom = {};     ///< trade register number
  QString AD = {}, CP = {}, ORAS = {}, Judet = {}, TARA = {};
  QString BANCA = {}, CONTBANCAR = {};
};

/// Adds the partner, stamped with user and day, and gives its code. Throws RuleError, naming the column, when
/// the name or the kind is missing or a text is too long.
qint64 addPartner(const Partner& partner);

}  // namespace velmar
