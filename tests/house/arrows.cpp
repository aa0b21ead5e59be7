#include "tests/house/arrows.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <string_view>

#include "tests/house/fence.h"
#include "tests/house/reach.h"
#include "tests/house/rooms.h"

namespace house {
namespace {

// The standard library's C++ headers are one word without an ending.
bool IsStandardHeader(std::string_view name) {
  return !name.empty() && std::ranges::all_of(name, [](char c) {
    return std::islower(static_cast<unsigned char>(c)) != 0 ||
           std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '_';
  });
}

// A header of the system, of ICU or of the compiler's own.
bool IsMachineHeader(const Include& include) {
  return !include.name.empty() && !IsToolkitHeader(include.name) &&
         !(include.angled && IsStandardHeader(include.name));
}

// What is wrong with an include; empty: nothing.
std::string Fault(const Room& room, const Include& include, Reach& machine) {
  if (include.name.empty()) return "an include whose name can't be read";
  const Room* const target = include.resolved.empty() ? nullptr : RoomOf(include.resolved);
  if (target != nullptr && !MaySee(room, *target)) {
    return std::string(room.name) + " may not include " + std::string(target->name) + ": " +
           include.name;
  }
  if (room.machine || !machine.Leads(include)) return {};
  return include.resolved.empty() ? "neither the tree's nor the standard library's: " + include.name
                                  : "brings in a header of the machine through " + include.name;
}

class CircleFinder {
 public:
  explicit CircleFinder(const SourceTree& tree) : tree_(tree) {}

  std::vector<Offence> Run() {
    for (const auto& [path, source] : tree_) Visit(path);
    return offences_;
  }

 private:
  enum class State { kNew, kOpen, kDone };

  void Visit(const std::string& path) {
    if (states_[path] != State::kNew) return;
    states_[path] = State::kOpen;
    road_.push_back(path);
    for (const Include& include : tree_.at(path).includes) {
      if (include.resolved.empty()) continue;
      if (states_[include.resolved] == State::kOpen) Report(path, include);
      Visit(include.resolved);
    }
    road_.pop_back();
    states_[path] = State::kDone;
  }

  void Report(const std::string& path, const Include& closing) {
    std::string circle = "a circle of includes: ";
    for (auto at = std::ranges::find(road_, closing.resolved); at != road_.end(); ++at) {
      circle += *at + " > ";
    }
    offences_.push_back({path, closing.line, circle + closing.resolved});
  }

  const SourceTree& tree_;
  std::map<std::string, State> states_;
  std::vector<std::string> road_;
  std::vector<Offence> offences_;
};

}  // namespace

std::vector<Offence> ArrowOffences(const SourceTree& tree) {
  std::vector<Offence> offences;
  Reach machine(tree, IsMachineHeader);
  for (const auto& [path, source] : tree) {
    const Room* const room = RoomOf(path);
    if (room == nullptr) continue;
    for (const Include& include : source.includes) {
      const std::string fault = Fault(*room, include, machine);
      if (!fault.empty()) offences.push_back({path, include.line, fault});
    }
  }
  return offences;
}

std::vector<Offence> CircleOffences(const SourceTree& tree) { return CircleFinder(tree).Run(); }

std::vector<Offence> HomelessOffences(const SourceTree& tree) {
  std::vector<Offence> offences;
  for (const auto& [path, source] : tree) {
    if (RoomOf(path) == nullptr) offences.push_back({path, 1, "lies in no room of the house"});
  }
  return offences;
}

}  // namespace house
