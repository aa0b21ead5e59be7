#include "tests/faults/left_book.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <vector>

#include "platform/text/encoding.h"
#include "tests/book/expected_book.h"
#include "tests/faults/program_folder.h"

namespace faults {
namespace {

using book::BookFiles;
using testing_support::Desk;

constexpr const char* kIndex = "_xml/Index.xml";
constexpr const char* kCollection = "_xml/aTitle1.xml";

std::string ReadExpectedFile(const std::string& name) {
  std::ifstream file(ZORVAND_SOURCE_DIR "/tests/faults/expected/" + name + ".expected",
                     std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

BookFiles BookOf(const Desk& desk) {
  return desk.Has("Data") ? book::ReadBook(desk.HostPath("Data")) : BookFiles();
}

// With each random name and each name that stands for one as "S".
std::string Unnamed(const std::string& text) {
  static const std::regex kName("[0-9A-Y]{14}|NAME[0-9]+");
  return std::regex_replace(text, kName, "S");
}

std::string TextOf(const std::string& bytes) {
  if (bytes.size() <= platform::kUtf16Mark.size()) return "";
  return Unnamed(book::Shown(bytes));
}

bool HasRandomName(const std::string& path) { return Unnamed(path) != path; }

// Line by line: a file that grows never ends inside a line.
bool IsBeginning(const std::string& text, const std::string& whole) {
  return whole.starts_with(text) && text.ends_with("¶\n");
}

bool IsOneOf(const std::string& text, const std::vector<std::string>& texts) {
  return std::ranges::find(texts, text) != texts.end();
}

// The index keeps its head and the line of the other collection. Of the collection that is built it
// has the lines that were added and an empty one for each that was taken out.
bool IndexIsWell(const std::string& index, const std::string& head) {
  static const std::regex kLines("(¶\n|→<aTitle1 vol=\"txt\">(Old name|Name)</aTitle1>¶\n)*");
  return index.starts_with(head) && std::regex_match(index.substr(head.size()), kLines);
}

// What stands above the lines of the collection that is built.
std::string IndexHead(const BookFiles& files) {
  const bool hasOlderBook = files.contains("_xml/cTitle9.xml");
  const std::string index =
      TextOf(Expected(hasOlderBook ? "road" : "road-over_nothing").at(kIndex));
  const std::string last = hasOlderBook ? "</cTitle9>¶\n" : "</aTitle0>¶\n";
  return index.substr(0, index.find(last) + last.size());
}

bool IsPage(const std::string& text) {
  static const BookFiles kWell = Expected("road");
  static const BookFiles kWithoutPicture = Expected("road-without_picture");
  static const BookFiles kWithoutText = Expected("road-without_text");
  return IsOneOf(text, {"", TextOf(kWell.at("TXT/NAME1.htm")), TextOf(kWell.at("TXT/NAME2.htm")),
                        TextOf(kWithoutPicture.at("TXT/NAME1.htm")),
                        TextOf(kWithoutText.at("TXT/NAME1.htm"))});
}

bool AreSettings(const std::string& text) {
  static const std::string kNow = TextOf(Expected("road").at("TXT/CDProperty.xml"));
  static const std::string kBefore = std::regex_replace(kNow, std::regex("<Print>1"), "<Print>0");
  return IsOneOf(text, {kBefore, kNow});
}

// One that was made and got nothing stays, so that the next build asks about it.
bool IsCollection(const std::string& bytes) {
  static const std::string kNew = TextOf(Expected("road").at(kCollection));
  return bytes.empty() || bytes == ProgramFile("former/_xml/aTitle1.xml") ||
         IsBeginning(TextOf(bytes), kNew);
}

bool IsMedium(const std::string& path, const std::string& bytes) {
  static const BookFiles kWell = Expected("road");
  if (HasRandomName(path)) return bytes == ProgramFile("media/song.mp3");
  // Where no collection was selected its picture has no number.
  if (path == "IMG/Title.jpg") return bytes == ProgramFile("Resources/MyBook.jpg");
  const auto known = kWell.find(path);
  return known != kWell.end() && known->second == bytes;
}

bool IsWell(const std::string& path, const BookFiles& files) {
  const std::string& bytes = files.at(path);
  if (path.ends_with('/')) return true;
  if (path == kIndex) return IndexIsWell(TextOf(bytes), IndexHead(files));
  if (path == kCollection) return IsCollection(bytes);
  if (path == "TXT/CDProperty.xml") return AreSettings(TextOf(bytes));
  if (HasRandomName(path) && path.ends_with(".htm")) return IsPage(TextOf(bytes));
  return IsMedium(path, bytes);
}

}  // namespace

BookFiles Expected(const std::string& name) {
  return book::ReadExpected(name, {.expected = ReadExpectedFile, .copied = ProgramFile});
}

std::string WrongAnyTime(const Desk& desk) {
  const BookFiles files = BookOf(desk);
  std::string wrong;
  for (const auto& [path, bytes] : files) {
    if (!IsWell(path, files)) wrong += "Half or lost: " + path + "\n" + book::Shown(bytes) + "\n";
  }
  // Found where the index of the older book was found.
  if (!files.contains("_xml/cTitle9.xml")) return wrong;
  for (const char* path : {"TXT/OLD.htm", "IMG/old.jpg", kIndex}) {
    if (!files.contains(path)) wrong += std::string("Lost: ") + path + "\n";
  }
  return wrong;
}

std::string WrongAtTheEnd(const Desk& desk, const std::string& name) {
  const BookFiles onDisk = BookOf(desk);
  book::RandomNames names;
  names.Learn(onDisk, kCollection);
  BookFiles files = names.Renamed(onDisk);
  BookFiles expected = Expected(name);
  std::erase_if(files, [&](const auto& file) {
    return !expected.contains(file.first) &&
           (HasRandomName(file.first) || file.first == "IMG/Title.jpg");
  });
  std::string wrong = WrongAnyTime(desk);
  if (TextOf(files[kIndex]).find("→<aTitle1 vol=\"txt\">Name</aTitle1>¶\n") == std::string::npos) {
    wrong += "The index has no line of the collection:\n" + TextOf(files[kIndex]);
  }
  files[kIndex] = expected[kIndex];
  return wrong + book::Difference(expected, files);
}

}  // namespace faults
