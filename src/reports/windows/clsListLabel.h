// Prints, previews or designs a document or report from its data and layout; all printing goes through this
// class.
#pragma once

#include <QString>

#include "reports/ReportData.h"
#include "reports/windows/LabelSheets.h"

class QWidget;

namespace velmar {

class clsListLabel {
 public:
  /// What Print_Preview does.
  enum Mode {
    Print = 256,          ///< print options, then print
    Preview = 512,        ///< preview without options
    PrintChoosing = 2048  ///< print options with a choice of the target, then output there
  };

  /// `parent`: the parent window of the dialogs.
  explicit clsListLabel(QWidget* parent) : parent_(parent) {}

  /// The full path of the project file ("\" and "/" are equivalent, the search is case insensitive).
  const QString& FileName() const { return fileName_; }
  void setFileName(const QString& path);

  /// Replaces all data set before.
  void setData(const ReportData& data) { data_ = data; }
  void setFields(std::shared_ptr<const RowSource> rows, const QStringList& columns);
  void setFields(const Recordset& rows);

  /// Appends these columns of the first row (all if none are given), in this order, to the extra variables. A
  /// record set without rows adds nothing.
  void AddVarsFromRecordset(const Recordset& rows, const QStringList& columns = {});
  void addVariable(const QString& name, const QVariant& value);
  void addField(const QString& name, const QVariant& value);

  /// For a layout of labels.
  void setLabelRun(const LabelRun& run) { labelRun_ = run; }

  /// Lets the user choose a project file in the folder of FileName(), then opens the designer.
  void Design();

  /// False when the user cancelled or the layout cannot be used, after a message. Throws RuleError when a
  /// sheet of labels has no such first place.
  bool Print_Preview(Mode mode);

  /// Whether the last run failed because of its layout.
  bool isLayoutDamaged() const { return isLayoutDamaged_; }

 private:
  bool isLayoutDamaged_ = false;
  QWidget* parent_;
  QString fileName_;
  ReportData data_;
  LabelRun labelRun_;
};

}  // namespace velmar
