// The pages of a report beside its designer: drawn with the data of the moment, the page that is looked at.
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

  /// Shows the job's pages, the one looked at before where it still is; nullptr: `why` in their place.
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
