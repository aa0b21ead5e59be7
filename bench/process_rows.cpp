#include "bench/process_rows.h"

#include <QFont>
#include <QStringList>
#include <cstdlib>

#include "bench/process.h"
#include "bench/texts.h"
#include "platform/qt/fonts.h"
#include "platform/text/encoding.h"

namespace bench {
namespace {

// A variable of the environment, for as long as this lives.
class Setting {
 public:
  Setting(const char* name, const std::string& value) : name_(name) {
    const char* const before = ::getenv(name);
    hadValue_ = before != nullptr;
    if (hadValue_) before_ = before;
    ::setenv(name, value.c_str(), 1);
  }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;
  ~Setting() { hadValue_ ? ::setenv(name_, before_.c_str(), 1) : ::unsetenv(name_); }

 private:
  const char* name_;
  bool hadValue_;
  std::string before_;
};

// Beside one that asks for a font, too: to find it among those of the machine takes longer than to
// show a window.
Row MeasureStarts(const Plan& plan, const std::string& work) {
  const QFont font = platform::WindowFont();
  const Command tool = {ZORVAND_BENCH_PROGRAMS "/bench_start_tool"};
  const Command label = {ZORVAND_BENCH_PROGRAMS "/bench_start_label",
                         font.families().constFirst().toStdString(),
                         std::to_string(font.pixelSize())};
  SecondsOfRun(tool);
  SecondsOfRun(label);
  Measured measured;
  for (int round = 0; round < 4 * plan.rounds; ++round) {
    measured.tool.push_back(SecondsOfRun(tool));
    measured.beside.push_back(SecondsOfRun(label));
  }
  return TimedRow(work, "a program that shows one label in that font", measured,
                  {Target::Kind::kAtMost, 1.25});
}

}  // namespace

Row MeasureStart(const Plan& plan) {
  Dialogue server({"Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
  const std::string number = server.ReadLine();
  const Setting platform("QT_QPA_PLATFORM", "xcb");
  const Setting display("DISPLAY", ":" + number.substr(0, number.find('\n')));
  return MeasureStarts(plan, "start to first paint of the project window, on a screen");
}

Row MeasureStartOffscreen(const Plan& plan) {
  const Setting platform("QT_QPA_PLATFORM", "offscreen");
  return MeasureStarts(plan, "start to first paint of the project window, offscreen");
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
