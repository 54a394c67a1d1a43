// Shows what disagrees in the company's data, the way to each place, and the corrections.
#pragma once

#include "documents/Invariants.h"
#include "store/windows/ListForm.h"

namespace velmar {

class frmVerificare : public ListForm {
  Q_OBJECT
 public:
  explicit frmVerificare(QWidget* parent = nullptr);

 protected:
  void showRecord(const Row* record) override;

 private:
  std::unique_ptr<RowSource> check();
  const Disagreement* current() const;
  void showDocument();
  void correct();

  std::vector<Disagreement> found_;
  QLabel* lblNo_;
  QPushButton* cmdDocument_ = nullptr;
  QPushButton* cmdCorectie_ = nullptr;
};

}  // namespace velmar
