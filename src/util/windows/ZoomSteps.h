// The zoom steps of displayed pages.
#pragma once

class QComboBox;

namespace velmar {

/// Adds the zoom steps, each with its percentage as data.
void addZoomSteps(QComboBox* box);

/// Selects the next larger (`step` above 0) or smaller step than `zoom`, where 1 is 100 percent.
void chooseZoomStep(QComboBox* box, double zoom, int step);

}  // namespace velmar
