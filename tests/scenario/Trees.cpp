#include <functional>
#include <QAbstractItemView>
#include <QTreeView>

#include "Grids.h"
#include "Input.h"

namespace velmar::scenario {

namespace {

QTreeView* treeOf(Windows& windows, const Arguments& a) {
  auto* tree = qobject_cast<QTreeView*>(windows.control(a[0], a[1]));
  if (!tree || !tree->model()) throw Failure(a[1].toString() + QStringLiteral(" is no tree"));
  return tree;
}

// Visits the nodes, parents before children, until the visitor returns true.
bool visit(QAbstractItemModel* model, const QModelIndex& parent,
           const std::function<bool(const QModelIndex&)>& visitor) {
  while (model->canFetchMore(parent)) model->fetchMore(parent);
  for (int row = 0; row < model->rowCount(parent); ++row) {
    const QModelIndex node = model->index(row, 0, parent);
    if (visitor(node) || visit(model, node, visitor)) return true;
  }
  return false;
}

}  // namespace

void addTreeFunctions(Functions& functions, Windows& windows) {
  functions["treeNodes"] = [&windows](const Arguments& a) {
    const QTreeView* tree = treeOf(windows, a);
    QStringList texts;
    visit(tree->model(), tree->rootIndex(), [&texts](const QModelIndex& node) {
      texts.append(node.data(Qt::DisplayRole).toString());
      return false;
    });
    return texts;
  };
  functions["treeSelect"] = [&windows](const Arguments& a) {
    QTreeView* tree = treeOf(windows, a);
    const QString text = a[2].toString();
    QModelIndex found;
    visit(tree->model(), tree->rootIndex(), [&found, &text](const QModelIndex& node) {
      if (node.data(Qt::DisplayRole).toString().compare(text, Qt::CaseInsensitive) == 0) found = node;
      return found.isValid();
    });
    if (!found.isValid())
      throw Failure(QStringLiteral("%1 has no node \"%2\"").arg(tree->objectName(), text));
    for (QModelIndex parent = found.parent(); parent.isValid(); parent = parent.parent())
      tree->expand(parent);
    tree->scrollTo(found);
    clickAt(tree->viewport(), tree->visualRect(found).center());
    return QVariant();
  };
}

}  // namespace velmar::scenario
