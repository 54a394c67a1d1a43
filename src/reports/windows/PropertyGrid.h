// The grid of the properties of the selected parts of a layout. A refused value remains in its cell for
// correction.
#pragma once

#include "reports/LayoutProperties.h"
#include "store/windows/EntryGrid.h"

namespace velmar {

class PropertyModel;

class PropertyGrid : public EntryGrid {
  Q_OBJECT
 public:
  /// `form` is the window's name in error reports.
  explicit PropertyGrid(const QString& form, QWidget* parent = nullptr);

  void show(const std::vector<layout::Property>& properties);

  /// Stores a typed value; throws to refuse it.
  using StoreProperty = std::function<void(const QString& name, const QString& typed)>;
  void setStoreProperty(StoreProperty store) { storeProperty_ = std::move(store); }

  /// Opens the cell of a property, with the cursor at that column (from 1) if it is not 0.
  void editProperty(const QString& name, int column = 0);
  /// The current property; empty if there is none.
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
