#include "tests/book/book_desk.h"

#include <QTest>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/book/expected_book.h"

namespace book {
namespace {

namespace fs = std::filesystem;

const fs::path kBookTests = ZORVAND_SOURCE_DIR "/tests/book";

std::string ReadHere(const std::string& below) {
  std::ifstream file(kBookTests / below, std::ios::binary);
  if (!file) throw std::runtime_error("no file tests/book/" + below);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

void BookDesk::AddTextFile(const std::string& name) const {
  const platform::Text text = platform::FromUtf8(ReadHere("texts/" + name));
  AddText(name, platform::Replace(text, u"\n", platform::kCrLf));
}

platform::Text BookDesk::AddMedium(const std::string& below) const {
  MakeFolders(fs::path(below).parent_path().string());
  Write(below, "The content of " + below);
  return Path(platform::Replace(platform::FromUtf8(below), u"/", u"\\"));
}

void BookDesk::Build() { testing_support::Robot::PressKey("Form3", "matn", Qt::Key_F12); }

testing::AssertionResult BookDesk::IsBook(const std::string& name,
                                          const std::vector<std::string>& collections) {
  const BookFiles onDisk = ReadBook(HostPath("Data"));
  for (const std::string& collection : collections) names_.Learn(onDisk, collection);
  const BookFiles expected = ReadExpected(
      name,
      {.expected =
           [](const std::string& other) { return ReadHere("expected/" + other + ".expected"); },
       .copied = [this](const std::string& path) { return Read(path); }});
  const std::string difference = Difference(expected, names_.Renamed(onDisk));
  if (difference.empty()) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "The book differs from " << name << ".expected:\n"
                                     << difference;
}

}  // namespace book
