// The buttons above the page of the designer: drawing tools, commands, arrangement, rows and cells, grid,
// zoom.
#pragma once

#include <optional>
#include <QWidget>

#include "reports/LayoutEdits.h"

class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QMenu;
class QPushButton;

namespace velmar {

class DesignTools : public QWidget {
  Q_OBJECT
 public:
  enum class Command { Undo, Redo, Save, SaveAs, Close };

  explicit DesignTools(QWidget* parent = nullptr);

  /// The kind of object drawn next; empty: parts are selected.
  void setTool(const std::optional<layout::Kind>& kind);
  /// Enables what can be done with the selection. The changes of the buttons apply to it.
  void showState(const layout::State& state);
  void showUndo(bool canUndo, bool canRedo);

  /// 1: as large as on paper; empty: as wide as the page pane.
  std::optional<double> zoom() const;
  /// Chooses the next larger (`step` above 0) or smaller zoom than `current`.
  void stepZoom(double current, int step);

 signals:
  // `procedure`: of the pressed button, for reports of failures.
  void toolWanted(const QString& procedure, const std::optional<velmar::layout::Kind>& kind);
  /// A change of the layout is requested; see layout::edited().
  void changeWanted(const QString& procedure, const QString& text, const velmar::layout::Change& change);
  void commandWanted(const QString& procedure, velmar::DesignTools::Command command);
  void gridChanged(const velmar::layout::Grid& grid);
  void zoomChanged();

 private:
  using Press = std::function<void(const QString& procedure)>;

  QPushButton* add(QBoxLayout* row, const QString& name, const QString& caption, const QString& toolTip,
                   const QString& picture, const Press& press);
  void addDrawing(QBoxLayout* row);
  void addCommands(QBoxLayout* row);
  void addArranging(QBoxLayout* row);
  void addOrdering(QBoxLayout* row);
  void addGridAndZoom(QBoxLayout* row);
  QMenu* tableMenu();

  layout::State state_;
  QButtonGroup* drawing_;
  QPushButton* cmdInapoi_;
  QPushButton* cmdRefacere_;
  QList<QPushButton*> arranging_;  ///< arrange several objects relative to the first
  QList<QPushButton*> ordering_;   ///< change the drawing order
  QPushButton* cmdRanduri_;
  QCheckBox* chkGrila_;
  QDoubleSpinBox* txtGrila_;
  QComboBox* cboMarime_;
};

}  // namespace velmar
