// The print options: printer or PDF file, copies, pages, and the sheet if the job allows a choice.
#pragma once

#include <array>
#include <QDialog>

#include "util/windows/PrintOutput.h"

class QButtonGroup;
class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;
class QSpinBox;

namespace velmar {

class frmOptiuniTiparire : public QDialog {
  Q_OBJECT
 public:
  /// `leadsToPreview`: OK shows the pages before anything is printed.
  frmOptiuniTiparire(PrintJob& job, bool leadsToPreview, QWidget* parent);

  /// The chosen target; the chosen sheet is set in the job when the window is accepted.
  PrintTarget target() const;

  void accept() override;
  void reject() override;

 private:
  QWidget* printerFrame();
  QWidget* pagesFrame();
  QWidget* sheetFrame();
  QWidget* buttonRow(bool leadsToPreview);
  QPageLayout chosenLayout() const;
  void showSheet();
  void showPrinter();
  void sheetChanged();
  void countPages();

  PrintJob& job_;
  QPageLayout before_;
  int pageCount_ = 0;
  QComboBox* cboImprimanta_;
  QSpinBox* txtCopii_;
  QLabel* lblImprimanta_;
  QRadioButton* optToate_;
  QRadioButton* optPagini_;
  QSpinBox* txtDeLa_;
  QSpinBox* txtPanaLa_;
  QComboBox* cboHartie_ = nullptr;
  QRadioButton* optPortret_ = nullptr;
  QRadioButton* optPeisaj_ = nullptr;
  std::array<QSpinBox*, 4> txtMargini_ = {};  ///< left, top, right, bottom
};

}  // namespace velmar
