// The page of a layout in the designer: to scale, with rulers and grid, operated with mouse and keyboard.
// Edits are emitted as changes that the window applies.
#pragma once

#include <optional>
#include <QAbstractScrollArea>

#include "reports/LayoutEdits.h"

namespace velmar {

/// The MIME type of a dragged name of the data.
inline constexpr const char* kNameMime = "application/x-velmar-name";

class LayoutPage : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit LayoutPage(QWidget* parent = nullptr);

  void setState(const layout::State& state);
  void setGrid(const layout::Grid& grid);
  const layout::Grid& grid() const { return grid_; }
  /// Marks the parts with faults.
  void setFaulty(const layout::Parts& parts);
  /// 1: as large as on paper, by the resolution that the screen reports.
  void setZoom(double zoom);
  double zoom() const { return zoom_; }
  /// The zoom at which the sheet is as wide as the viewport.
  double fittingZoom() const;
  /// The kind of object drawn next; empty: parts are selected.
  void setTool(const std::optional<layout::Kind>& tool);
  /// Called before parts are selected or changed; false while a typed value is refused.
  void setGate(std::function<bool()> mayAct) { mayAct_ = std::move(mayAct); }

  /// Converts a position on the sheet (millimetres) to the viewport, and back.
  Q_INVOKABLE QPointF toScreen(const QPointF& place) const;
  QPointF fromScreen(const QPointF& pixel) const;
  /// A free position in the visible part of the sheet, for objects added with the keyboard.
  QPointF freePlace() const;
  void scrollToTop();
  /// Scrolls to the part.
  void reveal(const layout::Part& part);

 signals:
  void chosen(const layout::Parts& parts);
  /// A change of the layout is requested; see layout::edited().
  void changeWanted(const QString& text, const QString& joins, const layout::Change& change);
  void nameDropped(const QString& name, const QPointF& place);
  /// Editing of the part's main property is requested.
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

  double scale() const;  ///< pixels per millimetre
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
  QPointF from_;      ///< where the mouse button was pressed, in millimetres
  QPoint fromPixel_;  ///< the same in the viewport
  layout::Part under_;
  bool adds_ = false;       ///< Ctrl was held
  bool wasChosen_ = false;  ///< whether only the part under the mouse was selected before the press
  int sides_ = 0;
  QPointF now_;
  std::optional<QPointF> dropAt_;
  std::optional<layout::Layout> draft_;  ///< the layout that the gesture would result in
};

}  // namespace velmar
