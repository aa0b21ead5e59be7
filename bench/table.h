// The table that the bench prints.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "bench/timing.h"
#include "bench/work_folder.h"

namespace bench {

// What a ratio is held against: tool by other at most, or other by tool at least.
struct Target {
  enum class Kind { kAtMost, kTimesAsFast };
  Kind kind;
  double bound;
};

struct Row {
  std::string work;
  std::string beside;
  std::string toolFigure;    // a median with its unit
  std::string besideFigure;  // the same
  double ratio = 0;
  Target target{};
  // Time per item at ten times the size, by that at the size itself.
  std::optional<double> growth = {};
  std::optional<double> besideGrowth = {};
};

// With the medians of what was measured; growth where there are times of ten times the size.
Row TimedRow(std::string work, std::string beside, const Measured& measured, Target target);
Row SizedRow(std::string work, std::string beside, double toolKilobytes, double besideKilobytes,
             Target target);

// The highest growth that still counts as linear.
inline constexpr double kLinear = 1.2;
bool IsMet(const Row& row);

// As lines of Markdown.
std::string TableHead();
std::string TableLine(const Row& row);

// How a row is measured. `rounds` pairs, the two sides by turns.
struct Plan {
  WorkFolder& work;
  int rounds;
};
struct NamedRow {
  std::string name;
  std::function<Row(const Plan& plan)> measure;
  bool inMemory = false;  // its work folder
};

}  // namespace bench
