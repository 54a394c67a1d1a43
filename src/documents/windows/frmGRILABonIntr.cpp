#include "documents/windows/frmGRILABonIntr.h"

#include "config/Lists.h"

namespace velmar {

frmGRILABonIntr::frmGRILABonIntr(QWidget* parent)
    : frmGrila(QStringLiteral("BI"), articleListWithCostOrPrice(QStringLiteral("TR")), parent) {}

QString frmGRILABonIntr::whyNotPrintable() const {
  const QHash<QString, QString> typed = typedHeader();
  if (typed.value("NUMNR").trimmed().isEmpty()) return QStringLiteral("Nu este selectat nici un Bon intrare");
  if (typed.value("CODFUR").trimmed().isEmpty()) return QStringLiteral("Nu este selectat nici un furnizor");
  if (document().isNew()) return QStringLiteral("Va rugam apasati Salvare");
  return {};
}

}  // namespace velmar
