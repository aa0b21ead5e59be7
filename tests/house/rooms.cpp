#include "tests/house/rooms.h"

#include <algorithm>
#include <array>

namespace house {
namespace {

using Names = std::string_view;

constexpr std::array<Names, 1> kBook = {"media"};
constexpr std::array<Names, 3> kViewer = {"media", "launch", "book"};
constexpr std::array<Names, 1> kBelowPlatform = {"launch"};
constexpr std::array<Names, 1> kPlatform = {"platform"};
constexpr std::array<Names, 2> kToolkit = {"platform", "media"};
constexpr std::array<Names, 2> kSupport = {"platform", "support"};
constexpr std::array<Names, 3> kCore = {"platform", "support", "core"};
constexpr std::array<Names, 4> kGallery = {"platform", "support", "core", "gallery"};
constexpr std::array<Names, 5> kFiled = {"platform", "support", "core", "gallery", "filed"};
constexpr std::array<Names, 6> kRecovery = {"platform", "support", "core",
                                            "gallery",  "filed",   "recovery"};
constexpr std::array<Names, 7> kWorkbench = {"platform", "support",  "core",     "gallery",
                                             "filed",    "recovery", "workbench"};
constexpr std::array<Names, 11> kAllRooms = {
    "platform", "platform/qt", "support", "core",  "support/help_window", "gallery", "filed",
    "recovery", "workbench",   "editor",  "export"};
// The tests and tools see main.cpp's side of things and each other.
constexpr std::array<Names, 20> kEverything = {
    "media",   "launch", "platform", "platform/qt", "support", "core",   "support/help_window",
    "gallery", "filed",  "recovery", "workbench",   "editor",  "export", "main.cpp",
    "book",    "viewer", "tests",    "bench",       "fuzz",    "tools"};

// The first row that fits a path counts.
constexpr std::array<Room, 20> kRooms = {{
    {"media", "media/", {}},
    {"launch", "launch/", {}, false, true},
    {"platform/qt", "platform/qt/", kToolkit, true, true},
    {"platform", "platform/", kBelowPlatform, false, true},
    {"support/help_window", "support/help_window", kCore},
    {"support", "support/", kPlatform},
    {"core", "core/", kSupport},
    {"gallery", "gallery/", kCore},
    {"filed", "filed/", kGallery},
    {"recovery", "recovery/", kFiled},
    {"workbench", "workbench/", kRecovery},
    {"editor", "editor/", kWorkbench},
    {"export", "export/", kCore},
    {"main.cpp", "main.cpp", kAllRooms},
    {"book", "book/", kBook, true, true},
    {"viewer", "viewer/", kViewer, true, true},
    {"tests", "tests/", kEverything, true, true},
    {"bench", "bench/", kEverything, true, true},
    {"fuzz", "fuzz/", kEverything, true, true},
    {"tools", "tools/", kEverything, true, true},
}};

}  // namespace

const Room* RoomOf(std::string_view path) {
  const auto* const room =
      std::ranges::find_if(kRooms, [path](const Room& r) { return path.starts_with(r.paths); });
  return room == kRooms.end() ? nullptr : room;
}

bool MaySee(const Room& from, const Room& to) {
  return from.name == to.name || std::ranges::find(from.below, to.name) != from.below.end();
}

}  // namespace house
