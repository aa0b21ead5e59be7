#include "bench/text_rows.h"

#include <malloc.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "bench/process.h"
#include "bench/texts.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "platform/rtf/rtf.h"
#include "platform/text/encoding.h"
#include "workbench/clean_up.h"

namespace bench {
namespace {

using platform::Text;

constexpr std::size_t kMegabyte = 1024 * 1024;

// What earlier rounds gave back to the allocator goes back to the kernel, so that every size starts
// as it does the first time in a program's life. (The C library keeps blocks of up to 32 MB.)
void ForgetFreeMemory() { ::malloc_trim(0); }

// The text itself is handed over, as the window hands over what it has read.
double SecondsOfRep(Text text) {
  Text cleaned;
  ForgetFreeMemory();
  return SecondsOf([&] { cleaned = workbench::Rep(std::move(text)); });
}

double SecondsOfPlainText(const std::string& path) {
  const Text toolPath = platform::ToolPath(path);
  Text plain;
  ForgetFreeMemory();
  const double seconds = SecondsOf([&] {
    const auto file = platform::HostFileSystem().Open(toolPath, platform::OpenMode::kRead, false);
    plain = platform::rtf::PlainText(file->ReadAll());
    file->Close();
  });
  if (plain.empty()) throw std::runtime_error("no plain text");
  return seconds;
}

}  // namespace

Row MeasureCleanUp(const Plan& plan) {
  const std::string folder = plan.work.NewFolder("clean-up");
  const std::string input = folder + "/input";
  const std::string output = folder + "/output";
  const Text text = RawText(20 * kMegabyte);
  const Text tenfold = RawText(200 * kMegabyte);
  WriteFile(input, platform::EncodeUtf16(text));
  Dialogue python({"python3", ZORVAND_SOURCE_DIR "/bench/ten_replacements.py", input, output});
  python.ReadLine();
  if (ReadFile(output) != platform::EncodeUtf16(workbench::Rep(text))) {
    throw std::runtime_error("Rep and its ten replacements differ");
  }
  SecondsOfRep(tenfold);  // memory that the machine has never used costs far more the first time
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(SecondsOfRep(text));
    measured.beside.push_back(std::stod(python.Ask("again")));
    measured.toolTenfold.push_back(SecondsOfRep(tenfold));
  }
  return TimedRow("Rep, 20 MB of Persian text", "the ten str.replace calls in Python", measured,
                  {Target::Kind::kTimesAsFast, 6});
}

Row MeasurePlainText(const Plan& plan) {
  const std::string folder = plan.work.NewFolder("plain-text");
  const std::string path = folder + "/text.rtf";
  const std::string tenfold = folder + "/tenfold.rtf";
  WriteFile(path, RichText(16 * kMegabyte));
  WriteFile(tenfold, RichText(160 * kMegabyte));
  const Command catdoc = {"catdoc", "-d", "utf-8", path};
  SecondsOfPlainText(tenfold);
  SecondsOfRun(catdoc);
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(SecondsOfPlainText(path));
    measured.beside.push_back(SecondsOfRun(catdoc));
    measured.toolTenfold.push_back(SecondsOfPlainText(tenfold));
  }
  return TimedRow("reading a 16 MB file of rich text and taking its plain text",
                  "catdoc on the same file", measured, {Target::Kind::kTimesAsFast, 8});
}

}  // namespace bench
