// The layout designer: the page, the names of the data, the properties of the selection, a preview with the
// current data, and the text of the file.
#pragma once

#include <QDialog>
#include <QUndoStack>

#include "reports/LayoutEdits.h"
#include "reports/LayoutFaults.h"
#include "reports/ReportData.h"
#include "reports/windows/DesignTools.h"

class QLabel;
class QListWidget;
class QTabWidget;

namespace velmar {

class LayoutPage;
class LayoutText;
class NameList;
class PropertyGrid;
class ReportPreview;

/// Opens the designer and returns when the user has closed it. For a file that does not exist it starts with
/// an empty page; the file is created on saving.
void designLayout(QWidget* parent, const QString& file, const ReportData& data);

class frmProiectare : public QDialog {
  Q_OBJECT
 public:
  frmProiectare(const ReportData& data, QWidget* parent);
  ~frmProiectare() override;

  using QDialog::open;
  /// Opens a file and discards unsaved changes. A file with errors is shown as text. Throws StoreError when
  /// the file cannot be read.
  void open(const QString& file);

  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum Tab { kPageTab, kPreviewTab, kTextTab };

  QWidget* namesPane();
  QWidget* middlePane();
  void connectTools();
  void connectPage();
  void addShortcuts();
  void obey(DesignTools::Command command);
  void perform(const QString& procedure, const std::function<void()>& work);

  void setState(const layout::State& state);
  void choose(const layout::Parts& parts);
  void change(const QString& text, const QString& joins, const layout::Change& change);
  void storeProperty(const QString& name, const QString& typed);
  void insertName(const QString& name, bool joins);
  void dropName(const QString& name, const QPointF& place);
  const clsFieldVarDescription* described(const QString& name) const;
  void copy();
  void paste();
  void undo();
  void redo();
  void setTool(const std::optional<layout::Kind>& kind);
  void setZoom();
  void fitPage();
  void zoomBy(int step);
  void editChosen();
  void nextPane();

  void showChosen();
  void showFaults();
  void showFault(int row);
  void showPreview();
  void showButtons();
  void tabChanged(int tab);
  /// Applies the edited text of the file. False when it has an error, which is reported and marked.
  bool takeText();
  void begin(const std::shared_ptr<const layout::Layout>& layout, bool isSaved);
  void showStatus(const QString& text);

  /// Whether there are unsaved changes.
  bool isChanged() const;
  bool mayClose();
  bool save();
  bool saveAs();
  bool saveTo(const QString& file);

  ReportData data_;
  ReportValues variables_;
  ReportValues fields_;
  ReportValues general_;
  QString file_;
  layout::State state_;
  QUndoStack stack_;
  bool isDamaged_ = false;  ///< only the text is available: it has an error
  std::vector<layout::Fault> faults_;
  layout::LayoutError damage_{{}, 0, 0};
  int lastTab_ = kPageTab;

  DesignTools* tools_;
  QTabWidget* tabs_;
  LayoutPage* page_;
  ReportPreview* preview_;
  LayoutText* txtText_;
  NameList* lstNume_;
  PropertyGrid* grdProprietati_;
  QListWidget* lstGreseli_;
  QLabel* lblAles_;
  QLabel* lblFisier_;
  QLabel* lblLoc_;
  QLabel* lblStare_;
};

}  // namespace velmar
