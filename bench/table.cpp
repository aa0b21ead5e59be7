#include "bench/table.h"

#include <array>
#include <cstdio>
#include <utility>

namespace bench {
namespace {

template <typename... Values>
std::string Formatted(const char* format, Values... values) {
  std::array<char, 64> buffer;
  std::snprintf(buffer.data(), buffer.size(), format, values...);
  return buffer.data();
}

std::string InMilliseconds(double seconds) {
  const double milliseconds = 1000 * seconds;
  return Formatted(milliseconds < 10 ? "%.2f ms" : "%.0f ms", milliseconds);
}

double RatioOf(double tool, double beside, Target target) {
  return target.kind == Target::Kind::kAtMost ? tool / beside : beside / tool;
}

std::string TargetText(Target target) {
  const bool atMost = target.kind == Target::Kind::kAtMost;
  return Formatted(atMost ? "at most %g" : "at least %g times as fast", target.bound);
}

bool IsBoundMet(const Row& row) {
  return row.target.kind == Target::Kind::kAtMost ? row.ratio <= row.target.bound
                                                  : row.ratio >= row.target.bound;
}

std::string GrowthText(const Row& row) {
  if (!row.growth) return "";
  std::string text = Formatted("%.2f", *row.growth);
  text += *row.growth <= kLinear ? ", linear" : ", NOT LINEAR";
  if (row.besideGrowth) text += Formatted(" (beside it: %.2f)", *row.besideGrowth);
  return text;
}

}  // namespace

Row TimedRow(std::string work, std::string beside, const Measured& measured, Target target) {
  const double tool = Median(measured.tool);
  const double other = Median(measured.beside);
  Row row{std::move(work),
          std::move(beside),
          InMilliseconds(tool),
          InMilliseconds(other),
          RatioOf(tool, other, target),
          target};
  if (!measured.toolTenfold.empty()) row.growth = Median(measured.toolTenfold) / 10 / tool;
  if (!measured.besideTenfold.empty()) {
    row.besideGrowth = Median(measured.besideTenfold) / 10 / other;
  }
  return row;
}

Row SizedRow(std::string work, std::string beside, double toolKilobytes, double besideKilobytes,
             Target target) {
  const auto inMegabytes = [](double kilobytes) { return Formatted("%.0f MB", kilobytes / 1024); };
  return {std::move(work),
          std::move(beside),
          inMegabytes(toolKilobytes),
          inMegabytes(besideKilobytes),
          RatioOf(toolKilobytes, besideKilobytes, target),
          target};
}

bool IsMet(const Row& row) { return IsBoundMet(row) && (!row.growth || *row.growth <= kLinear); }

std::string TableHead() {
  return "| Work | Beside | Zorvand | Beside it | Ratio | Target | | Per item at 10 times the size "
         "|\n"
         "|---|---|---|---|---|---|---|---|\n";
}

std::string TableLine(const Row& row) {
  std::string line;
  for (const std::string& cell :
       {row.work, row.beside, row.toolFigure, row.besideFigure, Formatted("%.2f", row.ratio),
        TargetText(row.target), std::string(IsBoundMet(row) ? "met" : "MISSED"), GrowthText(row)}) {
    line.append("| ").append(cell).append(" ");
  }
  return line + "|\n";
}

}  // namespace bench
