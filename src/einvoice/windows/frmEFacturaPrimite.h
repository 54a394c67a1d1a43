// The electronic invoices of suppliers that were read last: what they lack, taking over, display.
#pragma once

#include <QWidget>

class QPushButton;

namespace velmar {

class TDBGrid;
class Row;
class StatusText;

class frmEFacturaPrimite : public QWidget {
  Q_OBJECT
 public:
  explicit frmEFacturaPrimite(QWidget* parent = nullptr);

  QSize sizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void show();
  /// Reads the files and shows them in place of the list.
  void take(const QStringList& paths);
  /// The current file. Throws RuleError without one.
  const Row& current() const;

  void readFiles();
  void readFolder();
  void open();
  void judgeIncomplete();
  void takeOverSelected();
  void showFields();

  TDBGrid* TDBGrid1_;
  StatusText* lblStare_;
};

}  // namespace velmar
