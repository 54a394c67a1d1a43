// The window of customer invoices, with the list of delivery notes or orders from which an invoice can be
// created.
#pragma once

#include "documents/windows/frmGrila.h"

class QGroupBox;

namespace velmar {

class frmGrilaFC : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaFC(QWidget* parent = nullptr);

  bool IsComanda() const { return IsComanda_; }
  /// Whether the list of orders is enabled for an invoice whose lines come from no delivery note.
  void setIsComanda(bool is);

  void refreshLists() override;

 protected:
  void fieldChosen(const QString& key) override;

 private:
  QGroupBox* source(const QString& name, const QString& caption, TDBGrid* list, const QString& numberColumn,
                    const QString& dateColumn, const QString& emptyText);
  void showSource();

  bool IsComanda_ = false;
  TDBGrid* notes_;   ///< TDBGrid3
  TDBGrid* orders_;  ///< TDBGrid4
  QGroupBox* fraAvize_;
  QGroupBox* fraComenzi_;
};

}  // namespace velmar
