#include "documents/windows/frmGRILABonConsum.h"

#include "config/Lists.h"

namespace velmar {

frmGRILABonConsum::frmGRILABonConsum(QWidget* parent)
    : frmGrila(QStringLiteral("BC"), articleListWithCostOrPrice(QStringLiteral("TR")), parent) {}

}  // namespace velmar
