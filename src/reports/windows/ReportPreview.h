// The preview in the designer: draws one page of the report with the current data.
#pragma once

#include <memory>
#include <QWidget>

#include "util/windows/PrintJob.h"

class QLabel;
class QScrollArea;
class QSpinBox;

namespace velmar {

class ReportPreview : public QWidget {
  Q_OBJECT
 public:
  explicit ReportPreview(QWidget* parent = nullptr);

  /// Shows the job, at the page shown before if it still exists; for nullptr shows the text `why` instead.
  void setJob(std::unique_ptr<PrintJob> job, const QString& why = {});

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showPage();

  std::unique_ptr<PrintJob> job_;
  QSpinBox* txtPagina_;
  QLabel* lblPagini_;
  QScrollArea* area_;
  QLabel* sheet_;
};

}  // namespace velmar
