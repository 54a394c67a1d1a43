#include "reports/windows/LayoutPage.h"

#include <algorithm>
#include <QApplication>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>

#include "reports/windows/DesignPainter.h"

namespace velmar {

using namespace layout;

namespace {

constexpr int kBorder = 14;       // pixels around the sheet
constexpr int kDragDistance = 3;  // pixels after which a press is a drag
constexpr double kTolerance = 3;  // pixels around a frame that count as part of it
constexpr double kMillimetresPerInch = 25.4;

// The keys by which steps of one movement are merged.
const QString kMoves = QStringLiteral("move");
const QString kSizes = QStringLiteral("size");

QPoint arrowOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return {-1, 0};
    case Qt::Key_Right:
      return {1, 0};
    case Qt::Key_Up:
      return {0, -1};
    case Qt::Key_Down:
      return {0, 1};
    default:
      return {};
  }
}

}  // namespace

LayoutPage::LayoutPage(QWidget* parent) : QAbstractScrollArea(parent) {
  setObjectName("pagina");
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::StyledPanel);
  viewport()->setMouseTracking(true);
  viewport()->setAcceptDrops(true);
  state_.layout = std::make_shared<Layout>();
}

void LayoutPage::setState(const State& state) {
  cancelGesture();
  const bool sameSheet = state_.layout->page.width == state.layout->page.width &&
                         state_.layout->page.height == state.layout->page.height;
  state_ = state;
  if (!sameSheet) layOut();
  viewport()->update();
}

void LayoutPage::setGrid(const Grid& grid) {
  grid_ = grid;
  viewport()->update();
}

void LayoutPage::setFaulty(const Parts& parts) {
  faulty_ = parts;
  viewport()->update();
}

void LayoutPage::setZoom(double zoom) {
  const QPointF middle = fromScreen(QRectF(viewport()->rect()).center());
  const bool isAtTop = verticalScrollBar()->value() == 0;
  zoom_ = zoom;
  layOut();
  const QPointF moved = toScreen(middle) - QRectF(viewport()->rect()).center();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(moved.x()));
  verticalScrollBar()->setValue(isAtTop ? 0 : verticalScrollBar()->value() + qRound(moved.y()));
  viewport()->update();
}

double LayoutPage::fittingZoom() const {
  constexpr double kLeast = 0.1;
  const int room = width() - kRulerSize - 2 * kBorder - verticalScrollBar()->sizeHint().width() - 4;
  return std::max(kLeast, room / (state_.layout->page.width * scale() / zoom_));
}

void LayoutPage::setTool(const std::optional<Kind>& tool) {
  cancelGesture();
  tool_ = tool;
  viewport()->setCursor(tool ? Qt::CrossCursor : Qt::ArrowCursor);
}

double LayoutPage::scale() const { return zoom_ * logicalDpiX() / kMillimetresPerInch; }

// Centres the sheet in a larger viewport.
QPointF LayoutPage::origin() const {
  const QSizeF sheet = QSizeF(shown().page.width, shown().page.height) * scale();
  const auto start = [](int room, double length, int scrolled) {
    const double free = room - kRulerSize - length;
    return kRulerSize + (free > 2 * kBorder ? free / 2 : kBorder) - scrolled;
  };
  return {start(viewport()->width(), sheet.width(), horizontalScrollBar()->value()),
          start(viewport()->height(), sheet.height(), verticalScrollBar()->value())};
}

QPointF LayoutPage::toScreen(const QPointF& place) const { return origin() + place * scale(); }

QPointF LayoutPage::fromScreen(const QPointF& pixel) const { return (pixel - origin()) / scale(); }

QPointF LayoutPage::freePlace() const {
  constexpr double kDistance = 10;
  const Page& page = state_.layout->page;
  const QPointF corner = fromScreen(QPointF(kRulerSize, kRulerSize));
  const double left = grid_.snapped(std::max(corner.x(), page.left));
  double top = grid_.snapped(std::max(corner.y(), page.top));
  const auto taken = [this, left](double y) {
    return std::any_of(
        state_.layout->objects.begin(), state_.layout->objects.end(),
        [left, y](const Object& object) { return object.frame.topLeft() == QPointF(left, y); });
  };
  while (taken(top) && top < page.height - page.bottom - kDistance) top += kDistance;
  return {left, top};
}

