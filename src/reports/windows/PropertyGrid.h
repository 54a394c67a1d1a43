// The properties of what is chosen in a layout, typed by keyboard. What is refused stays in its cell to be
// mended.
#pragma once

#include "reports/LayoutProperties.h"
#include "store/windows/EntryGrid.h"

namespace velmar {

class PropertyModel;

class PropertyGrid : public EntryGrid {
  Q_OBJECT
 public:
  /// `form` names the window in error reports.
  explicit PropertyGrid(const QString& form, QWidget* parent = nullptr);

  void show(const std::vector<layout::Property>& properties);

  /// Stores what was typed; throws to refuse it.
  using StoreProperty = std::function<void(const QString& name, const QString& typed)>;
  void setStoreProperty(StoreProperty store) { storeProperty_ = std::move(store); }

  /// Opens the cell of a property, with the cursor at that column (from 1) where one is told.
  void editProperty(const QString& name, int column = 0);
  /// The property that is current, empty when none is.
  QString currentProperty() const;

 protected:
  QLineEdit* makeEditor(QWidget* parent, const QModelIndex& index) override;
  void take(QLineEdit* editor, const QModelIndex& index) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void showLater();

  PropertyModel* properties_;
  StoreProperty storeProperty_;
  std::vector<layout::Property> later_;
  bool waiting_ = false;
};

}  // namespace velmar
