// Reads an XML file from outside: strictly, without expanding or fetching anything, with the elements found
// by their paths.
#pragma once

#include <optional>
#include <QByteArray>
#include <QStringList>
#include <vector>

namespace velmar {

/// The elements of a file, in the order of the document.
class XmlText {
 public:
  /// How paths name the elements: as the file does, or without the prefix of their namespace.
  enum class Names { WithPrefix, Local };

  /// Throws RuleError, with the line where there is one, for a text that is not well-formed, has a document
  /// type, or an encoding other than UTF-8, UTF-16, ISO-8859-1, ISO-8859-2, Windows-1250 and Windows-1252, or
  /// bytes that are none of its encoding.
  explicit XmlText(const QByteArray& bytes, Names names = Names::WithPrefix);

  QString root() const;
  QString rootNamespace() const;
  /// The first element with that path; nothing if there is none. "a/b" is a path from the root; "//a/b" is an
  /// element b in an element a anywhere.
  std::optional<int> find(const QString& path) const;
  /// The first element with that path below the element.
  std::optional<int> find(int element, const QString& path) const;
  /// The text of the element and all in it, without surrounding blanks.
  QString text(int element) const;
  /// The text of the first element with that path below the element; "" without one.
  QString text(int element, const QString& path) const;
  /// "" without the attribute.
  QString attribute(int element, const QString& name) const;
  QString name(int element) const;
  /// The line of its start tag in the file, from 1.
  int line(int element) const;
  std::vector<int> children(int element) const;
  /// All texts and attributes below the root, in the order of the document: path ("a/b", "a/b@c") and value.
  std::vector<std::pair<QString, QString>> fields() const;

 private:
  struct Element {
    QString name;
    int parent = -1;
    int end = 0;  ///< behind the last element in it
    int line = 0;
    QString text;
    QList<std::pair<QString, QString>> attributes;
  };

  bool matches(int element, const QStringList& names, int above) const;

  std::vector<Element> elements_;
  QString rootNamespace_;
};

}  // namespace velmar