void LayoutPage::scrollToTop() { verticalScrollBar()->setValue(0); }

void LayoutPage::reveal(const Part& part) {
  if (part.isPage()) return;
  const QRectF frame = frameOf(*state_.layout, part);
  const QRectF pixels(toScreen(frame.topLeft()), frame.size() * scale());
  const auto reach = [](QScrollBar* bar, double low, double high, int room) {
    if (low < kRulerSize)
      bar->setValue(bar->value() + qRound(low) - kRulerSize - kBorder);
    else if (high > room)
      bar->setValue(bar->value() + qRound(std::min(high - room + kBorder, low - kRulerSize - kBorder)));
  };
  reach(horizontalScrollBar(), pixels.left(), pixels.right(), viewport()->width());
  reach(verticalScrollBar(), pixels.top(), pixels.bottom(), viewport()->height());
}

void LayoutPage::layOut() {
  const Page& page = state_.layout->page;
  const auto range = [](QScrollBar* bar, double length, int room) {
    bar->setRange(0, std::max(0, qRound(length) + 2 * kBorder + kRulerSize - room));
    bar->setPageStep(room);
    bar->setSingleStep(20);
  };
  range(horizontalScrollBar(), page.width * scale(), viewport()->width());
  range(verticalScrollBar(), page.height * scale(), viewport()->height());
}

void LayoutPage::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  layOut();
  emit resized();
}

void LayoutPage::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  std::optional<QRectF> band;
  const Grid off = {grid_.step, false};
  if (gesture_ == Gesture::Band || gesture_ == Gesture::Draw)
    band = drawnFrame(from_, now_, gesture_ == Gesture::Band ? off : grid_);
  const DesignView view{shown(),   state_.chosen, faulty_, grid_,  origin(), scale(), viewport()->rect(),
                        palette(), hasFocus(),    band,    dropAt_};
  DesignPainter(painter, view).paint();
}

void LayoutPage::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void LayoutPage::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

// The tool tip shows a formula that does not fit into its part.
bool LayoutPage::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const Part part = partAt(*state_.layout, fromScreen(help->pos()), kTolerance / scale(), true);
  QToolTip::showText(help->globalPos(), part.isPage() ? QString() : nameOf(*state_.layout, part), viewport());
  return true;
}

bool LayoutPage::isChosen(const Part& part) const {
  return std::find(state_.chosen.begin(), state_.chosen.end(), part) != state_.chosen.end();
}

// Within a selected table a click selects its row or cell.
bool LayoutPage::choosesInside() const {
  return !state_.chosen.empty() &&
         std::all_of(state_.chosen.begin(), state_.chosen.end(),
                     [this](const Part& p) { return p.object == state_.chosen.front().object; });
}

int LayoutPage::sidesAt(const QPointF& pixel) const {
  if (!isSingle() || tool_) return 0;
  const Part& part = state_.chosen.front();
  if (part.isPage() || !has(*state_.layout, part)) return 0;
  const QRectF frame = frameOf(*state_.layout, part);
  for (const auto& [sides, at] : handlesOf({toScreen(frame.topLeft()), frame.size() * scale()}, part)) {
    const QPointF distance = at - pixel;
    if (std::abs(distance.x()) <= kHandleSize / 2.0 + 1 && std::abs(distance.y()) <= kHandleSize / 2.0 + 1)
      return sides;
  }
  return 0;
}

void LayoutPage::choose(const Parts& parts) {
  if (parts != state_.chosen) emit chosen(parts);
}

void LayoutPage::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !mayAct()) return;
  fromPixel_ = event->position().toPoint();
  from_ = now_ = fromScreen(event->position());
  adds_ = event->modifiers() & Qt::ControlModifier;
  if (tool_) {
    gesture_ = Gesture::Draw;
    return;
  }
  sides_ = adds_ ? 0 : sidesAt(event->position());
  gesture_ = Gesture::Press;
  under_ = partAt(*state_.layout, from_, kTolerance / scale(), false);
  wasChosen_ = isSingle() && isChosen(under_);
  if (sides_ == 0 && !under_.isPage()) pressOn(under_, adds_);
}

