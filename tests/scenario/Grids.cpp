#include "Grids.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTreeView>

#include "Controls.h"
#include "Input.h"
#include "store/windows/TDBGrid.h"
#include "util/NumberText.h"

namespace velmar::scenario {

namespace {

QAbstractItemView* viewOf(Windows& windows, const Arguments& a) {
  auto* view = qobject_cast<QAbstractItemView*>(windows.control(a[0], a[1]));
  if (!view || !view->model()) throw Failure(a[1].toString() + QStringLiteral(" is no grid"));
  return view;
}

QHeaderView* headerOf(const QAbstractItemView* view) {
  if (const auto* table = qobject_cast<const QTableView*>(view)) return table->horizontalHeader();
  if (const auto* tree = qobject_cast<const QTreeView*>(view)) return tree->header();
  return nullptr;
}

// The empty entry row at the end of a grid is not a data row.
bool hasNewRow(const QAbstractItemView* view) { return view->property("hasNewRow").toBool(); }

int rowsOf(const QAbstractItemView* view) {
  return view->model()->rowCount(view->rootIndex()) - (hasNewRow(view) ? 1 : 0);
}

QString captionOf(const QAbstractItemView* view, int section) {
  return view->model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
}

// The field of a section; list views have it in the header's user role. The caption if there is none.
QString fieldOf(const QAbstractItemView* view, int section) {
  QString field;
  if (const auto* grid = qobject_cast<const TDBGrid*>(view))
    field = section < grid->columns().size() ? grid->columns()[section].field : QString();
  if (field.isEmpty()) field = view->model()->headerData(section, Qt::Horizontal, Qt::UserRole).toString();
  return field.isEmpty() ? captionOf(view, section) : field;
}

int sectionOf(const QAbstractItemView* view, const QVariant& column) {
  const int count = view->model()->columnCount(view->rootIndex());
  if (column.typeId() == QMetaType::Int && column.toInt() >= 0 && column.toInt() < count)
    return column.toInt();
  const QString name = column.toString();
  for (int i = 0; i < count; ++i)
    if (fieldOf(view, i).compare(name, Qt::CaseInsensitive) == 0) return i;
  for (int i = 0; i < count; ++i)
    if (captionOf(view, i).compare(name, Qt::CaseInsensitive) == 0) return i;
  throw Failure(QStringLiteral("%1 has no column %2").arg(view->objectName(), name));
}

QList<int> visibleSections(const QAbstractItemView* view) {
  QList<int> sections;
  const QHeaderView* header = headerOf(view);
  const int count = view->model()->columnCount(view->rootIndex());
  for (int place = 0; place < count; ++place) {
    const int section = header ? header->logicalIndex(place) : place;
    if (!header || !header->isSectionHidden(section)) sections.append(section);
  }
  return sections;
}

QModelIndex indexOf(const QAbstractItemView* view, int row, const QVariant& column) {
  const int section = sectionOf(view, column);
  const int count = view->model()->rowCount(view->rootIndex());
  if (row < 0 && !hasNewRow(view)) throw Failure(view->objectName() + QStringLiteral(" has no new row"));
  const int wanted = row < 0 ? count - 1 : row;
  if (wanted < 0 || wanted >= count)
    throw Failure(
        QStringLiteral("%1 has no row %2, only %3 rows").arg(view->objectName()).arg(row).arg(count));
  return view->model()->index(wanted, section, view->rootIndex());
}

QWidget* editorAt(const QAbstractItemView* view, const QModelIndex& index) {
  QWidget* editor = view->indexWidget(index);
  return editor && editor->isVisible() ? editor : nullptr;
}

QString cellText(const QAbstractItemView* view, const QModelIndex& index) {
  if (const QWidget* editor = editorAt(view, index)) return shownText(editor);
  const QVariant value = index.data(Qt::DisplayRole);
  const QVariant mark = index.data(Qt::CheckStateRole);
  if (value.isNull() && mark.isValid())
    return mark.toInt() == Qt::Checked ? QStringLiteral("DA") : QStringLiteral("NU");
  if (const auto* delegate = qobject_cast<const QStyledItemDelegate*>(view->itemDelegateForIndex(index)))
    return delegate->displayText(value, view->locale());
  return value.toString();
}

void clickCell(QAbstractItemView* view, const QModelIndex& index,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  requireUsable(view);
  bringToFront(view);
  view->scrollTo(index);
  const QRect cell = view->visualRect(index) & view->viewport()->rect();
  if (cell.isEmpty())
    throw Failure(QStringLiteral("%1 shows no row %2").arg(view->objectName()).arg(index.row()));
  clickAt(view->viewport(), cell.center(), modifiers);
}

// A visible row is clicked at its current position, to avoid scrolling.
void selectRow(QAbstractItemView* view, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  const QList<int> sections = visibleSections(view);
  if (sections.isEmpty()) throw Failure(view->objectName() + QStringLiteral(" shows no columns"));
  const int current = view->currentIndex().column();
  clickCell(view, indexOf(view, row, sections.contains(current) ? current : sections.first()), modifiers);
}

QString colourName(const QVariant& brush, const QColor& otherwise) {
  if (brush.canConvert<QBrush>() && brush.value<QBrush>().style() != Qt::NoBrush)
    return brush.value<QBrush>().color().name();
  return otherwise.name();
}

QVariantMap colours(const QAbstractItemView* view, const QModelIndex& index) {
  const QPalette& palette = view->palette();
  const bool alternate = view->alternatingRowColors() && index.row() % 2 == 1;
  return {
      {QStringLiteral("text"), colourName(index.data(Qt::ForegroundRole), palette.text().color())},
      {QStringLiteral("back"), colourName(index.data(Qt::BackgroundRole),
                                          (alternate ? palette.alternateBase() : palette.base()).color())}};
}

bool isLocked(const QAbstractItemView* view, const QModelIndex& index) {
  const Qt::ItemFlags flags = index.flags();
  if (!(flags & Qt::ItemIsEnabled)) return true;
  return (view->editTriggers() == QAbstractItemView::NoEditTriggers || !(flags & Qt::ItemIsEditable)) &&
         !(flags & Qt::ItemIsUserCheckable);
}

// Whether the shown value equals the typed one, as a number or as text.
bool sameValue(const QString& shown, const QString& typed) {
  if (shown.compare(typed.trimmed(), Qt::CaseInsensitive) == 0) return true;
  QString ungrouped = shown;
  const auto a = parseNumber(ungrouped.remove(QChar(u'.')));
  const auto b = parseNumber(typed);
  return a && b && *a == *b;
}

// The steps of an entry; between them the prelude waits until the program is idle.
void addEntrySteps(Functions& functions, Windows& windows) {
  functions["cellState"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    const QModelIndex index = indexOf(view, a[2].toInt(), a[3]);
    return QVariantMap{{"row", index.row()},
                       {"text", cellText(view, index)},
                       {"rows", rowsOf(view)},
                       {"locked", isLocked(view, index)},
                       {"editing", editorAt(view, index) != nullptr},
                       {"checkable", bool(index.flags() & Qt::ItemIsUserCheckable)},
                       {"current", view->currentIndex() == index}};
  };
  // If an editor is open in another cell, the cell is clicked, which the program may refuse; otherwise the
  // cursor moves as with the arrow keys.
  functions["cellReach"] = [&windows](const Arguments& a) {
    auto* view = viewOf(windows, a);
    const QModelIndex index = indexOf(view, a[2].toInt(), a[3]);
    if (editorAt(view, view->currentIndex())) {
      clickCell(view, index);
      return QVariant();
    }
    focus(view);
    view->setCurrentIndex(index);
    view->scrollTo(index);
    return QVariant();
  };
  // Returns false if the editor is a list without this choice, null if the value must be typed.
  functions["editorTake"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    QWidget* editor = editorAt(view, indexOf(view, a[2].toInt(), a[3]));
    const QString text = a[4].toString();
    if (!editor) throw Failure(QStringLiteral("no editor is open in the cell"));
    if (auto* combo = qobject_cast<QComboBox*>(editor); combo && !combo->isEditable())
      return QVariant(chooseInCombo(combo, text));
    if (auto* picker = qobject_cast<QDateTimeEdit*>(editor)) {
      QDate date = QDate::fromString(text, Qt::ISODate);
      if (!date.isValid()) date = QDate::fromString(text, QStringLiteral("dd/MM/yyyy"));
      if (date.isValid()) picker->setDate(date);
      return QVariant(date.isValid());
    }
    if (!focusIsIn(editor)) editor->setFocus();
    clearByKeyboard(editor);
    return QVariant();
  };
  functions["entryTaken"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    const int rowsBefore = a[5].toInt();
    if (rowsOf(view) > rowsBefore) return true;
    if (a[2].toInt() >= view->model()->rowCount(view->rootIndex())) return false;
    const QModelIndex index = indexOf(view, a[2].toInt(), a[3]);
    if (editorAt(view, index)) return false;
    const QString shown = cellText(view, index);
    const QString typed = a[4].toString();
    // A password shows the same dots whatever it is.
    return shown != a[6].toString() || sameValue(shown, typed) ||
           index.data(Qt::EditRole).toString() == typed;
  };
}

void addReading(Functions& functions, Windows& windows) {
  functions["gridCheck"] = [&windows](const Arguments& a) { return viewOf(windows, a) != nullptr; };
  functions["rows"] = [&windows](const Arguments& a) { return rowsOf(viewOf(windows, a)); };
  functions["cell"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    return cellText(view, indexOf(view, a[2].toInt(), a[3]));
  };
  functions["column"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    QStringList texts;
    sectionOf(view, a[2]);
    for (int row = 0; row < rowsOf(view); ++row) texts.append(cellText(view, indexOf(view, row, a[2])));
    return texts;
  };
  functions["columns"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    QStringList names;
    for (int section : visibleSections(view)) names.append(fieldOf(view, section));
    return names;
  };
  functions["captions"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    QStringList names;
    for (int section : visibleSections(view)) names.append(captionOf(view, section));
    return names;
  };
  functions["isLocked"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    return isLocked(view, indexOf(view, a[2].toInt(), a[3]));
  };
  functions["colour"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    return colours(view, indexOf(view, a[2].toInt(), a[3]));
  };
  functions["footer"] = [&windows](const Arguments& a) {
    const auto* view = viewOf(windows, a);
    const auto* grid = qobject_cast<const TDBGrid*>(view);
    if (!grid) throw Failure(view->objectName() + QStringLiteral(" has no footer"));
    return grid->footer(fieldOf(view, sectionOf(view, a[2])));
  };
}

}  // namespace

void addGridFunctions(Functions& functions, Windows& windows) {
  functions["select"] = [&windows](const Arguments& a) {
    selectRow(viewOf(windows, a), a[2].toInt());
    return QVariant();
  };
  functions["selectMany"] = [&windows](const Arguments& a) {
    auto* view = viewOf(windows, a);
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    for (const QVariant& row : a[2].toList()) {
      selectRow(view, row.toInt(), std::exchange(modifiers, Qt::ControlModifier));
    }
    return QVariant();
  };
  // An editor opened by the click would receive the keys intended for the row.
  functions["gridKeys"] = [&windows](const Arguments& a) {
    auto* view = viewOf(windows, a);
    if (QWidget* editor = editorAt(view, view->currentIndex()); editor && focusIsIn(editor))
      pressKey(QStringLiteral("Esc"));
    focus(view);
    return QVariant();
  };
  addReading(functions, windows);
  addEntrySteps(functions, windows);
}

}  // namespace velmar::scenario
