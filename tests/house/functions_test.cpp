#include "tests/house/functions.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/house/temporary_tree.h"

namespace house {
namespace {

std::string FunctionsIn(std::string_view text) {
  std::string found;
  for (const Function& function : FunctionsOf(BareCode(text))) {
    found += std::to_string(function.firstLine) + "-" + std::to_string(function.lastLine) + " ";
  }
  return found;
}

std::string Repeated(int times, std::string_view line) {
  std::string text;
  for (int i = 0; i < times; ++i) text += line;
  return text;
}

TEST(Lengths, LetEachFunctionAndFileOfTheTreeBeSeenWhole) {
  EXPECT_EQ(Listing(LengthOffences(ReadSourceTree(ZORVAND_SOURCE_DIR))), "");
}

TEST(Lengths, AFunctionGoesFromItsFirstWordToItsBrace) {
  EXPECT_EQ(FunctionsIn("void F() {\n}\n"), "1-2 ");
  EXPECT_EQ(FunctionsIn("int a;\n\n// why\ntemplate <class T>\nint\nF(T t)\n{\n  return t;\n}\n"),
            "4-9 ");
  EXPECT_EQ(FunctionsIn("TEST(A, B) {\n  if (x) {\n  }\n}\nTEST(A, C) {}\n"), "1-4 5-5 ");
}

TEST(Lengths, FunctionsOfAClassAndOfANamespaceCountEach) {
  EXPECT_EQ(
      FunctionsIn("namespace a::b {\nnamespace {\nclass [[nodiscard]] C final : public B {\n"
                  " public:\n  int F() const { return 1; }\n  struct D {\n    void G() {\n    }\n"
                  "  };\n};\n}\n}\n"),
      "5-5 7-8 ");
  EXPECT_EQ(FunctionsIn("extern \"C\" {\nint F() {\n}\n}\n"), "2-3 ");
}

TEST(Lengths, WhatStandsInsideAFunctionCountsWithIt) {
  EXPECT_EQ(FunctionsIn("void F() {\n  const auto g = [](int a) {\n    return a;\n  };\n"
                        "  struct S {\n    int H() {\n      return 1; }\n  };\n}\n"),
            "1-9 ");
}

TEST(Lengths, AConstructorCountsWithTheValuesOfItsMembers) {
  EXPECT_EQ(
      FunctionsIn(
          "C::C(int a)\n    : a_{a},\n      b_(a),\n      c_{b_} {\n  F();\n}\nint G() {\n}\n"),
      "1-6 7-8 ");
}

TEST(Lengths, TablesAndEnumerationsAreNoFunctions) {
  EXPECT_EQ(
      FunctionsIn("constexpr std::array<std::function<int()>, 2> kA = {{\n  {1},\n}};\n"
                  "auto kC = std::to_array<int>({\n1,\n});\nauto kD = F(A({{1, 2},\n {3, 4}}));\n"
                  "const int kB[] = {F(1),\n  2};\nenum class E : int {\n  kA,\n};\n"
                  "int a{\n1};\n"),
      "");
}

TEST(Lengths, MacrosAndLiteralsAreSkipped) {
  EXPECT_EQ(
      FunctionsIn("#define A(x) { \\\n  x; }\n#if 1\nvoid F() {\n  G(\"}{\", '}');\n}\n#endif\n"),
      "4-6 ");
}

TEST(Lengths, ReportsWhatIsALineTooLong) {
  const std::string row = "  ++a;\n";
  const TemporaryTree tree{
      {"core/a.cpp", "int a;\nvoid F() {\n" + Repeated(kLongestFunction - 2, row) + "}\n"},
      {"core/b.cpp", "int a;\nvoid F() {\n" + Repeated(kLongestFunction - 1, row) + "}\n"},
      {"tests/c.h", Repeated(kLongestFile, "// c\n")},
      {"tests/d.h", Repeated(kLongestFile + 1, "// c\n")}};
  EXPECT_EQ(Listing(LengthOffences(tree.Read())),
            "core/b.cpp:2: a function of 46 lines\n"
            "tests/d.h:1: a file of 601 lines\n");
}

}  // namespace
}  // namespace house
