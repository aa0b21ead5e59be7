#include "tests/support/known_texts.h"

#include <unicode/uchar.h>

#include <fstream>
#include <stdexcept>

namespace testing_support {
namespace {

using platform::Replace;
using platform::Text;
using platform::TextView;

// Stands for the section sign while the marks are put in.
constexpr TextView kSectionSign = u"\uE000";

Text Plain(const std::string& written) {
  Text text = Replace(platform::FromUtf8(written), u"\\t", u"\t");
  text = Replace(text, u"¶", platform::kCrLf);
  text = Replace(text, u"\\§", kSectionSign);
  text = Replace(text, u"§", platform::kRightToLeftMark);
  return Replace(text, kSectionSign, u"§");
}

std::vector<KnownSection> ReadSections() {
  std::vector<KnownSection> sections;
  std::ifstream file(ZORVAND_SOURCE_DIR "/tests/windows/data/constants.txt");
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      sections.push_back({line.substr(1, line.size() - 2), {}});
      continue;
    }
    const std::size_t text = line.find(" = \"");
    const std::string quoted = line.substr(text + 4, line.size() - text - 5);
    sections.back().texts.emplace_back(line.substr(0, text), Plain(quoted));
  }
  return sections;
}

}  // namespace

const std::vector<KnownSection>& KnownTexts() {
  static const std::vector<KnownSection> kSections = ReadSections();
  return kSections;
}

const Text& KnownText(const std::string& place, int number) {
  for (const KnownSection& section : KnownTexts()) {
    for (const auto& [known, text] : section.texts) {
      if (known == place && number-- == 0) return text;
    }
  }
  throw std::runtime_error("no text is known of " + place);
}

const Text& KnownMessage(int number) { return KnownText("message " + std::to_string(number)); }

std::string AsShown(TextView text) {
  Text shown(text);
  for (std::size_t i = 1; i + 1 < shown.size(); ++i) {
    const bool inside = u_isalpha(shown[i - 1]) != 0 && u_isalpha(shown[i + 1]) != 0;
    if (inside && TextView(shown).substr(i, 1) == platform::kRightToLeftMark) shown[i] = u'\u200C';
  }
  return platform::ToUtf8(shown);
}

std::string BoxText(int number) { return AsShown(KnownMessage(number)); }

}  // namespace testing_support
