#include "tests/house/arrows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/house/rooms.h"
#include "tests/house/temporary_tree.h"

namespace house {
namespace {

SourceTree TheTree() { return ReadSourceTree(ZORVAND_SOURCE_DIR); }

TEST(Arrows, PointDownInTheTree) { EXPECT_EQ(Listing(ArrowOffences(TheTree())), ""); }

TEST(Arrows, GoInNoCircleInTheTree) { EXPECT_EQ(Listing(CircleOffences(TheTree())), ""); }

TEST(Arrows, EverySourceOfTheTreeLiesInARoom) {
  EXPECT_EQ(Listing(HomelessOffences(TheTree())), "");
}

// Every pair of rooms: an arrow is allowed one way at most.
TEST(Arrows, TheTableItselfHasNoCircle) {
  const std::vector<std::string> paths = {
      "media/a.h",       "launch/a.h",    "platform/a.h",
      "platform/qt/a.h", "support/a.h",   "support/help_window.h",
      "core/a.h",        "workbench/a.h", "gallery/a.h",
      "editor/a.h",      "export/a.h",    "main.cpp",
      "viewer/a.h",      "filed/a.h",     "recovery/a.h",
      "book/a.h"};
  for (const std::string& one : paths) {
    for (const std::string& other : paths) {
      if (one == other) continue;
      EXPECT_FALSE(MaySee(*RoomOf(one), *RoomOf(other)) && MaySee(*RoomOf(other), *RoomOf(one)))
          << one << " and " << other;
    }
  }
}

TEST(Arrows, BothProgramsStartOthersInOneWay) {
  const TemporaryTree tree{{"launch/a.h", ""},
                           {"launch/b.cpp", "#include \"media/a.h\"\n#include <unistd.h>\n"},
                           {"media/a.h", ""},
                           {"core/a.cpp", "#include \"launch/a.h\"\n"},
                           {"platform/a.cpp", "#include \"launch/a.h\"\n"},
                           {"viewer/a.cpp", "#include \"launch/a.h\"\n"}};
  EXPECT_EQ(Listing(ArrowOffences(tree.Read())),
            "core/a.cpp:1: core may not include launch: launch/a.h\n"
            "launch/b.cpp:1: launch may not include media: media/a.h\n");
}

TEST(Arrows, ReportsEachArrowThatPointsUpOrAcross) {
  const TemporaryTree tree{{"platform/a.h", "#include \"core/a.h\"\n"},
                           {"platform/b.cpp", "#include \"platform/qt/a.h\"\n"},
                           {"platform/qt/a.h", "#include \"support/a.h\"\n"},
                           {"support/a.h", "#include \"core/a.h\"\n"},
                           {"support/b.h", "#include \"support/help_window.h\"\n"},
                           {"support/help_window.h", "#include \"workbench/a.h\"\n"},
                           {"core/a.h", "\n\n#include \"workbench/a.h\"\n"},
                           {"core/b.h", "#include \"../support/help_window.h\"\n"},
                           {"workbench/a.h", "#include \"editor/a.h\"\n"},
                           {"gallery/a.h", "#include \"workbench/a.h\"\n"},
                           {"editor/a.h", "#include \"export/a.h\"\n"},
                           {"export/a.h", "#include \"tests/a.h\"\n"},
                           {"viewer/a.cpp", "#include \"platform/a.h\"\n"},
                           {"main.cpp", "#include \"tools/a.h\"\n"},
                           {"media/a.cpp", "#include \"platform/a.h\"\n"},
                           {"media/b.cpp", "#include <unistd.h>\n"},
                           {"workbench/b.h", "#include \"media/a.h\"\n"},
                           {"viewer/a.h", ""},
                           {"media/a.h", ""},
                           {"tests/a.h", ""},
                           {"tools/a.h", ""}};
  EXPECT_EQ(Listing(ArrowOffences(tree.Read())),
            "core/a.h:3: core may not include workbench: workbench/a.h\n"
            "core/b.h:1: core may not include support/help_window: ../support/help_window.h\n"
            "editor/a.h:1: editor may not include export: export/a.h\n"
            "export/a.h:1: export may not include tests: tests/a.h\n"
            "gallery/a.h:1: gallery may not include workbench: workbench/a.h\n"
            "main.cpp:1: main.cpp may not include tools: tools/a.h\n"
            "media/a.cpp:1: media may not include platform: platform/a.h\n"
            "media/b.cpp:1: neither the tree's nor the standard library's: unistd.h\n"
            "platform/a.h:1: platform may not include core: core/a.h\n"
            "platform/b.cpp:1: platform may not include platform/qt: platform/qt/a.h\n"
            "platform/qt/a.h:1: platform/qt may not include support: support/a.h\n"
            "support/a.h:1: support may not include core: core/a.h\n"
            "support/b.h:1: support may not include support/help_window: support/help_window.h\n"
            "support/help_window.h:1: support/help_window may not include workbench: "
            "workbench/a.h\n"
            "viewer/a.cpp:1: viewer may not include platform: platform/a.h\n"
            "workbench/a.h:1: workbench may not include editor: editor/a.h\n"
            "workbench/b.h:1: workbench may not include media: media/a.h\n");
}

TEST(Arrows, LeadNeitherFromTheBooksReaderToTheViewerNorToItFromTheTool) {
  const TemporaryTree tree{{"book/a.h", "#include \"viewer/a.h\"\n"},
                           {"export/b.h", "#include \"book/a.h\"\n"},
                           {"viewer/a.h", ""},
                           {"viewer/b.h", "#include \"book/a.h\"\n"}};
  EXPECT_EQ(Listing(ArrowOffences(tree.Read())),
            "book/a.h:1: book may not include viewer: viewer/a.h\n"
            "export/b.h:1: export may not include book: book/a.h\n");
}

TEST(Arrows, LetThoseThatPointDownBe) {
  const TemporaryTree tree{
      {"platform/a.h", "#include <string>\n"},
      {"platform/b.cpp", "#include <fcntl.h>\n#include <unicode/uchar.h>\n#include \"a.h\"\n"},
      {"platform/qt/a.h", "#include \"platform/a.h\"\n#include <QString>\n"},
      {"support/a.h", "#include \"platform/a.h\"\n"},
      {"core/a.h", "#include \"support/a.h\"\n#include \"core/b.h\"\n"},
      {"core/b.h", ""},
      {"support/help_window.cpp", "#include \"core/a.h\"\n"},
      {"gallery/a.h", "#include \"core/a.h\"\n"},
      {"workbench/a.h", "#include \"core/a.h\"\n#include \"gallery/a.h\"\n"},
      {"editor/a.h", "#include \"workbench/a.h\"\n#include \"platform/a.h\"\n"},
      {"main.cpp", "#include \"workbench/a.h\"\n#include \"platform/qt/a.h\"\n"},
      {"media/a.h", "#include <string_view>\n"},
      {"viewer/a.cpp", "#include \"media/a.h\"\n#include \"book/a.h\"\n"},
      {"book/a.h", "#include \"media/a.h\"\n#include <QString>\n"},
      {"platform/qt/b.cpp", "#include \"media/a.h\"\n"},
      {"tests/a.cpp", "#include <gtest/gtest.h>\n#include \"workbench/a.h\"\n"}};
  EXPECT_EQ(Listing(ArrowOffences(tree.Read())), "");
}

TEST(Arrows, HeadersOfTheMachineStayInsideThePlatform) {
  const TemporaryTree tree{
      {"platform/plain.h", "#include <vector>\n"},
      {"platform/inner.h", "#include <vector>\n#include <sys/stat.h>\n"},
      {"platform/leak.h", "#include \"platform/inner.h\"\n"},
      {"platform/a.cpp", "#include \"platform/inner.h\"\n"},
      {"core/a.cpp", "#include <unistd.h>\n#include \"unicode/uchar.h\"\n"},
      {"core/b.cpp", "#include \"platform/plain.h\"\n#include \"platform/leak.h\"\n"},
      {"tests/c.cpp", "#include \"platform/inner.h\"\n"}};
  EXPECT_EQ(Listing(ArrowOffences(tree.Read())),
            "core/a.cpp:1: neither the tree's nor the standard library's: unistd.h\n"
            "core/a.cpp:2: neither the tree's nor the standard library's: unicode/uchar.h\n"
            "core/b.cpp:2: brings in a header of the machine through platform/leak.h\n");
}

TEST(Arrows, KnowAGeneratedFileByItsTemplate) {
  const TemporaryTree tree{{"core/version.h.in", "#include <unistd.h>\n"},
                           {"core/a.cpp", "#include \"core/version.h\"\n"},
                           {"platform/b.cpp", "#include \"core/version.h\"\n"}};
  EXPECT_EQ(Listing(ArrowOffences(tree.Read())),
            "core/a.cpp:1: brings in a header of the machine through core/version.h\n"
            "core/version.h:1: neither the tree's nor the standard library's: unistd.h\n"
            "platform/b.cpp:1: platform may not include core: core/version.h\n");
}

TEST(Arrows, ReportsAnIncludeThatHidesItsName) {
  const TemporaryTree tree{{"core/a.cpp", "#define X <QString>\n#include X\n"}};
  EXPECT_EQ(Listing(ArrowOffences(tree.Read())),
            "core/a.cpp:2: an include whose name can't be read\n");
}

TEST(Arrows, ReportsACircleOfFiles) {
  const TemporaryTree tree{{"core/a.h", "#include \"core/b.h\"\n"},
                           {"core/b.h", "#include <string>\n#include \"core/c.h\"\n"},
                           {"core/c.h", "#include \"core/a.h\"\n"},
                           {"core/d.h", "#include \"d.h\"\n"},
                           {"core/e.h", "#include \"core/a.h\"\n"}};
  EXPECT_EQ(Listing(CircleOffences(tree.Read())),
            "core/c.h:1: a circle of includes: core/a.h > core/b.h > core/c.h > core/a.h\n"
            "core/d.h:1: a circle of includes: core/d.h > core/d.h\n");
}

TEST(Arrows, ReportsASourceInNoRoom) {
  const TemporaryTree tree{{"helpers/a.cpp", ""}, {"b.h", ""},         {"main.cpp", ""},
                           {"core/c.cpp", ""},    {"build/d.cpp", ""}, {".git/e.cpp", ""}};
  EXPECT_EQ(Listing(HomelessOffences(tree.Read())),
            "b.h:1: lies in no room of the house\nhelpers/a.cpp:1: lies in no room of the house\n");
}

}  // namespace
}  // namespace house
