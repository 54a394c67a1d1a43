// Driver of the fiscal register OPTIMA: a command file, and a program whose exit code and error file report
// whether the register printed.
#pragma once

#include "fiscal/CommandFile.h"
#include "fiscal/Receipt.h"

namespace velmar {

class CasaDeMarcat_OPTIMA {
 public:
  int CotaTVA = 0;          ///< percent
  QString DatPrintPath;     ///< the register's program
  QString FileName;         ///< the command file
  int NrCaractere = 0;      ///< width of a name; 0: the usual 20
  bool EroareCasa = false;  ///< after GenereazaComanda: not known to have printed
  int DecimalPoint = 0;     ///< decimals of prices

  /// Number of advertising lines.
  int NrLinii() const { return advertising_.count(); }
  /// Stores the line, which is not printed by this register.
  void setTextPublicitar(const QString& text1, const QString& text2, const QString& text3,
                         const QString& text4, const QString& text5);

  /// Prints and waits for the register. Prices are in ten-thousandths of a leu, quantities in whole pieces
  /// (rounded half to even). Errors are shown to the user.
  ReceiptResult GenereazaComanda(const std::vector<ReceiptLine>& lines);

 private:
  Advertising advertising_;
};

}  // namespace velmar
