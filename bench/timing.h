// Wall-clock times and what is made of them.
#pragma once

#include <functional>
#include <vector>

namespace bench {

// In seconds.
using Times = std::vector<double>;

double SecondsOf(const std::function<void()>& work);

// Of at least one time.
double Median(Times times);

// Both sides of a row, and at ten times the size where the row asks for it.
struct Measured {
  Times tool;
  Times beside;
  Times toolTenfold;
  Times besideTenfold;  // where the other side grows by what the machine does, not by itself
};

}  // namespace bench
