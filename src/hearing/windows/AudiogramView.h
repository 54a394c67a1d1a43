// The curves of an audiogram: the right ear as red circles, the left ear as blue crosses. A missing value is
// a gap.
#pragma once

#include <QWidget>

#include "hearing/Orders.h"

namespace velmar {

class AudiogramView : public QWidget {
  Q_OBJECT
 public:
  AudiogramView(const QString& name, Audiogram kind);

  /// The rows of the order (audiogram()), also as a text for screen readers.
  void showRows(const Recordset& rows);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Audiogram kind_;
  Recordset rows_;
};

/// The values in words: "Urechea dreapta: 125 Hz 20 dB, 250 Hz lipsa".
QString audiogramText(Audiogram kind, const Recordset& rows);

}  // namespace velmar
