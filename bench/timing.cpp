#include "bench/timing.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>

namespace bench {

double SecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(Times times) {
  if (times.empty()) throw std::runtime_error("nothing was measured");
  std::ranges::sort(times);
  const std::size_t middle = times.size() / 2;
  return times.size() % 2 != 0 ? times[middle] : (times[middle - 1] + times[middle]) / 2;
}

}  // namespace bench
