// The page of a layout as it is drawn: to scale, with rulers and grid, worked with mouse and keyboard. What
// is done here becomes a change of the layout, which its window makes.
#pragma once

#include <optional>
#include <QAbstractScrollArea>

#include "reports/LayoutEdits.h"

namespace velmar {

/// Under which a name of the data is dragged.
inline constexpr const char* kNameMime = "application/x-velmar-name";

class LayoutPage : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit LayoutPage(QWidget* parent = nullptr);

  void setState(const layout::State& state);
  void setGrid(const layout::Grid& grid);
  const layout::Grid& grid() const { return grid_; }
  /// Parts with faults, which are marked.
  void setFaulty(const layout::Parts& parts);
  /// 1: as large as on paper, as far as the screen tells.
  void setZoom(double zoom);
  double zoom() const { return zoom_; }
  /// The zoom at which the sheet is as wide as its room.
  double fittingZoom() const;
  /// What is drawn next; nothing: parts are chosen.
  void setTool(const std::optional<layout::Kind>& tool);
  /// Asked before parts are chosen or changed: false while something typed is refused.
  void setGate(std::function<bool()> mayAct) { mayAct_ = std::move(mayAct); }

  /// A place of the sheet (millimetres) in the viewport, and back.
  Q_INVOKABLE QPointF toScreen(const QPointF& place) const;
  QPointF fromScreen(const QPointF& pixel) const;
  /// A free place of the part of the sheet that can be seen, for what is added by keyboard.
  QPointF freePlace() const;
  void scrollToTop();
  /// Scrolls to the part.
  void reveal(const layout::Part& part);

 signals:
  void chosen(const layout::Parts& parts);
  /// A change of the layout is wanted; see layout::edited().
  void changeWanted(const QString& text, const QString& joins, const layout::Change& change);
  void nameDropped(const QString& name, const QPointF& place);
  /// The part's most important property is to be typed.
  void editWanted();
  void copyWanted();
  void cutWanted();
  void pasteWanted();
  void toolUsed();
  void resized();
  void zoomWanted(int step);
  void pointerMoved(const QPointF& place);

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  /// What the mouse is doing between press and release.
  enum class Gesture { None, Press, Move, Size, Band, Draw };

  double scale() const;  ///< pixels of a millimetre
  const layout::Layout& shown() const { return draft_ ? *draft_ : *state_.layout; }
  bool mayAct() const { return !mayAct_ || mayAct_(); }
  bool isSingle() const { return state_.chosen.size() == 1; }
  bool isChosen(const layout::Part& part) const;
  bool choosesInside() const;
  int sidesAt(const QPointF& pixel) const;
  void layOut();
  void choose(const layout::Parts& parts);
  void pressOn(const layout::Part& part, bool adds);
  void dragTo(const QPointF& place);
  void finish(const QPointF& place);
  void clickedOn(const QPointF& place);
  void cancelGesture();
  layout::Change gestureChange(const QPointF& place) const;
  bool arrowKey(int key, Qt::KeyboardModifiers modifiers);
  bool commandKey(const QKeyEvent& event);
  bool escape();
  bool enter();
  void showCursor(const QPointF& pixel);
  QPointF origin() const;

  layout::State state_;
  layout::Parts faulty_;
  layout::Grid grid_;
  double zoom_ = 1;
  std::optional<layout::Kind> tool_;
  std::function<bool()> mayAct_;

  Gesture gesture_ = Gesture::None;
  QPointF from_;      ///< where the mouse was pressed, in millimetres
  QPoint fromPixel_;  ///< and in the viewport
  layout::Part under_;
  bool adds_ = false;       ///< Ctrl was held
  bool wasChosen_ = false;  ///< the part under the mouse, alone, before it was pressed
  int sides_ = 0;
  QPointF now_;
  std::optional<QPointF> dropAt_;
  std::optional<layout::Layout> draft_;  ///< the layout as the gesture would leave it
};

}  // namespace velmar
