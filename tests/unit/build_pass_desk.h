// The build of a collection without its window.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/book_places.h"
#include "platform/failure.h"
#include "platform/files/paths.h"
#include "platform/text/encoding.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temporary_folder.h"
#include "workbench/build_pass.h"
#include "workbench/inline_images.h"

namespace workbench {

// The window, as far as the pass can see it. Rich text is plain text here.
class BuildPassDesk : public BuildDesk {
 public:
  BuildPassDesk(platform::Text root, const EntryTable& entries, platform::FileSystem& files)
      : projectFolder(std::move(root)), table_(entries), files_(files) {}

  void LogMe(platform::TextView text) override { Note("log " + platform::ToUtf8(text)); }
  void bepayam(std::int16_t number) override { Note("message " + std::to_string(number)); }
  void ShowNotice(platform::TextView prompt) override {
    Note("notice " + platform::ToUtf8(prompt));
  }
  bool AskYesNo(platform::TextView prompt) override {
    question = prompt;
    return answer;
  }

  platform::Text ProjectFolder() override { return projectFolder; }
  platform::Text CollectionTitle() override { return title; }
  void SetCollectionTitle(platform::TextView text) override { title = text; }
  platform::Text BookLabelCaption() override { return u"عنوان مجموعه اول در رديف اول:"; }

  platform::Text ToTXT(const platform::Text& richText) override { return richText; }
  platform::Text ToIMG(platform::Text body) override {
    Caught(68, [&] {
      const bool images = workbench::PutImageTags(
          body, table_.inlineImage, [&](const platform::Text& source, platform::TextView name) {
            CopyIfMissing(files_, source,
                          core::InlineImage(platform::DoSlash(projectFolder), name));
          });
      body += AddEntr(images ? kTailWithImages : kTailWithoutImages, u"pgMain");
    });
    return body;
  }
  platform::Text sndBin(platform::TextView path) override {
    platform::Text result;
    Caught(85, [&] { result = workbench::sndBin(path); });
    return result;
  }
  platform::Text PasBin(platform::TextView path, platform::TextView stem) override {
    platform::Text result;
    Caught(84, [&] { result = workbench::PasBin(path, stem); });
    return result;
  }

  void MakeCombo() override { Note("MakeCombo"); }
  void NameNevis() override { Note("NameNevis"); }
  void HideWorkbench() override { Note("hide"); }
  void FocusSelector() override { Note("focus"); }
  void ResetA() override { Note("ResetA"); }

  platform::Text projectFolder;
  platform::Text title = u"Title";
  bool answer = true;
  platform::Text question;
  std::vector<std::string> events;

 private:
  void Note(std::string event) { events.push_back(std::move(event)); }
  void Caught(int number, const std::function<void()>& body) {
    platform::CatchingFailure(
        body, [&](const platform::Text&) { Note("failure " + std::to_string(number)); });
  }

  const EntryTable& table_;
  platform::FileSystem& files_;
};

inline bool IsOfStem(char16_t c) { return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Y'); }

class BuildPassTest : public testing::Test {
 protected:
  BuildPassTest()
      : faulty_(platform::HostFileSystem()), files_(faulty_), desk_(Root(), table_, faulty_) {
    for (const platform::TextView folder : {u"TXT", u"_xml", u"IMG", u"source"})
      folder_.MakeFolder(folder);
  }

  platform::Text Root() const { return folder_.Path(); }
  platform::Text Source(platform::TextView name, std::string_view bytes) {
    folder_.Write(platform::Text(u"source\\").append(name), bytes);
    return folder_.Path(platform::Text(u"source\\").append(name));
  }
  void AddEntry(platform::TextView title, platform::TextView text) {
    table_.entryTitle.Set(rows_, platform::Text(title));
    table_.entryText.Set(rows_, platform::Text(text));
    ++rows_;
  }

  void Build() {
    const BuildOrder order{.work = work_,
                           .words = words_,
                           .rowLetter = letter_,
                           .rowDigit = digit_,
                           .mainMark = mainMark_,
                           .mainEndMark = mainEndMark_,
                           .identityWord = identityWord_};
    BuildPass(desk_, order, files_, clock_, random_).Run();
  }

  // A file of the book without its mark; each random name as "S" and a number, in the order in
  // which the test sees them.
  std::string Book(platform::TextView name) {
    const std::string bytes = folder_.Read(name);
    EXPECT_TRUE(bytes.starts_with(platform::kUtf16Mark));
    return platform::ToUtf8(Renamed(
        platform::DecodeUtf16(std::string_view(bytes).substr(platform::kUtf16Mark.size()))));
  }
  // The real name behind "S1".
  platform::Text Stem(platform::TextView shown) const {
    for (const auto& [stem, name] : stems_) {
      if (name == shown) return stem;
    }
    return {};
  }
  std::string Page(platform::TextView shown) { return Book(u"TXT\\" + Stem(shown) + u".htm"); }
  std::string Index() { return Book(u"_xml\\Index.xml"); }
  std::string Collection() { return Book(u"_xml\\aTitle1.xml"); }
  std::vector<platform::Text> Names(platform::TextView folder) {
    std::vector<platform::Text> names = platform::HostFileSystem().FileNames(folder_.Path(folder));
    for (platform::Text& name : names) name = Renamed(name);
    std::sort(names.begin(), names.end());
    return names;
  }

  platform::Text Renamed(const platform::Text& text) {
    platform::Text renamed;
    for (std::size_t at = 0; at < text.size();) {
      std::size_t end = at;
      while (end < text.size() && IsOfStem(text[end])) ++end;
      if (end - at == 14) {
        const platform::Text next =
            u"S" + platform::FromNumber(static_cast<int>(stems_.size()) + 1);
        renamed += stems_.emplace(text.substr(at, 14), next).first->second;
        at = end;
      } else {
        end = std::max(end, at + 1);
        renamed += text.substr(at, end - at);
        at = end;
      }
    }
    return renamed;
  }

  testing_support::TemporaryFolder folder_;
  testing_support::FaultyFileSystem faulty_;
  platform::FileSystemObject files_;
  FiledWork work_;
  EntryTable& table_ = work_.table;
  BuildPassDesk desk_;
  testing_support::FixedClock clock_;
  platform::Random random_;
  Vocabulary words_{
      u"TXT", u"_xml", u"Index.xml", u"pgTitle", u"pgMain", u"pgMain", u"<aTitle0>credit</aTitle0>",
      u"htm"};
  platform::Text letter_ = u"a";
  platform::Text digit_ = u"1";
  platform::Text mainMark_ = u">>> تيتر اصلي";
  platform::Text mainEndMark_ = u">>> پايان تيتر";
  platform::Text identityWord_ = u"شناسنامه";
  std::ptrdiff_t rows_ = 0;
  std::map<platform::Text, platform::Text> stems_;
};

inline const std::string kTreeHead = "<?xml version=\"1.0\"?>\r\n<Tree>\r\n";
inline const std::string kGalleryHead = "<?xml version=\"1.0\"?>\r\n<gallery>\r\n";
inline const std::string kIndexHead = "<strings>\r\n\t<aTitle0>credit</aTitle0>\r\n";
inline const std::string kBlank = "<pgMain>&nbsp;</pgMain>\r\n";

inline std::string Times(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

}  // namespace workbench
