#include "bench/build_rows.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <array>
#include <filesystem>
#include <stdexcept>

#include "bench/bare_book.h"
#include "bench/desk.h"
#include "bench/texts.h"
#include "platform/files/paths.h"

namespace bench {
namespace {

using platform::Text;

constexpr std::size_t kEntryCharacters = 2000;
constexpr std::uint32_t kDifferentTexts = 97;
constexpr int kEntriesUnderMainTitle = 25;
constexpr std::size_t kMediumBytes = 200 * 1024;
constexpr std::array<const char*, 4> kExtensions = {".pdf", ".mp3", ".avi", ".jpg"};

using Media = std::vector<std::vector<BareMedium>>;  // by entry, in the order of kExtensions

Media MakeMedia(const std::string& folder, int entries) {
  Media media;
  for (int entry = 0; entry < entries; ++entry) {
    media.emplace_back();
    for (const char* extension : kExtensions) {
      const std::string path = folder + "/source" + std::to_string(entry) + extension;
      WriteFile(path, std::string(kMediumBytes, static_cast<char>('a' + entry % 26)));
      media.back().push_back({path, extension});
    }
  }
  return media;
}

// What an entry of the table gets, filed as the workbench files it.
struct FiledText {
  Text title;
  Text richText;
};

std::vector<FiledText> FileTexts(platform::RichTextBox& box) {
  std::vector<FiledText> texts;
  for (std::uint32_t seed = 1; seed <= kDifferentTexts; ++seed) {
    box.SetText(CleanText(kEntryCharacters, seed));
    box.SetSelStart(0);
    box.SetSelLength(box.TextLength());
    texts.push_back({Heading(seed), box.SelRTF()});
  }
  return texts;
}

// What an editor files is in its record after the event that filed it, long before the build.
void EndEvent() {
  QEvent event(QEvent::User);
  QCoreApplication::sendEvent(QCoreApplication::instance(), &event);
}

// The desk, and the builder of one book after the other in it.
class Builder {
 public:
  Builder(WorkFolder& work, int entriesWithMedia) : work_(work), desk_(work.NewFolder("program")) {
    if (entriesWithMedia > 0) media_ = MakeMedia(work.NewFolder("media"), entriesWithMedia);
    desk_.OpenWorkbench(work.NewFolder("first"));
    texts_ = FileTexts(desk_.form3.matn);
    desk_.form3.matn.SetText(u"");
  }

  // The last book's folder.
  const std::string& Folder() const { return folder_; }
  const Media& TheMedia() const { return media_; }

  double SecondsOfTool(int entries) {
    folder_ = work_.NewFolder("tool");
    desk_.OpenWorkbench(folder_);
    FillTable(entries);
    EndEvent();
    ::sync();
    const double seconds = SecondsOf([&] { desk_.form3.MakeFile(); });
    if (desk_.robot.TakeBoxes().size() != 1 || desk_.form3.IsVisible()) {
      throw std::runtime_error("the collection wasn't built");
    }
    return seconds;
  }

  double SecondsOfLoop(const BareBook& book) {
    folder_ = work_.NewFolder("loop");
    for (const char* name : {"/TXT", "/_xml"}) std::filesystem::create_directory(folder_ + name);
    ::sync();
    return SecondsOf([&] { MakeBook(book, folder_); });
  }

 private:
  void FillTable(int entries) {
    workbench::Form3& form3 = desk_.form3;
    workbench::EntryTable& table = form3.table;
    form3.bname.SetText(u"كتاب باغ");
    std::ptrdiff_t row = 0;
    for (int entry = 0; entry < entries; ++entry) {
      const FiledText& text = texts_[static_cast<std::size_t>(entry) % texts_.size()];
      const bool first = entry % kEntriesUnderMainTitle == 0;
      const bool last =
          entry % kEntriesUnderMainTitle == kEntriesUnderMainTitle - 1 || entry + 1 == entries;
      if (first) {
        table.entryTitle.Set(row, form3.mainMark);
        table.entryText.Set(row++, text.title);
      }
      table.entryTitle.Set(row, text.title);
      table.entryText.Set(row, text.richText);
      SetMedia(row++, static_cast<std::size_t>(entry));
      if (last) table.entryTitle.Set(row++, form3.mainEndMark);
    }
    form3.entryCount = row;
  }

