#include "store/windows/extTDBGrid.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

#include "store/windows/TDBGrid.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Look.h"

namespace velmar {

namespace {

const QString kControl = QStringLiteral("User Control extTDBGrid");
const QString kGroupColMove = QStringLiteral("DataGrid_GroupColMove");

}  // namespace

extTDBGrid::extTDBGrid(const QString& name, QWidget* parent) : QFrame(parent) {
  setObjectName(name);
  setFrameShape(StyledPanel);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  hint_ = new QLabel("Trageti aici un cap de coloana pentru ordonare");
  hint_->setForegroundRole(QPalette::PlaceholderText);
  row_ = new QHBoxLayout(this);
  row_->setContentsMargins(6, 2, 6, 2);
  row_->addWidget(hint_);
  row_->addStretch();
  setMinimumHeight(fontMetrics().height() + 16);
}

void extTDBGrid::setTDBGrid(TDBGrid* grid) {
  if (grid == grid_) return;
  if (grid_) {
    grid_->disconnect(this);
    grid_->removeEventFilter(this);
    grid_->horizontalHeader()->viewport()->removeEventFilter(this);
  }
  grid_ = grid;
  fields_.clear();
  showChips();
  if (!grid_) return;
  connect(grid_, &TDBGrid::columnDraggedOut, this, &extTDBGrid::addGroupColumn);
  grid_->installEventFilter(this);
  grid_->horizontalHeader()->viewport()->installEventFilter(this);
}

void extTDBGrid::setTDBGridName(const QString& name) {
  gridName_ = name;
  if (TDBGrid* found = lookUp()) setTDBGrid(found);
}

// The nearest one: a child window must not find the grid of another.
TDBGrid* extTDBGrid::lookUp() const {
  if (gridName_.isEmpty()) return nullptr;
  for (const QWidget* around = parentWidget(); around; around = around->parentWidget())
    if (auto* found = around->findChild<TDBGrid*>(gridName_)) return found;
  return nullptr;
}

void extTDBGrid::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  if (!grid_) setTDBGridName(gridName_);
}

void extTDBGrid::addGroupColumn(const QString& field) {
  if (field.isEmpty() || fields_.contains(field, Qt::CaseInsensitive)) return;
  fields_.append(field);
  changed();
}

void extTDBGrid::removeGroupColumn(const QString& field) {
  if (fields_.removeAll(field) > 0) changed();
}

void extTDBGrid::changed() {
  showChips();
  guarded(kControl, kGroupColMove, [this] { Sort(); });
}

void extTDBGrid::Sort() {
  if (!grid_ || fields_.isEmpty() || sortType_ == kUnsorted) return;
  grid_->sortBy({fields_, sortType_ == kDescending});
}

void extTDBGrid::sortAs(int type) {
  sortType_ = type;
  if (!fields_.isEmpty()) return Sort();
  const int column = grid_ ? grid_->currentIndex().column() : -1;
  if (column >= 0) grid_->sortBy({{grid_->columns()[column].field}, type == kDescending});
}

void extTDBGrid::showChips() {
  for (QWidget* chip : chips_) {
    chip->hide();
    chip->setObjectName({});
    chip->deleteLater();
  }
  chips_.clear();
  for (const QString& field : fields_) {
    const int column = grid_->columnOf(field);
    const QString caption = column >= 0 ? grid_->columns()[column].caption : field;
    auto* chip =
        named(new QToolButton, QStringLiteral("cmdGrup(%1)").arg(chips_.size()), "Scoate gruparea (Delete)");
    chip->setText(caption);
    chip->setIcon(icon("close"));
    chip->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    chip->setLayoutDirection(Qt::RightToLeft);  // puts the cross after the caption
    chip->setFocusPolicy(Qt::StrongFocus);
    chip->setProperty("field", field);
    chip->installEventFilter(this);
    connect(chip, &QToolButton::clicked, this, [this, field] { removeGroupColumn(field); });
    row_->insertWidget(static_cast<int>(chips_.size()), chip);
    chips_.append(chip);
  }
  hint_->setVisible(fields_.isEmpty());
}

bool extTDBGrid::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && chips_.contains(watched) &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
    // Not now: the chip whose event this is goes with it.
    QMetaObject::invokeMethod(
        this, [this, field = watched->property("field").toString()] { removeGroupColumn(field); },
        Qt::QueuedConnection);
    return true;
  }
  if (event->type() == QEvent::ContextMenu && grid_) {
    const auto* asked = static_cast<QContextMenuEvent*>(event);
    QHeaderView* header = grid_->horizontalHeader();
    if (watched == header->viewport()) {
      showMenu(header->logicalIndexAt(asked->pos().x()), asked->globalPos());
      return true;
    }
    if (watched == grid_ && asked->reason() == QContextMenuEvent::Keyboard) {
      const int column = grid_->currentIndex().column();
      const QPoint below(header->sectionViewportPosition(column), header->height());
      showMenu(column, header->viewport()->mapToGlobal(below));
      return true;
    }
  }
  return QFrame::eventFilter(watched, event);
}

void extTDBGrid::showMenu(int column, const QPoint& place) {
  if (column < 0) return;
  const QString field = grid_->columns().value(column).field;
  QMenu menu(this);
  menu.setObjectName("mnuOrdonare");
  const auto entry = [&](const QString& caption, bool enabled, const std::function<void()>& work) {
    QAction* action = menu.addAction(caption);
    action->setEnabled(enabled);
    connect(action, &QAction::triggered, this, [work] { guarded(kControl, kGroupColMove, work); });
  };
  entry("Ordoneaza &crescator", true, [this, field] { grid_->sortBy({{field}, false}); });
  entry("Ordoneaza &descrescator", true, [this, field] { grid_->sortBy({{field}, true}); });
  menu.addSeparator();
  const bool grouped = fields_.contains(field);
  entry("&Grupeaza dupa aceasta coloana", !grouped, [this, field] { addGroupColumn(field); });
  entry("&Scoate gruparea", grouped, [this, field] { removeGroupColumn(field); });
  menu.exec(place);
}

}  // namespace velmar
