// Reads a small XML file from outside: strictly, without expanding or fetching anything, with the elements
// found by their paths.
#pragma once

#include <optional>
#include <QByteArray>
#include <QStringList>
#include <vector>

namespace velmar {

/// The elements of a file, in the order of the document.
class XmlText {
 public:
  /// Throws RuleError, with the line where there is one, for a text that is not well-formed, has a document
  /// type, or an encoding other than UTF-8, UTF-16, ISO-8859-1, ISO-8859-2, Windows-1250 and Windows-1252, or
  /// bytes that are none of its encoding.
  explicit XmlText(const QByteArray& bytes);

  QString root() const;
  /// The first element with that path; nothing if there is none. "a/b" is a path from the root; "//a/b" is an
  /// element b in an element a anywhere.
  std::optional<int> find(const QString& path) const;
  /// The first element with that path below the element.
  std::optional<int> find(int element, const QString& path) const;
  /// The text of the element and all in it, without surrounding blanks.
  QString text(int element) const;
  std::vector<int> children(int element) const;

 private:
  struct Element {
    QString name;
    int parent = -1;
    int end = 0;  ///< behind the last element in it
    QString text;
  };

  bool matches(int element, const QStringList& names, int above) const;

  std::vector<Element> elements_;
};

}  // namespace velmar
