// The one class through which every printed document and every report passes: data and a layout in, pages or
// the designer out.
#pragma once

#include <QString>

#include "reports/ReportData.h"

class QWidget;

namespace velmar {

class clsListLabel {
 public:
  /// What Print_Preview does.
  enum Mode {
    Print = 256,          ///< the print options, then the printer
    Preview = 512,        ///< the preview at once
    PrintChoosing = 2048  ///< the print options with a choice of the target, then there
  };

  /// `parent`: the window over which dialogs stand.
  explicit clsListLabel(QWidget* parent) : parent_(parent) {}

  /// The project file, its whole path ("\" and "/" alike, found without regard to case).
  const QString& FileName() const { return fileName_; }
  void setFileName(const QString& path);

  /// Everything at once, in place of what was set before.
  void setData(const ReportData& data) { data_ = data; }
  void setFields(std::shared_ptr<const RowSource> rows, const QStringList& columns);
  void setFields(const Recordset& rows);

  /// Appends the first row's columns of these names, in this order (all columns where none is named), to the
  /// extra variables. A record set without rows adds nothing.
  void AddVarsFromRecordset(const Recordset& rows, const QStringList& columns = {});
  void addVariable(const QString& name, const QVariant& value);
  void addField(const QString& name, const QVariant& value);

  /// Lets the user choose the project file where FileName() stands, then shows the designer on it.
  void Design();

  /// False when the user gave up or the layout cannot be used (which is told).
  bool Print_Preview(Mode mode);

  /// Whether the last run failed for its layout.
  bool isLayoutDamaged() const { return isLayoutDamaged_; }

 private:
  bool isLayoutDamaged_ = false;
  QWidget* parent_;
  QString fileName_;
  ReportData data_;
};

}  // namespace velmar
