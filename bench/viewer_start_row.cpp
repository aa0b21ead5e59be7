#include "bench/viewer_start_row.h"

#include <filesystem>

#include "bench/process.h"
#include "platform/text/encoding.h"

namespace bench {
namespace {

constexpr int kRows = 3;
constexpr int kCollectionsInRow = 10;
constexpr int kPages = 20'000;
constexpr int kManyCollections = 100'000;
constexpr int kFewCollections = 1'000;

std::string BookBytes(const std::u16string& text) {
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text);
}

std::u16string Digits(int number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

void WriteIndex(const std::string& data, int collectionsInRow) {
  std::u16string index = u"<strings>\r\n\t<aTitle0>Designed by</aTitle0>\r\n";
  for (int row = 0; row < kRows; ++row) {
    for (int number = 1; number <= collectionsInRow; ++number) {
      const std::u16string key = static_cast<char16_t>(u'a' + row) + (u"Title" + Digits(number));
      index += u"\t<" + key + u" vol=\"txt\">دفتر شماره‌ي " + Digits(number) +
               u" از قصه‌هاي باغ</" + key + u">\r\n";
    }
  }
  WriteFile(data + "/_xml/Index.xml", BookBytes(index));
  WriteFile(data + "/TXT/CDProperty.xml",
            BookBytes(u"<strings>\r\n\t<Olgoo>1</Olgoo>\r\n\t<Music>1</Music>\r\n\t<Print>1</Print>"
                      u"\r\n</strings>"));
}

std::string MakeBook(const Plan& plan, int collectionsInRow) {
  std::string root = plan.work.NewFolder("viewer");
  const std::string data = root + "/Data";
  for (const char* folder : {"/TXT", "/_xml", "/IMG", "/FlashIMG"}) {
    std::filesystem::create_directories(data + folder);
  }
  WriteIndex(data, collectionsInRow);
  return root;
}

void AddPages(const std::string& root) {
  const std::string page =
      BookBytes(u"<pgTitle>باغ</pgTitle>\r\n\r\n<pgMain>&nbsp;</pgMain>\r\n<pgMain>متن</pgMain>");
  for (int i = 0; i < kPages; ++i) {
    const std::string number = std::to_string(i);
    const std::string stem = std::string(14 - number.size(), 'A') + number;
    WriteFile(root + "/Data/TXT/" + stem + ".htm", page);
  }
}

// Programs that end once their window is painted, on a screen of their own.
class Screen {
 public:
  Command Start(const std::string& program) const {
    return {"/usr/bin/env", "QT_QPA_PLATFORM=xcb", display_, ZORVAND_BENCH_PROGRAMS "/" + program};
  }
  Command StartViewer(const std::string& book) const {
    Command command = Start("bench_viewer_start");
    command.push_back(book);
    return command;
  }

 private:
  static std::string DisplayOf(const std::string& line) {
    return "DISPLAY=:" + line.substr(0, line.find('\n'));
  }
  Dialogue server_{{"Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"}};
  std::string display_ = DisplayOf(server_.ReadLine());
};

Measured MeasureBoth(const Plan& plan, const Command& tool, const Command& beside) {
  SecondsOfRun(tool);
  SecondsOfRun(beside);
  Measured measured;
  for (int round = 0; round < 4 * plan.rounds; ++round) {
    measured.tool.push_back(SecondsOfRun(tool));
    measured.beside.push_back(SecondsOfRun(beside));
  }
  return measured;
}

}  // namespace

Row MeasureViewerStart(const Plan& plan) {
  Screen screen;
  const std::string book = MakeBook(plan, kCollectionsInRow);
  AddPages(book);
  const Measured measured =
      MeasureBoth(plan, screen.StartViewer(book), screen.Start("bench_start_empty"));
  return TimedRow("start of the viewer to its index, a book of 20,000 pages, on a screen",
                  "a program that shows an empty QWidget", measured, {Target::Kind::kAtMost, 1.5});
}

Row MeasureViewerManyCollections(const Plan& plan) {
  Screen screen;
  const Measured measured =
      MeasureBoth(plan, screen.StartViewer(MakeBook(plan, kManyCollections / kRows)),
                  screen.StartViewer(MakeBook(plan, kFewCollections / kRows)));
  return TimedRow("start of the viewer to its index, a book of 100,000 collections, on a screen",
                  "the same with 1,000", measured, {Target::Kind::kAtMost, 1.5});
}

}  // namespace bench
