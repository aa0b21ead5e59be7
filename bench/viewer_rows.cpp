#include "bench/viewer_rows.h"

#include <fcntl.h>
#include <unistd.h>

#include <QString>
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>

#include "bench/process.h"
#include "bench/texts.h"
#include "bench/timing.h"
#include "book/search.h"
#include "platform/text/encoding.h"
#include "workbench/book_formats.h"

namespace bench {
namespace {

using platform::Text;

constexpr int kPages = 20'000;
constexpr int kCollectionsOfRow = 10;
constexpr int kCollections = 3 * kCollectionsOfRow;
constexpr int kPagesPerHit = 200;
constexpr std::size_t kCharactersOfPage = 1'800;  // with its tags 4 KB
const Text kWord = u"زنبورك";
const Text kTag = u"pgMain";

Text Number(int number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

std::string BookBytes(const Text& text) {
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text);
}

std::string Utf8(const Text& text) { return QString::fromStdU16String(text).toStdString(); }

// As the build draws them, always the same ones.
class Stems {
 public:
  Text Next() {
    constexpr std::u16string_view kCharacters = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXY";
    Text stem;
    while (stem.size() < 14) stem += kCharacters[random_() % kCharacters.size()];
    return stem;
  }

 private:
  std::mt19937 random_{1};
};

Text PageText(int number) {
  Text text = CleanText(kCharactersOfPage, static_cast<std::uint32_t>(number));
  if (number % kPagesPerHit == 0) text += u" " + kWord;
  return u"<pgTitle>" + Number(number) + u"</pgTitle>\r\n" + workbench::SetMatn(text, kTag) +
         workbench::AddEntr(7, kTag);
}

// One book on disk, and its pages once more in UTF-8.
class TwoBooks {
 public:
  explicit TwoBooks(const std::string& folder)
      : book_(folder + "/book"), plain_(folder + "/plain") {
    std::filesystem::create_directories(book_ + "/Data/TXT");
    std::filesystem::create_directories(book_ + "/Data/_xml");
    std::filesystem::create_directories(plain_);
    Text index = u"<strings>\r\n\t<aTitle0>bench</aTitle0>\r\n";
    for (int i = 0; i < kCollections; ++i) {
      const Text key = Text(1, static_cast<char16_t>(u'a' + i / kCollectionsOfRow)) + u"Title" +
                       Number(1 + i % kCollectionsOfRow);
      index += u"\t<";
      index.append(key).append(u" vol=\"txt\">bench</").append(key).append(u">\r\n");
      WriteCollection(key, kPages * i / kCollections, kPages * (i + 1) / kCollections);
    }
    WriteText("Index.xml", index);
  }

  const std::string& Book() const { return book_; }
  const std::string& Plain() const { return plain_; }

 private:
  void WriteText(const std::string& name, const Text& text) const {
    WriteFile(book_ + "/Data/_xml/" + name, BookBytes(text));
  }

  void WriteCollection(const Text& key, int first, int end) {
    Text tree = u"<?xml version=\"1.0\"?>\r\n<Tree>\r\n";
    for (int number = first; number < end; ++number) {
      const Text name = stems_.Next() + u".htm";
      const Text text = PageText(number);
      tree += u"\t<node label=\"" + Number(number) + u"\" src=\"DATA/TXT/" + name +
              u"\" mediaStatus=\"000\" pic=\"0\" />\r\n";
      WriteFile(book_ + "/Data/TXT/" + Utf8(name), BookBytes(text));
      WriteFile(plain_ + "/" + Utf8(name), Utf8(text));
    }
    WriteText(Utf8(key) + ".xml", tree + u"</Tree>\r\n");
  }

  Stems stems_;
  std::string book_;
  std::string plain_;
};

bool EmptyCaches() {
  std::ofstream control("/proc/sys/vm/drop_caches");
  return static_cast<bool>(control << "3\n" << std::flush);
}

void ForgetBytesOf(const std::string& folder) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) throw std::runtime_error("can't open " + entry.path().string());
    ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    ::close(file);
  }
}

// What isn't on the disk yet can't be forgotten. True if the names are forgotten too.
bool GoCold(const std::string& folder) {
  ::sync();
  if (EmptyCaches()) return true;
  ForgetBytesOf(folder);
  return false;
}

int HitsOf(const std::string& book) {
  int hits = 0;
  book::SearchBook(book::Folder(QString::fromStdString(book)),
                   {.words = QString::fromStdU16String(kWord)}, [&](book::Hit&&) {
                     ++hits;
                     return true;
                   });
  return hits;
}

void RequireSameHits(const TwoBooks& books) {
  const std::string found = OutputOf({"grep", "-rl", Utf8(kWord), books.Plain()});
  const auto lines = std::ranges::count(found, '\n');
  if (lines != kPages / kPagesPerHit || HitsOf(books.Book()) != lines) {
    throw std::runtime_error("the two searches differ");
  }
}

}  // namespace

Row MeasureViewerSearch(const Plan& plan) {
  const TwoBooks books(plan.work.NewFolder("viewer-search"));
  RequireSameHits(books);
  const Command grep = {"grep", "-r", Utf8(kWord), books.Plain()};
  Measured measured;
  bool isAllCold = true;
  for (int round = 0; round < plan.rounds; ++round) {
    isAllCold = GoCold(books.Book()) && isAllCold;
    measured.tool.push_back(SecondsOf([&] { HitsOf(books.Book()); }));
    isAllCold = GoCold(books.Plain()) && isAllCold;
    measured.beside.push_back(SecondsOfRun(grep));
  }
  return TimedRow(std::string("full-text search over 20,000 pages, ") +
                      (isAllCold ? "cold" : "the pages' bytes cold, their names not"),
                  "grep -r on the same pages in UTF-8", measured, {Target::Kind::kAtMost, 0.8});
}

}  // namespace bench
