#include "support/window_catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using platform::ControlKind;
using platform::ControlRow;
using platform::kNoIndex;
using platform::Text;
using platform::TextView;
using platform::WindowDefinition;
using testing::UnorderedElementsAre;

std::array<const WindowDefinition*, 6> AllWindows() {
  return {&support::Form1Definition(), &support::Form2Definition(), &support::Form3Definition(),
          &support::Form4Definition(), &support::Form5Definition(), &support::Form6Definition()};
}

const ControlRow* Find(const WindowDefinition& window, TextView name, int index = kNoIndex) {
  const auto found = std::ranges::find_if(
      window.rows, [&](const ControlRow& row) { return row.name == name && row.index == index; });
  return found == window.rows.end() ? nullptr : &*found;
}

using Places = std::tuple<int, int, int, int>;

Places PlaceOf(const WindowDefinition& window, TextView name, int index = kNoIndex) {
  const ControlRow* row = Find(window, name, index);
  if (row == nullptr) return {-1, -1, -1, -1};
  return {row->left, row->top, row->width, row->height};
}

std::string Shown(const ControlRow& row) {
  const Text index = row.index == kNoIndex ? Text() : u"(" + platform::FromNumber(row.index) + u")";
  return platform::ToUtf8(Text(row.name) + index);
}

// What can lie over something else: neither what has children nor what can't be seen.
bool IsLeaf(const ControlRow& row) {
  return row.kind != ControlKind::kFrame && platform::IsPlaced(row.kind) && !row.hidden;
}