void LayoutPage::pressOn(const Part& part, bool adds) {
  const bool isInside = choosesInside() && state_.chosen.front().object == part.object;
  if (isInside && state_.chosen.front().row >= 0) return;  // selected on release, if it is a click
  if (!adds) {
    if (!isChosen(part)) choose({part});
    return;
  }
  Parts parts;
  for (const Part& each : state_.chosen)
    if (each.isObject() && each != part) parts.push_back(each);
  if (!isChosen(part)) parts.push_back(part);
  choose(parts);
}

void LayoutPage::mouseMoveEvent(QMouseEvent* event) {
  const QPointF place = fromScreen(event->position());
  emit pointerMoved(place);
  if (gesture_ == Gesture::None) return showCursor(event->position());
  const QPoint way = event->position().toPoint() - fromPixel_;
  if (gesture_ == Gesture::Press && way.manhattanLength() < kDragDistance) return;
  if (gesture_ == Gesture::Press) {
    gesture_ = sides_ != 0 ? Gesture::Size : (under_.isPage() ? Gesture::Band : Gesture::Move);
    // Dragging a row or cell moves the whole table.
    if (gesture_ == Gesture::Move && !isChosen(under_)) choose({under_});
  }
  dragTo(place);
}

void LayoutPage::showCursor(const QPointF& pixel) {
  if (tool_) return;
  const int sides = sidesAt(pixel);
  const bool across = sides & (kLeftSide | kRightSide);
  const bool down = sides & (kTopSide | kBottomSide);
  const bool falls = sides == (kLeftSide | kTopSide) || sides == (kRightSide | kBottomSide);
  Qt::CursorShape shape = Qt::ArrowCursor;
  if (across && down)
    shape = falls ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
  else if (across)
    shape = Qt::SizeHorCursor;
  else if (down)
    shape = Qt::SizeVerCursor;
  viewport()->setCursor(shape);
}

void LayoutPage::dragTo(const QPointF& place) {
  now_ = place;
  if (gesture_ == Gesture::Move || gesture_ == Gesture::Size) {
    draft_ = *state_.layout;
    gestureChange(place)(*draft_);
  }
  viewport()->update();
}

Change LayoutPage::gestureChange(const QPointF& place) const {
  const QPointF by = place - from_;
  const Parts chosen = state_.chosen;
  const Grid grid = grid_;
  if (gesture_ == Gesture::Size)
    return [chosen, by, grid, sides = sides_](Layout& layout) {
      layout::size(layout, chosen.front(), sides, by, grid);
      return chosen;
    };
  return [chosen, by, grid](Layout& layout) {
    layout::move(layout, chosen, by, grid);
    return chosen;
  };
}

void LayoutPage::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && gesture_ != Gesture::None) finish(fromScreen(event->position()));
}

void LayoutPage::finish(const QPointF& place) {
  const Gesture gesture = gesture_;
  const Change change = gestureChange(place);
  const QRectF frame = drawnFrame(from_, place, gesture == Gesture::Draw ? grid_ : Grid{grid_.step, false});
  cancelGesture();
  switch (gesture) {
    case Gesture::Press:
      clickedOn(place);
      break;
    case Gesture::Move:
      emit changeWanted("Mutare", {}, change);
      break;
    case Gesture::Size:
      emit changeWanted("Redimensionare", {}, change);
      break;
    case Gesture::Band: {
      Parts parts = adds_ ? state_.chosen : Parts();
      for (const Part& part : objectsIn(*state_.layout, frame))
        if (!isChosen(part) || !adds_) parts.push_back(part);
      choose(parts);
      break;
    }
    case Gesture::Draw:
      emit changeWanted("Adaugare " + kindName(*tool_), {},
                        [kind = *tool_, frame](Layout& layout) { return Parts{add(layout, kind, frame)}; });
      emit toolUsed();
      break;
    case Gesture::None:
      break;
  }
}

