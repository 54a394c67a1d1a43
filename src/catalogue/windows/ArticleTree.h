// The tree of families with their articles. A family's articles are read when it is expanded, so that the
// tree opens quickly with a large catalogue.
#pragma once

#include <optional>
#include <QAbstractItemModel>
#include <vector>

namespace velmar {

class ArticleTree : public QAbstractItemModel {
  Q_OBJECT
 public:
  enum class Node { Root, Family, Article };

  explicit ArticleTree(QObject* parent = nullptr);

  QModelIndex root() const { return index(0, 0); }
  /// The article's node; reads its family. Invalid when the article has no family.
  QModelIndex nodeOf(const QString& article);

  static Node kindOf(const QModelIndex& node);
  /// The code of a family.
  qint64 familyCode(const QModelIndex& node) const;
  /// The code of an article.
  QString articleCode(const QModelIndex& node) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& node) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& = {}) const override { return 1; }
  bool hasChildren(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& node, int role) const override;

 private:
  struct Article {
    QString code, name;
  };
  struct Family {
    qint64 code = 0;
    QString name;
    bool hasArticles = false;
    std::optional<std::vector<Article>> articles;  ///< empty until they are read
  };

  const Family& familyOf(const QModelIndex& node) const;
  const Article& articleOf(const QModelIndex& node) const;

  std::vector<Family> families_;
};

}  // namespace velmar
