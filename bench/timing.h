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

// Both sides of a row, and the tool's side at ten times the size where the row asks for it.
struct Measured {
  Times tool;
  Times beside;
  Times toolTenfold;
};

}  // namespace bench
