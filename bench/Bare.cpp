#include "Bare.h"

#include <QFileInfo>

#include "store/Server.h"

namespace velmar::bench {

int BareStatement::run() {
  int rows = 0;
  while (step()) ++rows;
  reset();
  return rows;
}

size_t BareStatement::readAll() {
  size_t length = 0;
  while (step())
    for (int i = 0; i < cursor_->columns(); ++i) length += text(i).size();
  reset();
  return length;
}

BareConnection::BareConnection(const QString& path)
    : link_(serverOf(QFileInfo(path).path()) ? bareServer(path) : bareFile(path)) {}

}  // namespace velmar::bench
