#include "bench/paragraph_rows.h"

#include <malloc.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "bench/process.h"
#include "bench/texts.h"
#include "platform/text/encoding.h"
#include "workbench/clean_up.h"
#include "workbench/paragraphs.h"

namespace bench {
namespace {

using platform::Text;

constexpr std::size_t kMegabyte = std::size_t{1024} * 1024;
constexpr workbench::ParagraphRules kAllOptions{};

Text Sentences(std::size_t characters) { return workbench::Rep(RawText(characters)); }

Text OneLine(std::size_t characters) {
  Text line = CleanText(characters + characters / 8);  // more than the marks that go
  std::erase_if(line, [](char16_t c) { return Text(u".!\u061F\n").find(c) != Text::npos; });
  std::ranges::replace(line, u'\r', u' ');
  line.resize(characters);
  return line;
}

// The text itself is handed over, as the window hands over what it has read. What earlier rounds
// gave back to the allocator goes back to the kernel first.
double SecondsOfRebuilding(Text text) {
  Text rebuilt;
  ::malloc_trim(0);
  return SecondsOf([&] { rebuilt = workbench::RebuildParagraphs(std::move(text), kAllOptions); });
}

Measured MeasureOn(const Plan& plan, const Text& text, const Text& tenfold) {
  const std::string folder = plan.work.NewFolder("paragraphs");
  const std::string input = folder + "/input";
  const std::string output = folder + "/output";
  WriteFile(input, platform::EncodeUtf16(text));
  Dialogue python({"python3", ZORVAND_SOURCE_DIR "/bench/rebuild_paragraphs.py", input, output});
  python.ReadLine();
  const Text rebuilt = workbench::RebuildParagraphs(text, kAllOptions);
  if (ReadFile(output) != platform::EncodeUtf16(rebuilt)) {
    throw std::runtime_error("the rebuilding and its steps in Python differ");
  }
  SecondsOfRebuilding(tenfold);  // memory that the machine has never used costs far more
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(SecondsOfRebuilding(text));
    measured.beside.push_back(std::stod(python.Ask("again")));
    measured.toolTenfold.push_back(SecondsOfRebuilding(tenfold));
  }
  return measured;
}

constexpr Target kTarget = {Target::Kind::kTimesAsFast, 8};

}  // namespace

Row MeasureRebuilding(const Plan& plan) {
  return TimedRow("rebuilding the paragraphs of 20 MB, all options on",
                  "the same steps with Python's string functions",
                  MeasureOn(plan, Sentences(20 * kMegabyte), Sentences(200 * kMegabyte)), kTarget);
}

Row MeasureRebuildingOneLine(const Plan& plan) {
  return TimedRow("the same on one single line of 20 MB",
                  "the same steps with Python's string functions",
                  MeasureOn(plan, OneLine(20 * kMegabyte), OneLine(200 * kMegabyte)), kTarget);
}

}  // namespace bench
