// Drivers of the fiscal registers Datecs and Help Micro: a command file, and a program that is started
// without waiting for its end.
#pragma once

#include "fiscal/CommandFile.h"
#include "fiscal/Receipt.h"

namespace velmar {

class ComandaCasaMarcat {
 public:
  int CotaTVA = 0;       ///< percent
  bool Card = false;     ///< paid by card
  QString DatPrintPath;  ///< the register's program
  QString FileName;      ///< the command file

  /// `decimals`: the decimals of prices with VAT.
  explicit ComandaCasaMarcat(int decimals) : decimals_(decimals) {}

  /// Number of advertising lines.
  int NrLinii() const { return advertising_.count(); }
  void setTextPublicitar(const QString& text1, const QString& text2, const QString& text3,
                         const QString& text4, const QString& text5);

  /// Prints on Datecs. Errors are shown to the user.
  ReceiptResult GenereazaComanda(const std::vector<ReceiptLine>& lines);

  /// Prints on Help Micro, in the folder of its program. Errors are shown to the user.
  ReceiptResult GenereazaComanda_PARTNER(const std::vector<ReceiptLine>& lines);

 private:
  QByteArray getComandaVanzare(const ReceiptLine& line) const;
  QByteArray getComandaVanzare_PARTNER(const ReceiptLine& line, qint64 article) const;
  QByteArray discount(const ReceiptLine& line) const;

  int decimals_;
  Advertising advertising_;
};

}  // namespace velmar
