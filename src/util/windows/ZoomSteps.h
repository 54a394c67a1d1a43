// The sizes in which pages are shown on the screen.
#pragma once

class QComboBox;

namespace velmar {

/// Offers the sizes in percent, each with its percent as data.
void addZoomSteps(QComboBox* box);

/// Chooses the next larger (`step` above 0) or smaller size than `zoom`, where 1 is 100 percent.
void chooseZoomStep(QComboBox* box, double zoom, int step);

}  // namespace velmar
