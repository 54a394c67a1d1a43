#include "documents/windows/frmGRILABonIntr.h"

#include "config/Lists.h"

namespace velmar {

frmGRILABonIntr::frmGRILABonIntr(QWidget* parent)
    : frmGrila(QStringLiteral("BI"), articleListWithCostOrPrice(QStringLiteral("TR")), parent) {}

}  // namespace velmar
