// The list of customers or suppliers, with the partner's card.
#pragma once

#include <optional>

#include "catalogue/windows/CatalogueForm.h"

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace velmar {

class NumberBox;
class SearchCombo;

class frmTerti : public CatalogueForm {
  Q_OBJECT
  Q_PROPERTY(QString TipTert MEMBER tipTert_ CONSTANT)
 public:
  /// `TipTert` is "C" for the list of customers, "F" for that of suppliers.
  frmTerti(const QString& TipTert, QWidget* parent = nullptr);

  /// Opens an empty card; `taken` receives the code of the partner that is added.
  void addFor(std::function<void(const QString& code)> taken);

 protected:
  void showRecord(const Row* record) override;
  void startNew() override;
  void tabChanged() override;

 private:
  QWidget* searchRow();
  QWidget* cardPage();
  QWidget* headLine();
  QWidget* identityFrame();
  QWidget* addressFrame(const QString& title, int firstField);
  QWidget* contactFrame();
  QWidget* tradeFrame();
  QWidget* personFrame();
  QLineEdit* fieldBox(int index);
  void addField(QFormLayout* rows, int index);
  QComboBox* kindList();
  void kindLetter(QWidget* parent);
  QList<QPushButton*> commands();

  void add();
  void save();
  void remove();
  void search();
  void balances();
  std::optional<Decimal> typedDiscount() const;

  Row shown_;  ///< the partner as the card showed it
  QString tipTert_;
  std::function<void(const QString& code)> addedFor_;
  SearchCombo* cboIDAngajator_ = nullptr;
  QList<QPushButton*> cardCommands_;
  QList<QPushButton*> listCommands_;
};

/// Factories for the two menu commands.
QWidget* makeCustomers(QWidget* parent);
QWidget* makeSuppliers(QWidget* parent);

}  // namespace velmar
