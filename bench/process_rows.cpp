#include "bench/process_rows.h"

#include "bench/process.h"
#include "bench/texts.h"
#include "platform/encoding.h"

namespace bench {

Row MeasureStart(const Plan& plan) {
  const Command tool = {ZORVAND_BENCH_PROGRAMS "/bench_start_tool"};
  const Command empty = {ZORVAND_BENCH_PROGRAMS "/bench_start_empty"};
  SecondsOfRun(tool);
  SecondsOfRun(empty);
  Measured measured;
  for (int round = 0; round < 4 * plan.rounds; ++round) {
    measured.tool.push_back(SecondsOfRun(tool));
    measured.beside.push_back(SecondsOfRun(empty));
  }
  return TimedRow("start to first paint of the project window",
                  "a program that shows an empty QWidget", measured, {Target::Kind::kAtMost, 1.5});
}

Row MeasureMemory(const Plan& plan) {
  constexpr std::size_t kCharacters = 20 * 1024 * 1024;
  const std::string input = plan.work.NewFolder("input");
  WriteFile(input + "/text.txt", platform::EncodeMachineCodePage(CleanText(kCharacters)));
  Times tool;
  Times bare;
  for (int round = 0; round < plan.rounds; ++round) {
    const std::string folder = plan.work.NewFolder("memory");
    tool.push_back(std::stod(
        OutputOf({ZORVAND_BENCH_PROGRAMS "/bench_memory_tool", folder, input, "text.txt"})));
    bare.push_back(
        std::stod(OutputOf({ZORVAND_BENCH_PROGRAMS "/bench_memory_bare", input + "/text.txt"})));
  }
  return SizedRow("peak memory with a text of 20 MB open", "a bare QTextEdit with it", Median(tool),
                  Median(bare), {Target::Kind::kAtMost, 1.2});
}

}  // namespace bench
