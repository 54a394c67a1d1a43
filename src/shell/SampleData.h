// What the sample company trades and with whom.
#pragma once

#include <QStringList>
#include <vector>

#include "catalogue/Partners.h"

namespace velmar {

struct SampleFamily {
  QString code;  ///< beginning of its articles' codes
  QString name;
  QString productStock;  ///< stock account of own products
  QString unit;
  QStringList articles;
};

const std::vector<SampleFamily>& sampleFamilies();
const std::vector<Partner>& samplePartners();

}  // namespace velmar
