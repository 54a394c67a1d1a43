// The lists beside a document whose rows add lines to it: delivery notes, orders, pallets.
#pragma once

#include <functional>
#include <QGroupBox>
#include <QObject>

#include "documents/LineSource.h"
#include "store/windows/TDBGrid.h"

namespace velmar {

/// A click on a row, or Enter, chooses it each time, current or not. Arrow keys only move.
class SourceLists : public QObject {
  Q_OBJECT
 public:
  explicit SourceLists(QWidget* window) : QObject(window) {}

  /// Makes the list of the source in a frame of its own; null when the source has no list.
  QGroupBox* add(const LineSource& source, QWidget* window);

  /// Reads the offered rows again. The chosen row stays while it is offered.
  void refresh(const Document& document);
  /// Shows and enables the lists as the lines of the document require.
  void show(const Document& document);

  QList<QWidget*> lists() const;

 signals:
  /// The user has chosen the row with that number in `list`.
  void chosen(const velmar::LineSource* source, const QString& number, const QString& list);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Offered {
    const LineSource* source;
    QWidget* frame;
    TDBGrid* list;
  };

  void choose(QObject* list);

  QList<Offered> offered_;
};

}  // namespace velmar