  void SetMedia(std::ptrdiff_t row, std::size_t entry) {
    if (entry >= media_.size()) return;
    workbench::EntryTable& table = desk_.form3.table;
    const auto path = [&](std::size_t i) { return platform::ToolPath(media_[entry][i].source); };
    table.entryAttach.Set(row, path(0));
    table.entrySound.Set(row, path(1));
    table.entryFilm.Set(row, path(2));
    table.entryBack.Set(row, path(3));
  }

  WorkFolder& work_;
  Desk desk_;
  Media media_;
  std::vector<FiledText> texts_;
  std::string folder_;
};

// What the tool builds out of so many entries, for the loop to make again. Also warms both up and
// sees that both make the same.
BareBook BookOfTool(Builder& builder, int entries) {
  builder.SecondsOfTool(entries);
  const Extent extent = ExtentOf(builder.Folder());
  BareBook book = ReadBook(builder.Folder(), builder.TheMedia());
  builder.SecondsOfLoop(book);
  if (ExtentOf(builder.Folder()) != extent) throw std::runtime_error("the two books differ");
  return book;
}

void MeasureRound(Builder& builder, const BareBook& book, int entries, Times& tool, Times& beside) {
  tool.push_back(builder.SecondsOfTool(entries));
  beside.push_back(builder.SecondsOfLoop(book));
}

Measured MeasurePairs(const Plan& plan, Builder& builder, int entries) {
  // A disk has good and bad seconds, so there are more pairs here than elsewhere.
  constexpr int kTimesMore = 3;
  const BareBook book = BookOfTool(builder, entries);
  Measured measured;
  for (int round = 0; round < kTimesMore * plan.rounds; ++round) {
    MeasureRound(builder, book, entries, measured.tool, measured.beside);
  }
  return measured;
}

// A file system has its own growth, so the loop is shown at both sizes, too.
Measured MeasureGrowth(const Plan& plan, Builder& builder, int entries) {
  Measured measured = MeasurePairs(plan, builder, entries);
  const BareBook tenfold = BookOfTool(builder, 10 * entries);
  for (int round = 0; round < plan.rounds; ++round) {
    MeasureRound(builder, tenfold, 10 * entries, measured.toolTenfold, measured.besideTenfold);
  }
  return measured;
}

}  // namespace

Row MeasureTextBuild(const Plan& plan) {
  Builder builder(plan.work, 0);
  return TimedRow("build pass, 5,000 text entries of 4 KB",
                  "a bare loop that makes the same files and adds the same lines",
                  MeasureGrowth(plan, builder, 5000), {Target::Kind::kAtMost, 1.25});
}

Row MeasureTextBuildInMemory(const Plan& plan) {
  Builder builder(plan.work, 0);
  return TimedRow("build pass, 5,000 text entries of 4 KB, files in memory", "that loop",
                  MeasurePairs(plan, builder, 5000), {Target::Kind::kAtMost, 1.6});
}

Row MeasureMediaBuild(const Plan& plan) {
  Builder builder(plan.work, 200);
  return TimedRow("build pass, 200 text entries with 4 media of 200 KB each",
                  "that loop, with copy_file_range", MeasurePairs(plan, builder, 200),
                  {Target::Kind::kAtMost, 1.15});
}

Row MeasureMixedBuild(const Plan& plan) {
  Builder builder(plan.work, 200);
  return TimedRow("build pass, 5,000 text entries, 200 of them with 4 media of 200 KB each",
                  "that loop, with copy_file_range", MeasurePairs(plan, builder, 5000),
                  {Target::Kind::kAtMost, 1.15});
}

}  // namespace bench
