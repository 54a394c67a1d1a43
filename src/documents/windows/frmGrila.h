// The common window of all documents: commands, header, list of drafts, lines with their totals. The windows
// of the kinds add their own parts.
#pragma once

#include <functional>
#include <QWidget>

#include "documents/DocumentEditor.h"
#include "util/Errors.h"

class QBoxLayout;
class QCheckBox;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace velmar {

class HeaderForm;
class LineGrid;
class LineModel;
class LineSource;
class SourceLists;
class TDBGrid;

class frmGrila : public QWidget {
  Q_OBJECT
 public:
  /// The window of the kind with that prefix. Kinds without controls of their own use this class.
  explicit frmGrila(const QString& prefix, QWidget* parent = nullptr);

  /// Reads the list of drafts and those of the header again.
  virtual void refreshLists();

  QSize sizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  /// The window remains open when the user does not want to leave a changed header.
  void closeEvent(QCloseEvent* event) override;

  DocumentEditor& editor() { return editor_; }
  HeaderForm* header() { return header_; }
  LineGrid* lines() { return lines_; }
  TDBGrid* drafts() { return drafts_; }
  QCheckBox* bySupplierCode() { return bySupplierCode_; }

  /// The command for a new document.
  virtual void startDocument() { newDocument(); }
  /// Prints the document on screen.
  virtual void print();
  /// Starts a new document.
  void newDocument();
  /// Stores the header and moves to the lines.
  void save();
  /// Prints the stored document on an ordinary printer.
  void printStored();
  /// Shows the editor's document: header, lines and the drafts beside it.
  void showDocument();

  /// Shows what is stored, after the store has refused a change because another user changed the draft. What
  /// the user typed in the header is kept where the other user changed nothing.
  void changedElsewhere();
  void refreshDrafts();

  /// Called when a document is shown, after its header.
  virtual void documentShown() {}
  /// Called when the totals of the lines are shown.
  virtual void totalsShown() {}
  /// Called when something in the header has changed, after the editor has been updated.
  virtual void headerTouched() {}
  /// Called when the user has chosen something in a field of the header, after the editor has been updated.
  virtual void fieldChosen(const QString& /*key*/) {}

  /// Adds what the source offers under that number to the document on screen.
  void addLines(const LineSource& source, const QString& number);
  /// Reads the lists of the sources again.
  void refreshSources();

  // Used by the windows of the kinds to add their parts.
  void addCommand(QPushButton* button);
  void addBesideCheck(QWidget* widget);

  /// Runs a command: commits an open cell, then runs the work guarded.
  void run(const QString& procedure, const std::function<void()>& work);
  /// Stores the current header and shows it in the list of drafts.
  void saveHeader();
  /// The number of the draft for an import of its lines. Throws RuleError without one, and with lines.
  QString numberForImport(const QString& missing, const QString& filled);
  /// Reads the draft again after an import.
  void showImported();
  void recolourLines();

 private:
  QBoxLayout* commandRow();
  QBoxLayout* headerRow();
  void addCommand(const QString& name, const QString& caption, const QString& toolTip, const QString& picture,
                  void (frmGrila::*action)());
  QWidget* draftsFrame();
  void lockOrigin();
  void buildLines();
  void orderTabs();

  void validate();
  void sterge();
  void openSelected();
  void openDraft(const QString& number);
  /// Asks whether to save a changed header before another document is shown. False: the user stays, and the
  /// typed header is unchanged.
  bool leaveHeader();
  void beginDocument();
  void shortcut(const QKeySequence& key, const QString& button);

  void Salvare();
  void AfisareAntet();
  void DetaliiFactura();
  void GridFooterText();
  void showRule(const RuleError& rule);
  void followHeader();
  void followChoice(const QString& key);
  void showHeaderChanges();

  DocumentEditor editor_;
  HeaderForm* header_;
  QHBoxLayout* commands_;
  QVBoxLayout* lists_;        ///< drafts and the frames below them
  QHBoxLayout* besideCheck_;  ///< the row above the lines
  SourceLists* sources_;
  QList<QWidget*> added_;      ///< by the windows of the kinds, in tab order
  TDBGrid* drafts_ = nullptr;  ///< TDBGrid2
  QCheckBox* bySupplierCode_ = nullptr;
  LineModel* lineModel_ = nullptr;
  LineGrid* lines_ = nullptr;  ///< TDBGrid1
  bool ordered_ = false;       ///< tab order and mnemonics are set
  bool listening_ = false;     ///< already connected to the activation of its frame
};

}  // namespace velmar