bool Overlap(const ControlRow& a, const ControlRow& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

std::vector<std::string> Overlaps(const WindowDefinition& window) {
  std::vector<std::string> pairs;
  for (auto a = window.rows.begin(); a != window.rows.end(); ++a) {
    for (auto b = std::next(a); b != window.rows.end(); ++b) {
      const bool together = a->parent == b->parent && a->parentIndex == b->parentIndex;
      if (!together || !IsLeaf(*a) || !IsLeaf(*b) || !Overlap(*a, *b)) continue;
      pairs.push_back(Shown(*a) + " and " + Shown(*b));
    }
  }
  return pairs;
}

TEST(WindowCatalogue, TitlesAndSizes) {
  using Head = std::tuple<TextView, TextView, int, int>;
  const std::array<Head, 6> heads = {{{u"Form1", u"Zorvand", 4635, 8190},
                                      {u"Form2", u"Select folder", 3315, 3945},
                                      {u"Form3", u"Format data", 12405, 9360},
                                      {u"Form4", u"Help", 10365, 7620},
                                      {u"Form5", u"Select file", 5400, 3615},
                                      {u"Form6", u"Edit paragraph", 9645, 8775}}};
  for (std::size_t i = 0; i < heads.size(); ++i) {
    const WindowDefinition& window = *AllWindows()[i];
    EXPECT_EQ(Head(window.name, window.title, window.width, window.height), heads[i]);
  }
}

TEST(WindowCatalogue, OnlyTheChoosersOpenOverTheirOwner) {
  for (const WindowDefinition* window : AllWindows()) {
    const bool chooser = window->name == u"Form2" || window->name == u"Form5";
    EXPECT_EQ(window->opensAt == platform::OpensAt::kOwnerCentre, chooser);
  }
}

TEST(WindowCatalogue, Borders) {
  for (const WindowDefinition* window : AllWindows()) {
    const platform::Border border = window->name == u"Form1"   ? platform::Border::kFixed
                                    : window->name == u"Form3" ? platform::Border::kSizable
                                                               : platform::Border::kFixedTool;
    EXPECT_EQ(window->border, border);
    EXPECT_EQ(window->hasIcon, border != platform::Border::kFixedTool);
  }
}

TEST(WindowCatalogue, NoControlStandsTwice) {
  for (const WindowDefinition* window : AllWindows()) {
    std::set<std::pair<TextView, int>> names;
    for (const ControlRow& row : window->rows) {
      EXPECT_TRUE(names.emplace(row.name, row.index).second) << Shown(row);
    }
  }
}

TEST(WindowCatalogue, AFrameStandsBeforeWhatItHolds) {
  for (const WindowDefinition* window : AllWindows()) {
    std::set<std::pair<TextView, int>> frames = {{u"", kNoIndex}};
    for (const ControlRow& row : window->rows) {
      EXPECT_TRUE(frames.contains({row.parent, row.parentIndex})) << Shown(row);
      const bool holds = row.kind == ControlKind::kFrame || row.kind == ControlKind::kMenu;
      if (holds) frames.emplace(row.name, row.index);
    }
  }
}

TEST(WindowCatalogue, EverythingButTimersHasASize) {
  for (const WindowDefinition* window : AllWindows()) {
    for (const ControlRow& row : window->rows) {
      EXPECT_EQ(row.width > 0 && row.height > 0, platform::IsPlaced(row.kind)) << Shown(row);
    }
  }
}

TEST(WindowCatalogue, NothingOfTheRecoveryWindowOverlaps) {
  EXPECT_THAT(Overlaps(support::RecoveryDefinition()), testing::IsEmpty());
}

TEST(WindowCatalogue, NothingOfForm1OverlapsBeyondTheDesign) {
  EXPECT_THAT(Overlaps(support::Form1Definition()),
              UnorderedElementsAre("Label7 and Text1", "Label8 and idir", "Label8 and Command2",
                                   "Label11 and Label14", "Olgoo(0) and Olgoo(1)"));
}

TEST(WindowCatalogue, NothingOfTheChoosersAndTheHelpOverlaps) {
  EXPECT_THAT(Overlaps(support::Form2Definition()), testing::IsEmpty());
  EXPECT_THAT(Overlaps(support::Form4Definition()), testing::IsEmpty());
  EXPECT_THAT(Overlaps(support::Form5Definition()), UnorderedElementsAre("Label5 and File1"));
}

// A label's box reaches into its neighbours, buttons share an edge, the field for the count stands
// in the gap of its caption, and the working box lies behind the text.
TEST(WindowCatalogue, NothingOfForm3OverlapsBeyondTheDesign) {
  EXPECT_THAT(Overlaps(support::Form3Definition()),
              UnorderedElementsAre("Label1 and Com(12)", "Label1 and books", "Label2 and Label3",
                                   "Label2 and BookLabel", "Label3 and BookLabel",
                                   "Label3 and bindex", "Com(0) and Com(1)", "Com(5) and Com(6)",
                                   "Com(6) and Com(7)", "Com(7) and Com(8)", "Com(9) and Com(10)",
                                   "Com(2) and Com(3)", "ConRT and matn", "HazC(12) and P22",
                                   "P22 and chnd", "Label14(0) and IMJ(0)", "Label14(1) and IMJ(1)",
                                   "Label14(2) and IMJ(2)", "Label14(3) and IMJ(3)",
                                   "Label14(4) and IMJ(4)"));
}

TEST(WindowCatalogue, NothingOfForm6OverlapsBeyondTheDesign) {
  EXPECT_THAT(Overlaps(support::Form6Definition()),
              UnorderedElementsAre("btn(1) and Label6", "btn(2) and Label1", "btn(3) and Label2",
                                   "Label14(0) and IMJ(0)", "Label14(1) and IMJ(1)",
                                   "Label14(2) and IMJ(2)", "Label14(3) and IMJ(3)",
                                   "Label14(4) and IMJ(4)"));
}

TEST(WindowCatalogue, OnlyLabelsAboveOrBelowTheirFieldAreRightAligned) {
  std::vector<std::string> labels;
  for (const WindowDefinition* window : AllWindows()) {
    for (const ControlRow& row : window->rows) {
      if (row.kind != ControlKind::kLabel || !row.rightAligned) continue;
      labels.push_back(platform::ToUtf8(window->name) + "." + Shown(row));
    }
  }
  EXPECT_THAT(labels, UnorderedElementsAre("Form1.Label7", "Form1.Label8", "Form3.Label1",
                                           "Form3.Label3", "Form5.Label5", "Form6.Label4"));
}

TEST(WindowCatalogue, TheLinesOfForm1DivideItsGroups) {
  const WindowDefinition& window = support::Form1Definition();
  const std::array<std::tuple<TextView, TextView, TextView>, 4> lines = {
      {{u"shenas", u"Frame2", u"dataName"},
       {u"index", u"Frame3", u"Frame4"},
       {u"Mus2", u"Frame5", u"Olgoo"},
       {u"Back", u"Frame6", u"Pcheck"}}};
  for (const auto& [above, line, below] : lines) {
    const ControlRow& upper = *Find(window, above);
    const ControlRow& lower = *Find(window, below, below == u"Olgoo" ? 0 : kNoIndex);
    const ControlRow& between = *Find(window, line);
    EXPECT_EQ(between.kind, ControlKind::kLine);
    EXPECT_EQ(between.height, 30);
    EXPECT_GE(between.top, upper.top + upper.height) << Shown(between);
    EXPECT_LE(between.top + between.height, lower.top) << Shown(between);
  }
}

TEST(WindowCatalogue, TheFieldsOfForm1OpenWithTheirDefaults) {
  const WindowDefinition& window = support::Form1Definition();
  const std::array<std::pair<TextView, TextView>, 10> defaults = {
      {{u"title", u"2"},
       {u"matn", u"2"},
       {u"shenas", u"2"},
       {u"Text1", u"Resources"},
       {u"idir", u"Data"},
       {u"ExBox", u"Export"},
       {u"index", u"Resources\\MyBook.jpg"},
       {u"Back", u"Resources\\MyBack.jpg"},
       {u"Mus1", u"Resources\\MySound1.mp3"},
       {u"Mus2", u"Resources\\MySound2.mp3"}}};
  for (const auto& [name, text] : defaults) EXPECT_EQ(Find(window, name)->text, text);
}

TEST(WindowCatalogue, PathsAreTypedIntoTheseFields) {
  std::vector<std::string> paths;
  for (const WindowDefinition* window : AllWindows()) {
    for (const ControlRow& row : window->rows) {
      if (row.path) paths.push_back(platform::ToUtf8(window->name) + "." + Shown(row));
    }
  }
  EXPECT_THAT(paths, UnorderedElementsAre("Form1.Text1", "Form1.idir", "Form1.index", "Form1.Mus1",
                                          "Form1.Mus2", "Form1.Back", "Form1.ExBox", "Form6.picB",
                                          "Form6.soutB", "Form6.filmB"));
}

TEST(WindowCatalogue, OnlyNextIsTheDefaultButton) {
  for (const WindowDefinition* window : AllWindows()) {
    for (const ControlRow& row : window->rows) {
      EXPECT_EQ(row.defaultButton, window->name == u"Form1" && row.name == u"Command3");
    }
  }
}

TEST(WindowCatalogue, Timers) {
  const WindowDefinition& first = support::Form1Definition();
  const WindowDefinition& third = support::Form3Definition();
  EXPECT_FALSE(Find(first, u"Timer1")->enabled);
  EXPECT_TRUE(Find(third, u"Timer1")->enabled);
  EXPECT_FALSE(Find(third, u"Timer2")->enabled);
  EXPECT_EQ(Find(first, u"Timer1")->interval, 100);
  EXPECT_EQ(Find(third, u"Timer1")->interval, 100);
  EXPECT_EQ(Find(third, u"Timer2")->interval, 100);
}

TEST(WindowCatalogue, HiddenAtDesign) {
  std::vector<std::string> hidden;
  for (const WindowDefinition* window : AllWindows()) {
    for (const ControlRow& row : window->rows) {
      if (row.hidden) hidden.push_back(platform::ToUtf8(window->name) + "." + Shown(row));
    }
  }
  EXPECT_THAT(hidden, UnorderedElementsAre("Form3.Frame4", "Form3.SelAll", "Form6.Frame4"));
}

TEST(WindowCatalogue, ThePictureCellsAreEqualAndStackAtTheirPitch) {
  const std::array<std::tuple<const WindowDefinition*, int, int>, 2> browsers = {
      {{&support::Form3Definition(), 480, 1530}, {&support::Form6Definition(), 495, 1395}}};
  for (const auto& [window, top, pitch] : browsers) {
    for (int i = 0; i < support::kPictureCells; ++i) {
      const ControlRow& cell = *Find(*window, u"IMF", i);
      EXPECT_EQ(cell.top, top + pitch * i);
      EXPECT_EQ(cell.height, pitch);
      for (const TextView name : {u"IMG", u"IMC", u"IMN", u"IMJ", u"Label14"}) {
        const ControlRow& row = *Find(*window, name, i);
        EXPECT_EQ(row.parent, u"IMF");
        EXPECT_EQ(row.parentIndex, i);
        EXPECT_EQ(PlaceOf(*window, name, i), PlaceOf(*window, name, 0)) << Shown(row);
      }
    }
  }
}

TEST(WindowCatalogue, TheCommandsOfForm3AreNumberedFrom0To13) {
  for (int i = 0; i <= 13; ++i) {
    EXPECT_NE(Find(support::Form3Definition(), u"Com", i), nullptr) << i;
  }
  EXPECT_EQ(Find(support::Form3Definition(), u"Com", 14), nullptr);
}

TEST(WindowCatalogue, ThreeCommandsCarryTheHintForF6) {
  for (const int i : {1, 12, 13}) {
    EXPECT_EQ(Find(support::Form3Definition(), u"Com", i)->hint, u"F6 :كليد ميانبر") << i;
  }
  EXPECT_EQ(Find(support::Form3Definition(), u"Com", 11)->hint, u"");
}

TEST(WindowCatalogue, ShPathOfForm6IsWiderThanItsFrame) {
  const WindowDefinition& window = support::Form6Definition();
  EXPECT_EQ(Find(window, u"ShPath")->width, 11490);
  EXPECT_LT(Find(window, u"Frame4")->width, 11490);
}

TEST(WindowCatalogue, OptionsOfTheParagraphStripThatAreTickedAtDesign) {
  const WindowDefinition& window = support::Form3Definition();
  EXPECT_TRUE(Find(window, u"HazP")->ticked);
  EXPECT_TRUE(Find(window, u"Noghte")->ticked);
  EXPECT_FALSE(Find(window, u"P22")->ticked);
  EXPECT_EQ(Find(window, u"chnd")->text, u"22");
}

TEST(WindowCatalogue, TheWorkbenchOpensWithFourParagraphs) {
  const std::vector<Text> paragraphs =
      platform::Split(Find(support::Form3Definition(), u"matn")->text, platform::kCrLf);
  ASSERT_EQ(paragraphs.size(), 4U);
  EXPECT_TRUE(paragraphs[0].starts_with(u"متن در اين محل"));
  EXPECT_TRUE(paragraphs[1].starts_with(u"انتخاب مي\u200Fكنيد"));
  EXPECT_TRUE(paragraphs[2].starts_with(u"براي ويرايش"));
  EXPECT_TRUE(paragraphs[3].starts_with(u"براي ايجاد گالري"));
}

TEST(WindowCatalogue, YeAndKafAreTheLettersOfTheDesign) {
  for (const WindowDefinition* window : AllWindows()) {
    for (const ControlRow& row : window->rows) {
      EXPECT_EQ(row.text.find(u'\u06CC'), Text::npos) << Shown(row);  // Persian ye
      EXPECT_EQ(row.text.find(u'\u06A9'), Text::npos) << Shown(row);  // Persian kaf
      EXPECT_EQ(row.hint.find(u'\u06CC'), Text::npos) << Shown(row);
      EXPECT_EQ(row.hint.find(u'\u06A9'), Text::npos) << Shown(row);
    }
  }
}

TEST(WindowCatalogue, ACaptionThatEndsInAMarkCarriesTheRightToLeftMark) {
  for (const WindowDefinition* window : AllWindows()) {
    for (const ControlRow& row : window->rows) {
      const bool endsBare = row.text.ends_with(u"!") || row.text.ends_with(u"»") ||
                            (row.kind == ControlKind::kLabel && row.text.ends_with(u":"));
      // The words of the book label can become a title, so they stay bare.
      EXPECT_EQ(endsBare, row.name == u"BookLabel") << Shown(row);
    }
  }
}

}  // namespace
