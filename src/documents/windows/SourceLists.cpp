#include "documents/windows/SourceLists.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include "util/windows/Controls.h"

namespace velmar {

QGroupBox* SourceLists::add(const LineSource& source, QWidget* window) {
  const SourceList& facts = source.list();
  if (facts.control.isEmpty()) return nullptr;
  auto* frame = named(new QGroupBox(facts.caption, window), facts.frame);
  auto* list = new TDBGrid(facts.control, frame);
  list->setColumns({{facts.numberColumn, "Numar", CellFormat::Text, 12},
                    {facts.dateColumn, "Data", CellFormat::Date, 11},
                    {"NUME", facts.partnerCaption, CellFormat::Text, 30}});
  list->setEmptyText(facts.emptyText);
  list->installEventFilter(this);
  connect(list, &TDBGrid::clicked, this, [this, list] { choose(list); });
  (new QVBoxLayout(frame))->addWidget(list);
  offered_.append({&source, frame, list});
  return frame;
}

void SourceLists::refresh(const Document& document) {
  for (const Offered& offered : offered_) {
    const QSignalBlocker quiet(offered.list);
    const QString column = offered.source->list().numberColumn;
    const Row* current = offered.list->currentRecord();
    const QString number = current ? current->text(column) : QString();
    offered.list->setRecordset(offered.source->offer(document));
    const int place = number.isEmpty() ? -1 : offered.list->rows().find(column, number);
    offered.list->setCurrentIndex(place < 0 ? QModelIndex() : offered.list->model()->index(place, 0));
  }
  show(document);
}

void SourceLists::show(const Document& document) {
  for (const Offered& offered : offered_) {
    offered.frame->setVisible(offered.source->isShown(document));
    offered.list->setEnabled(offered.source->isEnabled(document));
  }
}

QList<QWidget*> SourceLists::lists() const {
  QList<QWidget*> lists;
  for (const Offered& offered : offered_) lists.append(offered.list);
  return lists;
}

bool SourceLists::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      choose(watched);
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

void SourceLists::choose(QObject* list) {
  for (const Offered& offered : offered_) {
    const Row* current = offered.list == list ? offered.list->currentRecord() : nullptr;
    if (current)
      return emit chosen(offered.source, current->text(offered.source->list().numberColumn),
                         list->objectName());
  }
}

}  // namespace velmar
