#include "catalogue/windows/ArticleTree.h"

#include <algorithm>
#include <QFont>
#include <QSet>

#include "config/Lists.h"
#include "util/Errors.h"
#include "util/PlainText.h"

namespace velmar {

namespace {

// The internal id of a node: the root, a family, or from kFirstArticles on an article (with its family's
// row).
constexpr quintptr kRoot = 0;
constexpr quintptr kFamily = 1;
constexpr quintptr kFirstArticles = 2;

QString shown(const QString& name, const QString& code) {
  return visibleText(QStringLiteral("%1 (%2)").arg(name, code));
}

}  // namespace

ArticleTree::ArticleTree(QObject* parent) : QAbstractItemModel(parent) {
  QSet<qint64> filled;
  for (const Row& row :
       OpenRs("SELECT DISTINCT FAMART FROM G_ARTMAG WHERE FAMART IS NOT NULL ORDER BY FAMART"))
    filled.insert(row.integer("FAMART"));
  for (const Row& row : OpenRs(kFamilyList.sql)) {
    const qint64 code = row.integer("COD");
    families_.push_back({code, row.text("DENUMIRE"), filled.contains(code), std::nullopt});
  }
}

ArticleTree::Node ArticleTree::kindOf(const QModelIndex& node) {
  if (!node.isValid() || node.internalId() == kRoot) return Node::Root;
  return node.internalId() == kFamily ? Node::Family : Node::Article;
}

const ArticleTree::Family& ArticleTree::familyOf(const QModelIndex& node) const {
  const bool itself = kindOf(node) == Node::Family;
  return families_[itself ? static_cast<size_t>(node.row()) : node.internalId() - kFirstArticles];
}

const ArticleTree::Article& ArticleTree::articleOf(const QModelIndex& node) const {
  return (*familyOf(node).articles)[static_cast<size_t>(node.row())];
}

qint64 ArticleTree::familyCode(const QModelIndex& node) const { return familyOf(node).code; }

QString ArticleTree::articleCode(const QModelIndex& node) const { return articleOf(node).code; }

QModelIndex ArticleTree::nodeOf(const QString& article) {
  const Recordset found = OpenRs("SELECT FAMART FROM G_ARTMAG WHERE CODART = ? ORDER BY CODART", {article});
  if (found.isEmpty()) return {};
  const qint64 code = found.first().integer("FAMART");
  const auto family = std::find_if(families_.cbegin(), families_.cend(),
                                   [code](const Family& one) { return one.code == code; });
  if (family == families_.cend()) return {};
  const QModelIndex parent = index(static_cast<int>(family - families_.cbegin()), 0, root());
  if (canFetchMore(parent)) fetchMore(parent);
  const std::vector<Article>& articles = *familyOf(parent).articles;
  const auto at = std::find_if(articles.cbegin(), articles.cend(), [&article](const Article& one) {
    return one.code.compare(article, Qt::CaseInsensitive) == 0;
  });
  return at == articles.cend() ? QModelIndex() : index(static_cast<int>(at - articles.cbegin()), 0, parent);
}

QModelIndex ArticleTree::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || row >= rowCount(parent) || column != 0) return {};
  if (!parent.isValid()) return createIndex(row, column, kRoot);
  if (kindOf(parent) == Node::Root) return createIndex(row, column, kFamily);
  return createIndex(row, column, kFirstArticles + static_cast<quintptr>(parent.row()));
}

QModelIndex ArticleTree::parent(const QModelIndex& node) const {
  switch (kindOf(node)) {
    case Node::Family:
      return createIndex(0, 0, kRoot);
    case Node::Article:
      return createIndex(static_cast<int>(node.internalId() - kFirstArticles), 0, kFamily);
    case Node::Root:
      break;
  }
  return {};
}

int ArticleTree::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return 1;
  switch (kindOf(parent)) {
    case Node::Root:
      return static_cast<int>(families_.size());
    case Node::Family: {
      const auto& articles = familyOf(parent).articles;
      return articles ? static_cast<int>(articles->size()) : 0;
    }
    case Node::Article:
      break;
  }
  return 0;
}

bool ArticleTree::hasChildren(const QModelIndex& parent) const {
  const bool unread = parent.isValid() && kindOf(parent) == Node::Family && !familyOf(parent).articles;
  return unread ? familyOf(parent).hasArticles : rowCount(parent) > 0;
}

bool ArticleTree::canFetchMore(const QModelIndex& parent) const {
  return parent.isValid() && kindOf(parent) == Node::Family && !familyOf(parent).articles;
}

void ArticleTree::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  Family& family = families_[static_cast<size_t>(parent.row())];
  std::vector<Article> articles;
  guarded(QStringLiteral("treeArticole"), QStringLiteral("Expand"), [&] {
    for (const Row& row : OpenRs("SELECT CODART, DENART FROM G_ARTMAG WHERE FAMART = ? "
                                 "ORDER BY DENART NULLS FIRST, CODART",
                                 {family.code}))
      articles.push_back({row.text("CODART"), row.text("DENART")});
  });
  if (articles.empty()) {
    family.articles.emplace();
    return;
  }
  beginInsertRows(parent, 0, static_cast<int>(articles.size()) - 1);
  family.articles = std::move(articles);
  endInsertRows();
}

QVariant ArticleTree::data(const QModelIndex& node, int role) const {
  const Node kind = kindOf(node);
  if (role == Qt::FontRole && kind == Node::Family) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  if (kind == Node::Root) return QStringLiteral("Discount pe familie/articole");
  if (kind == Node::Family) return shown(familyOf(node).name, QString::number(familyOf(node).code));
  return shown(articleOf(node).name, articleOf(node).code);
}

}  // namespace velmar
