#include "util/windows/ZoomSteps.h"

#include <QComboBox>

namespace velmar {

namespace {

constexpr int kPercents[] = {50, 75, 100, 125, 150, 200, 300};

}  // namespace

void addZoomSteps(QComboBox* box) {
  for (const int percent : kPercents) box->addItem(QStringLiteral("%1%").arg(percent), percent);
}

void chooseZoomStep(QComboBox* box, double zoom, int step) {
  const int now = qRound(zoom * 100);
  int wanted = now;
  for (const int percent : kPercents) {
    if (step < 0 && percent < now) wanted = percent;
    if (step > 0 && percent > now && wanted == now) wanted = percent;
  }
  if (wanted != now) box->setCurrentIndex(box->findData(wanted));
}

}  // namespace velmar
