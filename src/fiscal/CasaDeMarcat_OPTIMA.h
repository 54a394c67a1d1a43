// The register OPTIMA: a command file, and a program whose exit code and file of errors tell whether the
// register printed.
#pragma once

#include "fiscal/CommandFile.h"
#include "fiscal/Receipt.h"

namespace velmar {

class CasaDeMarcat_OPTIMA {
 public:
  int CotaTVA = 0;          ///< percent
  QString DatPrintPath;     ///< the outside program
  QString FileName;         ///< the command file
  int NrCaractere = 0;      ///< width of a name; 0: the usual 20
  bool EroareCasa = false;  ///< after GenereazaComanda: it did not print, as far as is known
  int DecimalPoint = 0;     ///< decimals of prices

  /// Number of advertising lines.
  int NrLinii() const { return advertising_.count(); }
  /// Keeps the line; this register prints no advertising.
  void setTextPublicitar(const QString& text1, const QString& text2, const QString& text3,
                         const QString& text4, const QString& text5);

  /// Prints; waits for the register. Prices count in ten-thousandths of a leu, quantities in whole pieces
  /// (halves to the even one). What goes wrong is told to the user.
  ReceiptResult GenereazaComanda(const std::vector<ReceiptLine>& lines);

 private:
  Advertising advertising_;
};

}  // namespace velmar
