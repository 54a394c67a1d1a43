// Articles and partners of the sample company.
#pragma once

#include <QStringList>
#include <vector>

namespace velmar {

struct SampleFamily {
  QString code;  ///< beginning of its articles' codes
  QString name;
  QString productStock;  ///< stock account of own products
  QString unit;
  bool isMade;  ///< by the company itself; otherwise bought
  QStringList articles;
};

const std::vector<SampleFamily>& sampleFamilies();
struct SamplePartner {
  QString NUME, TIP, CODFISCAL, RegCom, AD, CP, ORAS, Judet, TARA;
};

const std::vector<SamplePartner>& samplePartners();

}  // namespace velmar
