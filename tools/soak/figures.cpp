#include "tools/soak/figures.h"

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <utility>

namespace soak {
namespace {

// What allocators and caches do on their own is less; the texts of all entries are more.
constexpr double kMostMemory = 1.1;
constexpr double kMostTime = 1.5;
constexpr double kNoise = 0.25;  // seconds of a step

long Kilobytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.starts_with(name)) return std::stol(line.substr(name.size()));
  }
  return 0;
}

double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

Figure FigureOf(std::string step, double seconds) {
  return {std::move(step), seconds, Kilobytes("VmRSS:"), Kilobytes("VmHWM:")};
}

std::string LineOf(const Figure& figure) {
  std::ostringstream line;
  line << std::left << std::setw(24) << figure.step << std::right << std::fixed
       << std::setprecision(2) << std::setw(9) << figure.seconds << " s  VmRSS " << std::setw(8)
       << figure.residentKb << " kB  VmHWM " << std::setw(8) << figure.highestKb << " kB";
  return line.str();
}

std::string WhatGrew(const std::vector<Figure>& figures, std::size_t warm) {
  if (figures.size() < warm + 2) return {};
  const Figure& first = figures[warm];
  const Figure& last = figures.back();
  std::string grew;
  const double bound = kMostMemory * static_cast<double>(first.residentKb);
  if (static_cast<double>(last.residentKb) > bound)
    grew += " memory (" + first.step + " to " + last.step + ")";
  std::vector<double> early;
  std::vector<double> late;
  for (std::size_t i = warm; i < figures.size(); ++i) {
    const bool isEarly = i < warm + (figures.size() - warm) / 2;
    (isEarly ? early : late).push_back(figures[i].seconds);
  }
  if (MedianOf(late) > kMostTime * MedianOf(early) + kNoise) {
    grew += " time (" + first.step + " to " + last.step + ")";
  }
  return grew;
}

}  // namespace soak
