#include "reports/windows/PropertyGrid.h"

#include <algorithm>
#include <QAbstractItemView>
#include <QCompleter>
#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

#include "reports/LayoutDescription.h"

namespace velmar {

using layout::Property;
using layout::PropertyKind;

namespace {

enum Column { kCaption, kValue };

const QStringList kUsualColours = {"#000000", "#404040", "#808080", "#C0C0C0", "#E8E8E8", "#FFFFFF",
                                   "#C00000", "#E07000", "#007030", "#1F5FA8", "#602080"};

const QList<GridColumn> kColumns = {{"PROPRIETATE", "Proprietate", CellFormat::Text, 21},
                                    {"VALOARE", "Valoare", CellFormat::Text, 20}};

QStringList choicesOf(const Property& property) {
  switch (property.kind) {
    case PropertyKind::Choice:
      return property.choices;
    case PropertyKind::Colour:
      return kUsualColours;
    case PropertyKind::Font:
      return QFontDatabase::families();
    default:
      return {};
  }
}

}  // namespace

class PropertyModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  const std::vector<Property>& properties() const { return properties_; }
  const Property& at(const QModelIndex& index) const { return properties_[static_cast<size_t>(index.row())]; }

  bool hasSameNames(const std::vector<Property>& properties) const {
    return std::equal(properties.begin(), properties.end(), properties_.begin(), properties_.end(),
                      [](const Property& a, const Property& b) { return a.name == b.name; });
  }

  void setProperties(std::vector<Property> properties) {
    if (hasSameNames(properties)) {
      properties_ = std::move(properties);
      if (!properties_.empty()) emit dataChanged(index(0, kCaption), index(rowCount() - 1, kValue));
      return;
    }
    beginResetModel();
    properties_ = std::move(properties);
    endResetModel();
  }

  int rowOf(const QString& name) const {
    const auto found = std::find_if(properties_.begin(), properties_.end(),
                                    [&name](const Property& property) { return property.name == name; });
    return found == properties_.end() ? -1 : static_cast<int>(found - properties_.begin());
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(properties_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const Property& property = at(index);
    const bool isValue = index.column() == kValue;
    switch (role) {
      case Qt::DisplayRole:
      case Qt::EditRole:
        return isValue ? property.value : property.caption;
      case Qt::ToolTipRole:
        return isValue ? property.value : QVariant();
      case Qt::DecorationRole:
        return isValue && property.kind == PropertyKind::Colour && !property.value.isEmpty()
                   ? QVariant(QColor(property.value))
                   : QVariant();
      default:
        return {};
    }
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return kColumns[section].caption;
    return {};
  }

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == kValue ? flags | Qt::ItemIsEditable : flags;
  }

 private:
  std::vector<Property> properties_;
};

PropertyGrid::PropertyGrid(const QString& form, QWidget* parent)
    : EntryGrid("grdProprietati", Refused::Kept, form, parent), properties_(new PropertyModel(this)) {
  setModel(properties_);
  setExported(false);
  setColumns(kColumns);
  setTabKeyNavigation(false);
  setEmptyText("Alegeti un obiect de pe pagina.");
}

void PropertyGrid::show(const std::vector<Property>& properties) {
  // An editor that is committing its text must keep its row.
  if (isEditing() && !properties_->hasSameNames(properties)) {
    later_ = properties;
    if (!std::exchange(waiting_, true)) QTimer::singleShot(0, this, &PropertyGrid::showLater);
    return;
  }
  waiting_ = false;
  const QString current = currentProperty();
  properties_->setProperties(properties);
  if (const int row = properties_->rowOf(current); row >= 0 && row != currentIndex().row())
    setCurrentIndex(properties_->index(row, kValue));
}

void PropertyGrid::showLater() {
  if (!std::exchange(waiting_, false)) return;
  // The next cell may already be open: it is opened again at its new position.
  const bool wasEditing = isEditing();
  if (!commitPending()) return;
  const QString current = currentProperty();
  properties_->setProperties(later_);
  const int row = properties_->rowOf(current);
  if (row < 0) return;
  setCurrentIndex(properties_->index(row, kValue));
  if (wasEditing) TDBGrid::edit(currentIndex());
}

void PropertyGrid::editProperty(const QString& name, int column) {
  const int row = properties_->rowOf(name);
  if (row < 0) return;
  const QModelIndex index = properties_->index(row, kValue);
  setFocus();
  setCurrentIndex(index);
  scrollTo(index);
  TDBGrid::edit(index);
  auto* editor = qobject_cast<QLineEdit*>(indexWidget(index));
  if (!editor || column <= 0) return;
  editor->deselect();
  editor->setCursorPosition(column - 1);
}

QString PropertyGrid::currentProperty() const {
  const QModelIndex current = currentIndex();
  return current.isValid() && current.row() < properties_->rowCount() ? properties_->at(current).name
                                                                      : QString();
}

// A choice can be typed by its first letters, or picked from the list that F4 opens.
QLineEdit* PropertyGrid::makeEditor(QWidget* parent, const QModelIndex& index) {
  QLineEdit* editor = EntryGrid::makeEditor(parent, index);
  editor->setMaxLength(layout::kLongestText);
  const QStringList choices = choicesOf(properties_->at(index));
  if (choices.isEmpty()) return editor;
  auto* completer = new QCompleter(choices, editor);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->setFilterMode(Qt::MatchContains);
  editor->setCompleter(completer);
  connect(completer, qOverload<const QString&>(&QCompleter::activated), this,
          [this, editor](const QString& text) {
            editor->setText(text);
            editor->setModified(true);
            leave(editor);
          });
  auto* drop = new QAction(editor);
  drop->setShortcuts({QKeySequence(Qt::Key_F4), QKeySequence(Qt::ALT | Qt::Key_Down)});
  drop->setShortcutContext(Qt::WidgetShortcut);
  editor->addAction(drop);
  connect(drop, &QAction::triggered, completer, [completer] {
    completer->setCompletionPrefix({});
    completer->complete();
  });
  return editor;
}

void PropertyGrid::take(QLineEdit* editor, const QModelIndex& index) {
  // Storing may replace the displayed properties: get the name first.
  const QString name = properties_->at(index).name;
  storeProperty_(name, editor->text());
}

// F4 opens the cell and its list.
void PropertyGrid::keyPressEvent(QKeyEvent* event) {
  const QModelIndex index = currentIndex();
  if (event->key() == Qt::Key_F4 && index.isValid()) {
    const QModelIndex value = properties_->index(index.row(), kValue);
    setCurrentIndex(value);
    TDBGrid::edit(value);
    auto* editor = qobject_cast<QLineEdit*>(indexWidget(value));
    if (editor && editor->completer()) {
      editor->completer()->setCompletionPrefix({});
      editor->completer()->complete();
    }
    return;
  }
  EntryGrid::keyPressEvent(event);
}

}  // namespace velmar