// A click without a drag: selects the page on free space, a row or cell within a selected table.
void LayoutPage::clickedOn(const QPointF& place) {
  if (sides_ != 0) return;
  if (under_.isPage()) {
    if (!adds_) choose({});
    return;
  }
  if (!choosesInside() || state_.chosen.front().object != under_.object) return;
  const Part inside = partAt(*state_.layout, place, kTolerance / scale(), true);
  const bool wasInside = state_.chosen.front().row >= 0;
  if (!adds_) {
    if (wasInside || wasChosen_) choose({inside});
    return;
  }
  if (!wasInside || inside.row < 0) return;
  Parts parts = state_.chosen;
  if (isChosen(inside) && parts.size() > 1)
    parts.erase(std::find(parts.begin(), parts.end(), inside));
  else if (!isChosen(inside) && inside.isCell() == parts.front().isCell())
    parts.push_back(inside);
  choose(parts);
}

void LayoutPage::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || tool_ || !mayAct()) return;
  const Part part = partAt(*state_.layout, fromScreen(event->position()), kTolerance / scale(), true);
  if (part.isPage()) return;
  const bool again = isSingle() && state_.chosen.front() == part;
  choose({part});
  if (part.isObject() || again) emit editWanted();
}

void LayoutPage::cancelGesture() {
  gesture_ = Gesture::None;
  draft_.reset();
  dropAt_.reset();
  viewport()->update();
}

void LayoutPage::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() & Qt::ControlModifier) {
    if (event->angleDelta().y() != 0) emit zoomWanted(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
    return;
  }
  QAbstractScrollArea::wheelEvent(event);
}

// Tab moves from object to object; after the last one, or on an empty page, to the next control.
bool LayoutPage::focusNextPrevChild(bool next) {
  if (!mayAct()) return true;
  const Part from = state_.chosen.empty() ? Part() : state_.chosen.front();
  const Part part = nextPart(*state_.layout, from, next ? 1 : -1);
  if (part.isPage()) return QAbstractScrollArea::focusNextPrevChild(next);
  choose({part});
  reveal(part);
  return true;
}

void LayoutPage::keyPressEvent(QKeyEvent* event) {
  if (!mayAct()) return;
  if (arrowKey(event->key(), event->modifiers()) || commandKey(*event)) return;
  QAbstractScrollArea::keyPressEvent(event);
}

bool LayoutPage::arrowKey(int key, Qt::KeyboardModifiers modifiers) {
  const QPoint way = arrowOf(key);
  if (way.isNull() || state_.chosen.empty()) return false;
  const Parts chosen = state_.chosen;
  const Grid grid = grid_;
  const bool fine = modifiers & Qt::ControlModifier;
  const bool isInside = chosen.front().row >= 0;
  if (modifiers & Qt::ShiftModifier) {
    emit changeWanted("Redimensionare", kSizes, [chosen, way, fine, grid](Layout& layout) {
      nudgeSize(layout, chosen, way.x(), way.y(), fine, grid);
      return chosen;
    });
  } else if (modifiers & Qt::AltModifier) {
    if (!isInside || way.x() == 0) return false;
    emit changeWanted("Mutare celula", {}, [part = chosen.front(), by = way.x()](Layout& layout) {
      return Parts{moveCell(layout, part, by)};
    });
  } else if (isInside) {
    const Part part = neighbour(*state_.layout, chosen.front(), way.x(), way.y());
    choose({part});
    reveal(part);
  } else {
    emit changeWanted("Mutare", kMoves, [chosen, way, fine, grid](Layout& layout) {
      nudge(layout, chosen, way.x(), way.y(), fine, grid);
      return chosen;
    });
  }
  return true;
}

