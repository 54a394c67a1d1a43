// Driver of the fiscal register ACTIVA: a command file in the format "KARAT", and a batch file whose exit
// code reports whether the register was ready.
#pragma once

#include "fiscal/CommandFile.h"
#include "fiscal/Receipt.h"

namespace velmar {

class CasaComandaMarcat2 {
 public:
  QString FPRWINPath;       ///< the batch file
  bool EroareCasa = false;  ///< after GenereazaBon: not known to have printed
  int COM = 0;              ///< the port; not used, the program has its own setting
  QString FileName;         ///< the command file
  int DecimalPoint = 0;     ///< decimals of prices
  int CotaTVA = 0;          ///< percent
  int NrCaractere = 0;      ///< width of a name; 0: the usual 20
  int SubGroup = 0;
  int Group = 0;

  void addTextPublicitar(const QString& text);
  void resetTextPublicitar() { advertising_.clear(); }

  /// Prints and waits for the register. Prices are in ten-thousandths of a leu, quantities in whole pieces
  /// (rounded half to even). Errors are shown to the user.
  ReceiptResult GenereazaBon(const std::vector<ReceiptLine>& lines);

 private:
  void addArticle(CommandFile& file, const ReceiptLine& line) const;

  Advertising advertising_;
};

}  // namespace velmar
