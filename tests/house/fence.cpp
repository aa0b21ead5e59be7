#include "tests/house/fence.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "tests/house/reach.h"
#include "tests/house/rooms.h"

namespace house {
namespace {

constexpr std::string_view kCatcher = "platform/failure.cpp";

bool IsUpper(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }
bool IsLower(char c) { return std::islower(static_cast<unsigned char>(c)) != 0; }

// QWidget, Qt, Q_OBJECT, QT_VERSION.
bool IsToolkitWord(std::string_view word) {
  if (word == "Qt" || word.starts_with("Q_") || word.starts_with("QT_")) return true;
  return word.size() > 2 && word[0] == 'Q' && IsUpper(word[1]) &&
         std::ranges::any_of(word.substr(2), IsLower);
}

bool MaySeeToolkit(const std::string& path) {
  const Room* const room = RoomOf(path);
  return room == nullptr || room->toolkit;  // a file of no room is another check's offence
}

}  // namespace

bool IsToolkitHeader(std::string_view name) {
  while (!name.empty()) {
    const std::size_t end = std::min(name.find('/'), name.size());
    const std::string_view part = name.substr(0, end);
    const bool capital = part.size() > 1 && part[0] == 'Q' && (IsUpper(part[1]) || part[1] == 't');
    const bool folder = part == "qt" || part == "qt5" || part == "qt6";
    const bool small = part.starts_with('q') && part.ends_with(".h");
    if (capital || folder || small) return true;
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return false;
}

std::vector<Offence> FenceOffences(const SourceTree& tree) {
  std::vector<Offence> offences;
  Reach reach(tree, [](const Include& include) { return IsToolkitHeader(include.name); });
  for (const auto& [path, source] : tree) {
    if (MaySeeToolkit(path)) continue;
    for (const Include& include : source.includes) {
      if (reach.Leads(include)) {
        const std::string how =
            include.resolved.empty() ? "includes Qt: " : "brings in Qt through ";
        offences.push_back({path, include.line, how + include.name});
      }
    }
    for (const Word& word : source.words) {
      if (IsToolkitWord(word.text)) {
        offences.push_back({path, word.line, "names a thing of Qt: " + word.text});
      }
    }
  }
  return offences;
}

std::vector<Offence> CatchOffences(const SourceTree& tree) {
  std::vector<Offence> offences;
  for (const auto& [path, source] : tree) {
    if (path == kCatcher) continue;
    for (const Word& word : source.words) {
      if (word.text == "catch") {
        offences.push_back({path, word.line, "catches; CatchingFailure and Ignoring are for that"});
      }
    }
  }
  return offences;
}

}  // namespace house
