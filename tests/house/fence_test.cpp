#include "tests/house/fence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/house/temporary_tree.h"

namespace house {
namespace {

SourceTree TheTree() { return ReadSourceTree(ZORVAND_SOURCE_DIR); }

TEST(Fence, HoldsInTheTree) {
  const SourceTree tree = TheTree();
  ASSERT_GT(tree.size(), 20U) << "where are the sources?";
  EXPECT_EQ(Listing(FenceOffences(tree)), "");
}

TEST(Fence, NothingCatchesButTheTwoEnds) { EXPECT_EQ(Listing(CatchOffences(TheTree())), ""); }

TEST(Fence, TheTreeReallyShowsTheToolkitWhereItLives) {
  const SourceTree tree = TheTree();
  EXPECT_TRUE(std::ranges::any_of(tree, [](const auto& file) {
    return file.first.starts_with("platform/qt/") &&
           std::ranges::any_of(file.second.includes, [](const Include& include) {
             return IsToolkitHeader(include.name);
           });
  }));
}

TEST(Fence, ReportsEachWayToWriteAnInclude) {
  const TemporaryTree tree{{"core/a.h",
                            "#pragma once\n"
                            "#include <QString>\n"
                            "#  include <QtCore/QString>\n"
                            "#include <qstring.h>\n"
                            "#include \"QWidget\"\n"
                            "#include <qt6/QtGui/qfont.h>\n"
                            "#include <Qt>\n"}};
  EXPECT_EQ(Listing(FenceOffences(tree.Read())),
            "core/a.h:2: includes Qt: QString\n"
            "core/a.h:3: includes Qt: QtCore/QString\n"
            "core/a.h:4: includes Qt: qstring.h\n"
            "core/a.h:5: includes Qt: QWidget\n"
            "core/a.h:6: includes Qt: qt6/QtGui/qfont.h\n"
            "core/a.h:7: includes Qt: Qt\n");
}

TEST(Fence, ReportsEachRoomOutsideIt) {
  const std::string qt = "#include <QString>\n";
  const TemporaryTree tree{{"platform/a.cpp", qt}, {"support/b.cpp", qt},    {"core/c.cpp", qt},
                           {"workbench/d.h", qt},  {"gallery/e.cpp", qt},    {"editor/f.cpp", qt},
                           {"export/g.cpp", qt},   {"platform/rtf/h.h", qt}, {"main.cpp", qt}};
  EXPECT_EQ(FenceOffences(tree.Read()).size(), 9U);
}

TEST(Fence, LetsTheToolkitsOwnFoldersBe) {
  const std::string qt = "#include <QString>\nclass QWidget;\n";
  const TemporaryTree tree{{"platform/qt/a.cpp", qt},
                           {"viewer/b.cpp", qt},
                           {"tests/c.cpp", qt},
                           {"bench/d.cpp", qt},
                           {"tools/e.cpp", qt},
                           {"fuzz/f.cpp", qt},
                           {"book/g.cpp", "#include <QFile>\n"}};
  EXPECT_EQ(Listing(FenceOffences(tree.Read())), "");
}

TEST(Fence, ReportsTheToolkitBroughtInThroughAnotherFile) {
  const TemporaryTree tree{
      {"main.cpp", "#include \"platform/qt/plain.h\"\n#include \"platform/qt/outer.h\"\n"},
      {"platform/qt/outer.h", "#include \"inner.h\"\n"},
      {"platform/qt/inner.h", "#include <QFont>\n"},
      {"platform/qt/plain.h", "#include <string>\n"}};
  EXPECT_EQ(Listing(FenceOffences(tree.Read())),
            "main.cpp:2: brings in Qt through platform/qt/outer.h\n");
}

TEST(Fence, ReportsTypesOfTheToolkitDeclaredByHand) {
  const TemporaryTree tree{{"workbench/a.h",
                            "class QWidget;\n"
                            "namespace Qt { enum Key : int; }\n"
                            "  Q_OBJECT\n"}};
  EXPECT_EQ(Listing(FenceOffences(tree.Read())),
            "workbench/a.h:1: names a thing of Qt: QWidget\n"
            "workbench/a.h:2: names a thing of Qt: Qt\n"
            "workbench/a.h:3: names a thing of Qt: Q_OBJECT\n");
}

TEST(Fence, LeavesCommentsAndTextsAlone) {
  const TemporaryTree tree{{"core/a.cpp",
                            "// Qt, QWidget; #include <QString>\n"
                            "/* QWidget\n#include <QString>\n*/\n"
                            "auto a = \"QWidget \\\" Qt\";\n"
                            "auto b = u8R\"x(\n#include <QString>\n)\" Qt)x\";\n"
                            "auto c = 1'000'000; auto d = u'\"'; auto e = '\\''; int Qx;\n"
                            "int f;  // QWidget\n"}};
  EXPECT_EQ(Listing(FenceOffences(tree.Read())), "");
}

TEST(Fence, SeesCodeAfterTextsAndNumbers) {
  const TemporaryTree tree{{"core/a.cpp",
                            "auto c = 1'000'000; QWidget* w;\n"
                            "auto d = u'\\''; QLabel* l;\n"
                            "auto b = R\"(\n)\"; QFont* f;\n"
                            "/* */ QFrame* g;\n"}};
  EXPECT_EQ(FenceOffences(tree.Read()).size(), 4U);
}

TEST(Fence, ReportsACatch) {
  const std::string code = "void F() {\n  try { G(); }\n  catch (const E&) {}\n}\n// catch (\n";
  const TemporaryTree tree{{"platform/failure.cpp", code},
                           {"platform/qt/window.cpp", code},
                           {"core/a.cpp", code},
                           {"tests/unit/b_test.cpp", "try{}catch(...){}\n"}};
  EXPECT_EQ(Listing(CatchOffences(tree.Read())),
            "core/a.cpp:3: catches; CatchingFailure and Ignoring are for that\n"
            "platform/qt/window.cpp:3: catches; CatchingFailure and Ignoring are for that\n"
            "tests/unit/b_test.cpp:1: catches; CatchingFailure and Ignoring are for that\n");
}

}  // namespace
}  // namespace house
