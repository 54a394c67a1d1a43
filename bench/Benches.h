// The rows of the benchmark. Each prints its part of the table and tells whether its own checks held; an aim
// that is missed is marked in the table and is no failure.
#pragma once

namespace velmar::bench {

bool measureVouchers();
bool checkPlans();
bool measureArticles();

}  // namespace velmar::bench
