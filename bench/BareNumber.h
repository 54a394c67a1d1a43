// The number of the next document, by bare prepared statements.
#pragma once

#include <QString>
#include <vector>

#include "Bare.h"

namespace velmar::bench {

class BareNumber {
 public:
  /// For a kind with that prefix; one whose numbers are typed has nothing to read.
  BareNumber(BareConnection& connection, const QString& prefix);

  /// One more than the highest number in use.
  double next();

 private:
  struct Keys {
    BareStatement plain, odd;
    size_t prefix;  ///< length
  };

  std::vector<BareStatement> ranges_;
  std::vector<Keys> keys_;
};

}  // namespace velmar::bench
