#include "bench/marking_rows.h"

#include <stdexcept>

#include "bench/desk.h"
#include "platform/text/encoding.h"

namespace bench {
namespace {

using platform::Text;
using testing_support::Robot;

constexpr int kEntries = 1000;
constexpr int kFiled = 30'000;
constexpr int kHeading = 20;
constexpr int kPassage = 150;

// Words without any mark, so that the clean-up leaves their number as it is.
Text Words(int characters) {
  Text words;
  for (int i = 0; i < characters; ++i) words += i % 7 == 6 ? u' ' : u'س';
  return words;
}

// A heading and a passage by turns, each a paragraph.
Text EntriesText() {
  Text text;
  for (int i = 0; i < kEntries; ++i) {
    for (const int length : {kHeading, kPassage})
      text.append(Words(length)).append(platform::kCrLf);
  }
  return text;
}

class MarkingDesk {
 public:
  explicit MarkingDesk(WorkFolder& work) : desk_(work.NewFolder("program")) {
    const std::string input = work.NewFolder("input");
    WriteFile(input + "/text.txt", platform::EncodeMachineCodePage(EntriesText()));
    desk_.OpenWorkbench(work.NewFolder("project"), input);
  }

  // Files all entries of the text after as many as are filed.
  double SecondsToMark(int filed) {
    desk_.form3.ResetA();
    for (int i = 0; i < filed; ++i) File(i);
    desk_.OpenText("text.txt");
    const double seconds = SecondsOf([&] {
      for (int i = 0; i < kEntries; ++i) {
        Mark(Qt::Key_F2, kHeading);
        Mark(Qt::Key_F3, kPassage);
      }
    });
    if (desk_.form3.entryCount != filed + kEntries || desk_.form3.matn.TextLength() > 1) {
      throw std::runtime_error("not all entries were filed");
    }
    return seconds;
  }

 private:
  // What an earlier passage has left; no box is asked for it.
  void File(int row) {
    desk_.form3.table.entryTitle.Set(row, u"heading");
    desk_.form3.table.entryText.Set(row, u"{\\rtf1 passage}");
    desk_.form3.bindex.AddItem(u"heading   =>   passage");
    desk_.form3.entryCount = row + 1;
  }

  // With the paragraph's end.
  static void Mark(int key, int length) {
    Robot::Select("Form3", "matn", 0, length + 1);
    Robot::PressKey("Form3", "matn", key);
  }

  Desk desk_;
};

}  // namespace

Row MeasureMarkingMore(const Plan& plan) {
  MarkingDesk desk(plan.work);
  desk.SecondsToMark(0);
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(desk.SecondsToMark(kFiled));
    measured.beside.push_back(desk.SecondsToMark(0));
  }
  return TimedRow("filing 1,000 entries into a table of 30,000, by F2 and F3",
                  "the same 1,000 into an empty table", measured, {Target::Kind::kAtMost, 1.2});
}

}  // namespace bench
