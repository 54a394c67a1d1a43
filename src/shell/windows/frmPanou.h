// "Panou": what sold, what waits as a draft, what runs out and which orders are late, each with the way to
// its list.
#pragma once

#include <functional>
#include <QHash>
#include <QWidget>

class QBoxLayout;
class QLabel;

namespace velmar {

class TDBGrid;

class frmPanou : public QWidget {
  Q_OBJECT
 public:
  explicit frmPanou(QWidget* parent = nullptr);

  QSize sizeHint() const override { return {1000, 620}; }
  /// Whether the user wants it when the main window opens.
  static bool isWantedAtStart();

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* salesFrame();
  QWidget* listFrame(const QString& caption, TDBGrid* grid, const std::function<void()>& open);
  void read();
  void openDrafts();

  QLabel* lblAzi_;
  QLabel* lblLuna_;
  QLabel* lblAcumSapte_;
  QLabel* lblEFactura_;
  TDBGrid* grdCiorne_;
  TDBGrid* grdMinim_;
  TDBGrid* grdComenzi_;
  QHash<QObject*, std::function<void()>> clicked_;  ///< of the figures
};

}  // namespace velmar
