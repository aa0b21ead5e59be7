#include "bench/record_rows.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "bench/desk.h"
#include "bench/texts.h"
#include "platform/text/encoding.h"

namespace bench {
namespace {

namespace fs = std::filesystem;
using platform::Text;
using testing_support::Robot;

constexpr int kMarked = 500;
constexpr int kEntriesByKeys = 1000;
constexpr int kEntries = 5000;
constexpr std::size_t kCharacters = 4096;
constexpr std::uint32_t kDifferentTexts = 97;

std::string HeadingsAndTexts(std::uint32_t entries, std::size_t characters) {
  Text text;
  for (std::uint32_t i = 0; i < entries; ++i) {
    text.append(Heading(i)).append(platform::kCrLf);
    text.append(platform::Replace(CleanText(characters, i), platform::kCrLf, u" "))
        .append(platform::kCrLf);
  }
  return platform::EncodeMachineCodePage(text);
}

void MarkParagraph(const workbench::Form3& form3, int key) {
  const Text text = form3.matn.EditedText();
  Robot::Select("Form3", "matn", 0, static_cast<int>(text.find(u'\n')) + 1);
  Robot::PressKey("Form3", "matn", key);
}

double SecondsToMark(WorkFolder& work, bool keepsRecords) {
  Desk desk(work.NewFolder("program"), keepsRecords);
  const std::string input = work.NewFolder("input");
  WriteFile(input + "/text.txt", HeadingsAndTexts(kMarked, 500));
  desk.OpenWorkbench(work.NewFolder("project"), input);
  desk.OpenText("text.txt");
  const double seconds = SecondsOf([&] {
    for (int i = 0; i < kMarked; ++i) {
      MarkParagraph(desk.form3, Qt::Key_F2);
      MarkParagraph(desk.form3, Qt::Key_F3);
    }
  });
  if (desk.form3.entryCount != kMarked) throw std::runtime_error("not all entries were filed");
  return seconds;
}

double KilobytesIn(const std::string& folder) {
  std::uintmax_t bytes = 0;
  for (const auto& entry : fs::directory_iterator(folder)) bytes += entry.file_size();
  return static_cast<double>(bytes) / 1024;
}

void MarkFirstParagraph(int key) {
  const QTextDocument& text = *Robot::FindAs<QTextEdit>("Form3", "matn").document();
  Robot::Select("Form3", "matn", 0, text.firstBlock().length());
  Robot::PressKey("Form3", "matn", key);
}

double KilobytesByKeys(WorkFolder& work) {
  const std::string program = work.NewFolder("program");
  Desk desk(program);
  const std::string input = work.NewFolder("input");
  WriteFile(input + "/text.txt", HeadingsAndTexts(kEntriesByKeys, kCharacters));
  desk.OpenWorkbench(work.NewFolder("project"), input);
  desk.OpenText("text.txt");
  double longest = 0;
  for (int i = 0; i < kEntriesByKeys; ++i) {
    MarkFirstParagraph(Qt::Key_F2);
    MarkFirstParagraph(Qt::Key_F3);
    longest = std::max(longest, KilobytesIn(program + "/recovery"));
  }
  if (desk.form3.entryCount != kEntriesByKeys) throw std::runtime_error("not all were filed");
  return longest;
}

// A desk with 5,000 entries of 4 KB in its record.
class FullDesk {
 public:
  explicit FullDesk(WorkFolder& work)
      : work_(work), folder_(work.NewFolder("program")), desk_(folder_) {
    project_ = work_.NewFolder("project");
    desk_.OpenWorkbench(project_);
    Fill();
    Robot::Settle();
  }

  double KilobytesOfRecord() const { return KilobytesIn(folder_ + "/recovery"); }

  double SecondsToBringBack() {
    Robot::CloseWindow("Form3");
    desk_.OpenWorkbench(project_);
    const double seconds = SecondsOf([] { Robot::Click("Recovery", "recoverBring"); });
    if (desk_.form3.entryCount != kEntries) throw std::runtime_error("not all came back");
    return seconds;
  }

  double SecondsToBuild() {
    const double seconds = SecondsOf([&] { desk_.form3.MakeFile(); });
    if (desk_.robot.TakeBoxes().size() != 1) throw std::runtime_error("nothing was built");
    return seconds;
  }

 private:
  void Fill() {
    workbench::Form3& form3 = desk_.form3;
    for (int entry = 0; entry < kEntries; ++entry) {
      const auto seed = static_cast<std::uint32_t>(entry) % kDifferentTexts;
      if (static_cast<std::size_t>(seed) == rich_.size()) rich_.push_back(RichText(seed));
      form3.table.entryTitle.Set(entry, Heading(seed));
      form3.table.entryText.Set(entry, rich_[seed]);
      form3.lines.Insert(entry, Heading(seed));
      form3.bindex.AddItem(Heading(seed));
    }
    form3.matn.SetText(u"");
    form3.entryCount = kEntries;
  }

  Text RichText(std::uint32_t seed) {
    platform::RichTextBox& box = desk_.form3.matn;
    box.SetText(CleanText(kCharacters, seed));
    box.SetSelStart(0);
    box.SetSelLength(box.TextLength());
    return box.SelRTF();
  }

  WorkFolder& work_;
  std::string folder_;
  std::string project_;
  Desk desk_;
  std::vector<Text> rich_;
};

}  // namespace

Row MeasureRecordCost(const Plan& plan) {
  SecondsToMark(plan.work, true);
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(SecondsToMark(plan.work, true));
    measured.beside.push_back(SecondsToMark(plan.work, false));
  }
  return TimedRow("1,000 commands with their record on the disk", "the same without a record",
                  measured, {Target::Kind::kAtMost, 1.1});
}

Row MeasureRecordSize(const Plan& plan) {
  const FullDesk desk(plan.work);
  constexpr double kTexts = static_cast<double>(kEntries * kCharacters) / 1024;
  return SizedRow("the record of 5,000 entries of 4 KB", "their texts in the input files",
                  desk.KilobytesOfRecord(), kTexts, {Target::Kind::kAtMost, 1.3});
}

Row MeasureRecordByKeys(const Plan& plan) {
  constexpr double kTexts = static_cast<double>(kEntriesByKeys * kCharacters) / 1024;
  return SizedRow("the record while 1,000 entries of 4 KB are filed by keys, at its longest",
                  "their texts in the input file", KilobytesByKeys(plan.work), kTexts,
                  {Target::Kind::kAtMost, 1.3});
}

Row MeasureBringingBack(const Plan& plan) {
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    FullDesk desk(plan.work);
    measured.tool.push_back(desk.SecondsToBringBack());
    measured.beside.push_back(desk.SecondsToBuild());
  }
  return TimedRow("bringing back 5,000 entries of 4 KB", "building them", measured,
                  {Target::Kind::kAtMost, 0.5});
}

}  // namespace bench
