#include "tests/book/book_files.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <vector>

#include "platform/text/encoding.h"
#include "platform/text/text.h"

namespace book {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string ReplaceAll(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos;) {
    text.replace(at, what.size(), by);
    at = text.find(what, at + by.size());
  }
  return text;
}

// As it stands in a file of text.
std::string InFile(const std::string& name) {
  return platform::EncodeUtf16(platform::FromUtf8(name));
}

std::vector<std::string> StemsIn(const std::string& text) {
  static const std::regex kStem("[0-9A-Y]{14}");
  std::vector<std::string> stems;
  for (std::sregex_iterator at(text.begin(), text.end(), kStem), end; at != end; ++at) {
    stems.push_back(at->str());
  }
  return stems;
}

}  // namespace

BookFiles ReadBook(const std::string& hostFolder) {
  BookFiles files;
  for (const auto& entry : fs::recursive_directory_iterator(hostFolder)) {
    const std::string path = entry.path().lexically_relative(hostFolder).generic_string();
    if (entry.is_directory()) {
      files[path + "/"];
    } else {
      files[path] = BytesOf(entry.path());
    }
  }
  return files;
}

bool IsTextFile(std::string_view path) { return path.ends_with(".xml") || path.ends_with(".htm"); }

void RandomNames::Learn(const BookFiles& book, const std::string& collection) {
  const auto found = book.find(collection);
  if (found == book.end()) return;
  const std::vector<std::string> stems =
      StemsIn(platform::ToUtf8(platform::DecodeUtf16(found->second)));
  LearnFrom(found->second);
  for (const std::string& stem : stems) {
    const auto gallery = book.find("_xml/" + stem + ".xml");
    if (gallery != book.end()) LearnFrom(gallery->second);
  }
}

void RandomNames::LearnFrom(const std::string& bytes) {
  for (const std::string& stem : StemsIn(platform::ToUtf8(platform::DecodeUtf16(bytes)))) {
    names_.emplace(stem, "NAME" + std::to_string(names_.size() + 1));
  }
}

BookFiles RandomNames::Renamed(const BookFiles& book) const {
  BookFiles renamed;
  for (const auto& [oldPath, oldBytes] : book) {
    std::string path = oldPath;
    std::string bytes = oldBytes;
    for (const auto& [stem, name] : names_) {
      path = ReplaceAll(std::move(path), stem, name);
      if (IsTextFile(path)) bytes = ReplaceAll(std::move(bytes), InFile(stem), InFile(name));
    }
    renamed.emplace(std::move(path), std::move(bytes));
  }
  return renamed;
}

}  // namespace book
