#include "tests/book/expected_book.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "tests/book/line_difference.h"

namespace book {
namespace {

using platform::Replace;
using platform::Text;

constexpr std::string_view kLineEnd = "¶";

std::string InBytes(const std::string& shown) {
  Text text = Replace(platform::FromUtf8(shown), u"→", u"\t");
  text = Replace(Replace(text, u"§", u"\u200F"), u"¶", u"\r\n");
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text);
}

// One file NAME.expected, entry by entry.
class Reader {
 public:
  Reader(std::string name, const ExpectedSources& sources)
      : name_(std::move(name)), sources_(sources) {}

  BookFiles Read() {
    std::istringstream lines(sources_.expected(name_));
    std::string line;
    while (std::getline(lines, line)) ReadLine(line);
    EndEntry();
    return std::move(files_);
  }

 private:
  void ReadLine(const std::string& line) {
    if (line.starts_with("= ")) {
      EndEntry();
      BeginEntry(line.substr(2));
    } else if (!path_.empty()) {
      text_ += text_.empty() || text_.ends_with(kLineEnd) ? line : NoMeaning(line);
    } else if (!line.starts_with("#")) {
      NoMeaning(line);
    }
  }

  void BeginEntry(const std::string& entry) {
    constexpr std::string_view kLike = "like ";
    constexpr std::string_view kNo = "no ";
    constexpr std::string_view kCopyOf = " <- ";
    if (entry.starts_with(kLike)) {
      files_ = Reader(entry.substr(kLike.size()), sources_).Read();
    } else if (entry.starts_with(kNo)) {
      files_.erase(entry.substr(kNo.size()));
    } else if (const auto at = entry.find(kCopyOf); at != std::string::npos) {
      files_[entry.substr(0, at)] = sources_.copied(entry.substr(at + kCopyOf.size()));
    } else if (entry.ends_with('/')) {
      files_[entry];
    } else {
      path_ = entry;
    }
  }

  void EndEntry() {
    if (!path_.empty()) files_[path_] = InBytes(text_);
    path_.clear();
    text_.clear();
  }

  [[noreturn]] std::string NoMeaning(const std::string& line) const {
    throw std::runtime_error(name_ + ".expected has a line without a meaning: " + line);
  }

  std::string name_;
  const ExpectedSources& sources_;
  BookFiles files_;
  std::string path_;  // of the text that is being read
  std::string text_;
};

std::string Size(const std::string& bytes) { return std::to_string(bytes.size()) + " bytes"; }

std::string FileDifference(const std::string& path, const std::string& expected,
                           const std::string& actual) {
  if (IsTextFile(path)) return path + "\n" + LineDifference(Shown(expected), Shown(actual));
  const auto differs = std::ranges::mismatch(expected, actual).in1 - expected.begin();
  return path + ": " + Size(actual) + ", expected " + Size(expected) + "; they differ from byte " +
         std::to_string(differs) + " on\n";
}

}  // namespace

BookFiles ReadExpected(const std::string& name, const ExpectedSources& sources) {
  return Reader(name, sources).Read();
}

std::string Shown(const std::string& bytes) {
  if (bytes.empty()) return "(no byte, not even a mark)\n";
  if (!bytes.starts_with(platform::kUtf16Mark) || bytes.size() % 2 != 0) {
    return "(" + Size(bytes) + " that are no text after a byte order mark)\n";
  }
  Text text = platform::DecodeUtf16(std::string_view(bytes).substr(platform::kUtf16Mark.size()));
  text = Replace(Replace(text, u"\t", u"→"), u"\u200F", u"§");
  text = Replace(text, u"\r\n", u"¶\v");
  text = Replace(Replace(text, u"\r", u"(CR)"), u"\n", u"(LF)");
  return platform::ToUtf8(Replace(text, u"\v", u"\n"));
}

std::string Difference(const BookFiles& expected, const BookFiles& actual) {
  std::string difference;
  for (const auto& [path, bytes] : expected) {
    const auto found = actual.find(path);
    if (found == actual.end()) {
      difference += path + ": isn't there\n";
    } else if (found->second != bytes) {
      difference += FileDifference(path, bytes, found->second);
    }
  }
  for (const auto& [path, bytes] : actual) {
    if (expected.contains(path)) continue;
    difference += path + ": is one too many\n";
    if (IsTextFile(path)) difference += LineDifference("", Shown(bytes));
  }
  return difference;
}

}  // namespace book
