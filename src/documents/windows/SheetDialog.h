// The dialog of an import from a spreadsheet: the file, what the import asks for, and the commands.
#pragma once

#include <QDialog>

class QFormLayout;
class QLabel;
class QLineEdit;

namespace velmar {

class SheetDialog : public QDialog {
  Q_OBJECT
 protected:
  SheetDialog(const QString& name, const QString& title, QWidget* parent, const QString& fileToolTip = {});
  /// The rows of the form, below the file.
  QFormLayout* rows() { return rows_; }
  /// Adds the commands; called when the form is complete.
  void finish();
  QString path() const;

  /// The work of cmdOK. A RuleError is shown, with the focus on the control of its field.
  virtual void import() = 0;
  /// The control of the field at fault; null: none.
  virtual QWidget* controlOf(const QString& /*field*/) { return nullptr; }

 private:
  void chooseFile();
  void runImport();

  QFormLayout* rows_;
  QLineEdit* txtSourceSpec1_;
  QLabel* lblProgressMsg_;
};

}  // namespace velmar
