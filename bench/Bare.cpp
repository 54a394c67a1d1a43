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

BareConnection::BareConnection(const QString& path)
    : link_(serverOf(QFileInfo(path).path()) ? bareServer(path) : bareFile(path)) {}

}  // namespace velmar::bench
