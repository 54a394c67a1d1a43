// The print preview: turning pages, zoom, search, printing and saving.
#pragma once

#include <QDialog>
#include <QHash>
#include <QPixmap>
#include <QTimer>

#include "util/windows/PrintOutput.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QStringListModel;

namespace velmar {

class frmPrevizualizare : public QDialog {
  Q_OBJECT
 public:
  frmPrevizualizare(PrintJob& job, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLayout* toolRow();
  QPushButton* tool(const QString& name, const QString& caption, const QString& toolTip,
                    const QString& picture, const std::function<void()>& action);
  bool takeKey(const QKeyEvent& event);
  /// The list of pages beside the sheet.
  QListView* pageList();
  /// Counts pages while the program is idle, and shows their number.
  void countOn();
  /// Counts until that page or the last one is reached.
  void countTo(int page);
  void pagesCounted();
  void turnTo(int page);
  void scrollOrTurn(int step);
  void zoomBy(int step);
  qreal zoom() const;
  void showPage();
  const QPixmap& drawn(int page);
  void search();
  void print();
  void save();
  void report(const QString& text);
  void showStatus();

  PrintJob& job_;
  int page_ = 0;
  int pageCount_ = 1;  ///< counted so far
  QTimer counting_;
  QHash<int, QPixmap> drawn_;
  qreal drawnZoom_ = 0;
  QScrollArea* area_;
  QLabel* sheet_;
  QSpinBox* txtPagina_;
  QLabel* lblPagini_;
  QListView* lstPagini_;
  QStringListModel* pages_;
  QComboBox* cboMarime_;
  QLineEdit* txtCautare_;
  QLabel* lblStare_;
  QString told_;
  QPushButton* cmdPrima_;
  QPushButton* cmdInapoi_;
  QPushButton* cmdInainte_;
  QPushButton* cmdUltima_;
};

}  // namespace velmar
