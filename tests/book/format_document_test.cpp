// The worked example in docs/BOOK-FORMAT.md is the book that the desk's test builds: its blocks are
// read here and held against desk.expected, with the random names of both brought together.
#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "export/print_page.h"
#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "tests/book/book_files.h"
#include "tests/book/expected_book.h"

namespace {

using book::BookFiles;
using platform::Replace;
using platform::Text;

std::string ReadHere(const std::string& below) {
  std::ifstream file(ZORVAND_SOURCE_DIR "/" + below, std::ios::binary);
  if (!file) throw std::runtime_error("no file " + below);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

BookFiles DeskBook() {
  return book::ReadExpected("desk",
                            {.expected =
                                 [](const std::string& name) {
                                   return ReadHere("tests/book/expected/" + name + ".expected");
                                 },
                             .copied = [](const std::string& path) { return ReadHere(path); }});
}

// A fenced block: its kind ("book"), the file it is about, its lines.
struct Block {
  std::string kind;
  std::string path;
  std::vector<std::string> lines;
};

std::vector<Block> BlocksOfTheDocument() {
  const std::string kFence = "```";
  std::vector<Block> blocks;
  std::istringstream document(ReadHere("docs/BOOK-FORMAT.md"));
  bool inside = false;
  for (std::string line; std::getline(document, line);) {
    if (line.starts_with(kFence)) {
      inside = !inside;
      if (!inside) continue;
      Block block;
      std::istringstream(line.substr(kFence.size())) >> block.kind >> block.path;
      blocks.push_back(block);
    } else if (inside) {
      blocks.back().lines.push_back(line);
    }
  }
  return blocks;
}

std::vector<Block> BlocksOfKind(const std::string& kind) {
  std::vector<Block> blocks = BlocksOfTheDocument();
  std::erase_if(blocks, [&](const Block& block) { return block.kind != kind; });
  return blocks;
}

// What a block shows: "¶ ×7" after a line stands for seven of it.
Text TextOf(const Block& block) {
  const std::string kTimes = " ×";
  std::string shown;
  for (const std::string& line : block.lines) {
    const std::size_t at = line.rfind(kTimes);
    const int times = at == std::string::npos ? 1 : std::stoi(line.substr(at + kTimes.size()));
    for (int i = 0; i < times; ++i) shown += line.substr(0, at);
  }
  return Replace(Replace(platform::FromUtf8(shown), u"→", u"\t"), u"¶", platform::kCrLf);
}

std::string InFile(const Text& text) {
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text);
}

// The texts of the example by their paths, with the stems that the document shows.
BookFiles BookOfTheDocument() {
  BookFiles files;
  for (const Block& block : BlocksOfKind("book")) files[block.path] = InFile(TextOf(block));
  return files;
}

BookFiles Renamed(const BookFiles& files) {
  const BookFiles texts = BookOfTheDocument();
  book::RandomNames names;
  names.Learn(texts, "_xml/aTitle1.xml");
  names.Learn(texts, "_xml/aTitle2.xml");
  return names.Renamed(files);
}

// Sixteen bytes as the document shows them: their place, pairs of bytes, and what is ASCII.
std::string HexLine(const std::string& bytes, std::size_t at) {
  constexpr std::size_t kBytes = 16;
  constexpr std::size_t kTextColumn = 51;
  const std::string kDigits = "0123456789abcdef";
  std::string line;
  for (int shift = 28; shift >= 0; shift -= 4) line += kDigits[(at >> shift) & 0xf];
  line += ":";
  std::string text;
  for (std::size_t i = 0; i < kBytes && at + i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[at + i]);
    if (i % 2 == 0) line += " ";
    line += kDigits[byte >> 4];
    line += kDigits[byte & 0xf];
    text += byte >= 0x20 && byte < 0x7f ? static_cast<char>(byte) : '.';
  }
  line.resize(kTextColumn, ' ');
  return line + text;
}

TEST(FormatDocument, ShowsEachTextOfTheDesksBookAsItIsBuilt) {
  BookFiles built = DeskBook();
  std::erase_if(built, [](const auto& file) { return !book::IsTextFile(file.first); });
  EXPECT_EQ(book::Difference(built, Renamed(BookOfTheDocument())), "");
}

TEST(FormatDocument, ListsEachFileOfTheDesksBook) {
  std::set<std::string> built;
  for (const auto& [path, bytes] : DeskBook()) {
    if (!path.ends_with('/')) built.insert(path);
  }
  const auto lists = BlocksOfKind("files");
  ASSERT_EQ(lists.size(), 1U);
  BookFiles listed;
  for (const std::string& line : lists[0].lines) listed[line.substr(0, line.find(' '))];
  std::set<std::string> paths;
  for (const auto& [path, bytes] : Renamed(listed)) paths.insert(path);
  EXPECT_EQ(paths, built);
}

TEST(FormatDocument, ShowsBytesOfItsOwnFiles) {
  BookFiles files = BookOfTheDocument();
  const auto dumps = BlocksOfKind("hex");
  ASSERT_FALSE(dumps.empty());
  for (const Block& dump : dumps) {
    for (const std::string& line : dump.lines) {
      const std::size_t at = std::stoul(line.substr(0, line.find(':')), nullptr, 16);
      EXPECT_EQ(line, HexLine(files.at(dump.path), at)) << dump.path;
    }
  }
}

TEST(FormatDocument, ShowsWhatAPrintPageMakesOfAPage) {
  const auto printed = BlocksOfKind("print");
  ASSERT_FALSE(printed.empty());
  for (const Block& block : printed) {
    const std::string page = BookOfTheDocument().at(block.path);
    const Text text = platform::DecodeUtf16(page.substr(platform::kUtf16Mark.size()));
    EXPECT_EQ(platform::ToUtf8(TextOf(block)), platform::ToUtf8(exporting::PrintBody(text)));
  }
}

}  // namespace
