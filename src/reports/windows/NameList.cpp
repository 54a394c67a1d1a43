#include "reports/windows/NameList.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>

#include "reports/windows/LayoutPage.h"

namespace velmar {

namespace {

enum Column { kName, kType, kOrigin };

constexpr int kLongestValue = 60;

}  // namespace

QString typeName(LLTip type) {
  switch (type) {
    case LLTip::Number:
      return QStringLiteral("numar");
    case LLTip::Date:
    case LLTip::Day:
      return QStringLiteral("data");
    case LLTip::Boolean:
      return QStringLiteral("da/nu");
    case LLTip::Text:
      break;
  }
  return QStringLiteral("text");
}

NameList::NameList(QWidget* parent) : QTreeWidget(parent) {
  setObjectName("lstNume");
  setToolTip("Trageti numele pe pagina. Enter il adauga, Ctrl+Enter il adauga la formula aleasa.");
  setHeaderLabels({"Nume", "Tip", "Sursa"});
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setDragEnabled(true);
  setDragDropMode(DragOnly);
  header()->setSectionResizeMode(kName, QHeaderView::Stretch);
  header()->setSectionResizeMode(kType, QHeaderView::ResizeToContents);
  header()->setSectionResizeMode(kOrigin, QHeaderView::ResizeToContents);
  header()->setStretchLastSection(false);
  connect(this, &QTreeWidget::itemDoubleClicked, this,
          [this](const QTreeWidgetItem* item) { emit nameWanted(item->text(kName), false); });
}

void NameList::addNames(const QString& origin, const ReportValues& names) {
  QList<QTreeWidgetItem*> items;
  for (const clsFieldVarDescription& name : names) {
    auto* item = new QTreeWidgetItem({name.name, typeName(name.type), origin});
    if (!name.value.isNull()) item->setToolTip(kName, name.value.toString().left(kLongestValue));
    items.append(item);
  }
  addTopLevelItems(items);
  if (!currentItem() && topLevelItemCount() > 0) setCurrentItem(topLevelItem(0));
}

void NameList::setNames(const QString& origin, const ReportValues& names) {
  for (int i = topLevelItemCount() - 1; i >= 0; --i)
    if (topLevelItem(i)->text(kOrigin) == origin) delete takeTopLevelItem(i);
  addNames(origin, names);
}

void NameList::filter(const QString& text) {
  QTreeWidgetItem* first = nullptr;
  for (int i = 0; i < topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = topLevelItem(i);
    item->setHidden(!item->text(kName).contains(text.trimmed(), Qt::CaseInsensitive));
    if (!first && !item->isHidden()) first = item;
  }
  if (first && (!currentItem() || currentItem()->isHidden())) setCurrentItem(first);
}

QString NameList::currentName() const {
  const QTreeWidgetItem* item = currentItem();
  return item && !item->isHidden() ? item->text(kName) : QString();
}

QStringList NameList::mimeTypes() const { return {QLatin1String(kNameMime)}; }

QMimeData* NameList::mimeData(const QList<QTreeWidgetItem*>& items) const {
  if (items.isEmpty()) return nullptr;
  auto* dragged = new QMimeData;
  dragged->setData(kNameMime, items.first()->text(kName).toUtf8());
  return dragged;
}

void NameList::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
    return QTreeWidget::keyPressEvent(event);
  if (const QString name = currentName(); !name.isEmpty())
    emit nameWanted(name, event->modifiers() & Qt::ControlModifier);
}

}  // namespace velmar
