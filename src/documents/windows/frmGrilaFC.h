// The customer invoice's window: the common one, with the list of delivery notes or of orders that an invoice
// can be made of.
#pragma once

#include "documents/windows/frmGrila.h"

class QGroupBox;

namespace velmar {

class frmGrilaFC : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaFC(QWidget* parent = nullptr);

  bool IsComanda() const { return IsComanda_; }
  /// Whether the list of orders may be used on an invoice whose lines come from no note.
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