bool LayoutPage::commandKey(const QKeyEvent& event) {
  const Parts chosen = state_.chosen;
  if (event.matches(QKeySequence::Copy)) return emit copyWanted(), true;
  if (event.matches(QKeySequence::Cut)) return emit cutWanted(), true;
  if (event.matches(QKeySequence::Paste)) return emit pasteWanted(), true;
  if (event.matches(QKeySequence::SelectAll)) {
    choose(objectsIn(*state_.layout,
                     {-2 * kLargestSheet, -2 * kLargestSheet, 6 * kLargestSheet, 6 * kLargestSheet}));
    return true;
  }
  const bool control = event.modifiers() == Qt::ControlModifier;
  switch (event.key()) {
    case Qt::Key_Delete:
      if (!chosen.empty())
        emit changeWanted("Stergere", {}, [chosen](Layout& layout) { return remove(layout, chosen); });
      return true;
    case Qt::Key_D:
      if (control && !chosen.empty())
        emit changeWanted("Dublare", {}, [chosen](Layout& layout) { return duplicate(layout, chosen); });
      return control;
    case Qt::Key_Insert:
      if (chosen.empty()) return false;
      emit changeWanted("Adaugare celula", {},
                        [part = chosen.front()](Layout& layout) { return Parts{addCell(layout, part)}; });
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      if (event.modifiers() & Qt::ControlModifier) emit zoomWanted(1);
      return event.modifiers() & Qt::ControlModifier;
    case Qt::Key_Minus:
      if (control) emit zoomWanted(-1);
      return control;
    case Qt::Key_Escape:
      return escape();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return enter();
    case Qt::Key_F2:
      emit editWanted();
      return true;
    default:
      return false;
  }
}

// Leaves one level: a gesture, a tool, a cell, its row, an object.
bool LayoutPage::escape() {
  if (gesture_ != Gesture::None) return cancelGesture(), true;
  if (tool_) return emit toolUsed(), true;
  if (state_.chosen.empty()) return false;
  const Part& part = state_.chosen.front();
  if (state_.chosen.size() > 1 || part.isObject())
    choose({});
  else
    choose({Part{part.object, part.isCell() ? part.row : -1, -1}});
  return true;
}

// Enters one level: places the tool's object, goes into a table, or edits the part's formula.
bool LayoutPage::enter() {
  if (tool_) {
    emit changeWanted("Adaugare " + kindName(*tool_), {},
                      [kind = *tool_, frame = QRectF(freePlace(), QSizeF())](Layout& layout) {
                        return Parts{add(layout, kind, frame)};
                      });
    emit toolUsed();
    return true;
  }
  if (!isSingle()) return true;
  const Part part = state_.chosen.front();
  const std::vector<PlacedPart> inside = placesIn(*state_.layout, part.object);
  const auto row = std::find_if(inside.begin(), inside.end(),
                                [&part](const PlacedPart& each) { return each.part.row == part.row; });
  if (part.isObject() && !inside.empty())
    choose({inside.front().part});
  else if (part.isRow() && row != inside.end() && std::next(row) != inside.end() &&
           std::next(row)->part.row == part.row)
    choose({std::next(row)->part});
  else
    emit editWanted();
  return true;
}

void LayoutPage::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasFormat(kNameMime)) event->acceptProposedAction();
}

void LayoutPage::dragMoveEvent(QDragMoveEvent* event) {
  if (!event->mimeData()->hasFormat(kNameMime)) return;
  dropAt_ = fromScreen(event->position());
  viewport()->update();
  event->acceptProposedAction();
}

void LayoutPage::dragLeaveEvent(QDragLeaveEvent*) {
  dropAt_.reset();
  viewport()->update();
}

void LayoutPage::dropEvent(QDropEvent* event) {
  dropAt_.reset();
  viewport()->update();
  if (!event->mimeData()->hasFormat(kNameMime)) return;
  event->acceptProposedAction();
  setFocus();
  const QPointF place = fromScreen(event->position());
  const QPointF snapped(grid_.snapped(place.x()), grid_.snapped(place.y()));
  const bool inTable = partAt(*state_.layout, place, 0, true).row >= 0;
  emit nameDropped(QString::fromUtf8(event->mimeData()->data(kNameMime)), inTable ? place : snapped);
}

}  // namespace velmar
