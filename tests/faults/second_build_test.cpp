// A build that failed and the one after it; and a build over what a power cut left of a book.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <regex>

#include "platform/text/encoding.h"
#include "tests/book/expected_book.h"
#include "tests/faults/left_book.h"
#include "tests/faults/places.h"
#include "tests/faults/road.h"
#include "tests/support/project_desk.h"

namespace {

using faults::Place;
using faults::Road;
using platform::EncodeUtf16;
using platform::Text;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::Robot;

constexpr const char* kIndex = "Data/_xml/Index.xml";
constexpr const char* kCollection = "Data/_xml/aTitle1.xml";

const Text kHead =
    u"<strings>\r\n\t<aTitle0>Designed by: Kelvar Media (www.kelvar.example)</aTitle0>\r\n";
const Text kOther = u"\t<cTitle9 vol=\"pic1\">Ninth</cTitle9>\r\n";
const Text kOldLine = u"\t<aTitle1 vol=\"txt\">Old name</aTitle1>\r\n";
const Text kLine = u"\t<aTitle1 vol=\"txt\">Name</aTitle1>\r\n";

class SecondBuild : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(road.Go(1, "build")); }

  void Build() {
    if (road.desk.Has(kCollection)) road.desk.robot.AnswerYes();
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
  }
  std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const auto& box : road.desk.robot.TakeBoxes()) {
      const std::string text = box.text.toStdString();
      texts.push_back(text.find("aTitle1.xml") != std::string::npos ? "question" : text);
    }
    return texts;
  }
  std::string Index() {
    const std::string bytes = road.desk.Read(kIndex);
    EXPECT_TRUE(bytes.starts_with(platform::kUtf16Mark));
    return platform::ToUtf8(platform::DecodeUnicode(bytes));
  }
  void ExpectFailed() {
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(road.desk.LoggedFailures(57), 1);
    EXPECT_TRUE(road.desk.form3.IsVisible());
    EXPECT_TRUE(road.TableIsWhole());
  }

  Road road{Road::Found::kNothing};
};

TEST_F(SecondBuild, AfterADiskThatSaidNoAtTheEndIsWhole) {
  road.desk.files.FailWhere("Flush", "Data\\");
  const std::size_t entries = road.desk.LogLines().size();
  Build();
  ExpectFailed();
  const auto lines = road.desk.LogLines();
  EXPECT_EQ(std::count(lines.begin() + static_cast<std::ptrdiff_t>(entries), lines.end(),
                       "Making combo..."),
            0)
      << "the window has changed";
  Build();
  EXPECT_THAT(Boxes(), ElementsAre("question", BoxText(4)));
  EXPECT_EQ(Index(), platform::ToUtf8(kHead + u"\r\n" + kLine));
  ASSERT_TRUE(road.Go(1));
  EXPECT_EQ(faults::WrongAtTheEnd(road.desk, "road-over_nothing"), "");
}

// The file stands from the moment on at which it is made, so the line of the build that failed is
// taken out.
TEST_F(SecondBuild, AfterOneThatMadeTheCollectionsFileAsksAndLeavesOneLine) {
  for (const char* operation : {"Write", "Close"}) {
    road.desk.files.FailWhere(operation, "aTitle1.xml");
    Build();
    EXPECT_THAT(Boxes(), testing::Each("question"));
    EXPECT_TRUE(road.desk.files.HasFailed());
    EXPECT_TRUE(road.desk.Has(kCollection)) << operation;
  }
  Build();
  EXPECT_THAT(Boxes(), ElementsAre("question", BoxText(4)));
  EXPECT_EQ(Index(), platform::ToUtf8(kHead + u"\r\n\r\n" + kLine));
}

TEST_F(SecondBuild, AfterOneThatCouldNotBeginTheIndexBeginsIt) {
  for (const char* operation : {"Write", "Close"}) {
    road.desk.files.FailWhere(operation, "Index.xml");
    Build();
    EXPECT_TRUE(road.desk.files.HasFailed());
    EXPECT_FALSE(road.desk.Has(kCollection)) << operation;
  }
  Build();
  EXPECT_THAT(Boxes(), ElementsAre(BoxText(4)));
  EXPECT_THAT(Index(), testing::StartsWith(platform::ToUtf8(kHead)));
  EXPECT_TRUE(Index().ends_with(platform::ToUtf8(kLine)));
}

// Whatever has failed once the collection's file was there, the index ends with one line of it.
TEST(SecondBuildAfterEachFailure, LeavesOneLine) {
  const auto& places = faults::PlacesOf(Road::Found::kNothing);
  bool isMade = false;
  for (std::size_t k = 1; k <= places.size(); ++k) {
    const Place& place = places[k - 1];
    if (isMade && place.step == "build" && !faults::IsOfLog(place)) {
      SCOPED_TRACE(std::to_string(k) + ": " + place.operation);
      Road road(Road::Found::kNothing);
      road.desk.files.FailAt(k);
      ASSERT_TRUE(road.Go(3));
      const std::string index = road.desk.Read(kIndex);
      const std::string line = EncodeUtf16(kLine);
      EXPECT_EQ(index.find(line), index.rfind(line));
    }
    isMade =
        isMade || (place.operation.starts_with("Open") && place.operation.ends_with("aTitle1.xml"));
  }
}

// What a cut left of the index, and what a build makes of it.
struct TornIndex {
  const char* name;
  std::string left;
  Text built;
};

void PrintTo(const TornIndex& torn, std::ostream* out) { *out << torn.name; }

std::string File(const Text& text) { return std::string(platform::kUtf16Mark) + EncodeUtf16(text); }

class BuildOverTornIndex : public SecondBuild, public testing::WithParamInterface<TornIndex> {
 protected:
  void ExpectBuilt(const Text& index) {
    Build();
    EXPECT_EQ(Boxes().back(), BoxText(4));
    EXPECT_EQ(Index(), platform::ToUtf8(index));
  }
};

TEST_P(BuildOverTornIndex, WithACollectionsFileThatIsEmpty) {
  road.desk.Write(kIndex, GetParam().left);
  road.desk.Write(kCollection, "");
  ExpectBuilt(GetParam().built);
}

TEST_P(BuildOverTornIndex, WithoutACollectionsFile) {
  if (GetParam().left.find(EncodeUtf16(kOldLine)) != std::string::npos) return;
  road.desk.Write(kIndex, GetParam().left);
  ExpectBuilt(GetParam().built);
}

INSTANTIATE_TEST_SUITE_P(
    Each, BuildOverTornIndex,
    testing::Values(
        TornIndex{"empty", "", kHead + kLine}, TornIndex{"mark alone", File({}), kHead + kLine},
        TornIndex{"NULs alone", std::string(200, '\0'), kHead + kLine},
        TornIndex{"half a head", File(kHead.substr(0, 20) + Text(40, u'\0')), kHead + kLine},
        TornIndex{"NULs for a line", File(kHead + kOther + Text(40, u'\0')),
                  kHead + kOther + kLine},
        TornIndex{"NULs for the beginning of a line",
                  File(kHead + kOther + Text(20, u'\0') + u"me</aTitle1>\r\n"),
                  kHead + kOther + kLine},
        TornIndex{"NULs after a line of the collection",
                  File(kHead + kOldLine + kOther + Text(40, u'\0')),
                  kHead + u"\r\n" + kOther + kLine},
        TornIndex{"NULs before lines",
                  File(kHead + Text(40, u'\0') + kOther + u"\t<aTi" + Text(9, u'\0') + kOldLine),
                  kHead + kOther + u"\r\n" + kLine},
        TornIndex{"NULs for the head", File(Text(90, u'\0') + kOther), kHead + kOther + kLine},
        TornIndex{"half a line", File(kHead + kOther + u"\t<aTitle1 vol=\"txt\">Na"),
                  kHead + kOther + kLine},
        TornIndex{"half a tag", File(kHead + kOther + u"\t<aTi"), kHead + kOther + kLine},
        TornIndex{"a tab", File(kHead + kOther + u"\t"), kHead + kOther + kLine},
        TornIndex{"half a first line", File(u"<stri"), kHead + kLine},
        TornIndex{"a first line without its LF", File(u"<strings>\r"), kHead + kLine},
        TornIndex{"half a mark", "\xFF", kHead + kLine},
        TornIndex{"an odd byte of a line",
                  File(kHead + kOther + u"\t<aTitle1 vol=\"txt\">Na") + "m",
                  kHead + kOther + kLine},
        TornIndex{"an odd byte after a line", File(kHead + kOther) + "\t", kHead + kOther + kLine},
        TornIndex{"a line without its LF", File(kHead + kOther.substr(0, kOther.size() - 1)),
                  kHead + kOther + kLine},
        TornIndex{"half a line of another collection", File(kHead + u"\t<bTitle2 vol=\"txt\">Sec"),
                  kHead + u"\t<bTitle2 vol=\"txt\">Sec</bTitle2>\r\n" + kLine},
        TornIndex{"half a close tag of another collection",
                  File(kHead + u"\t<bTitle2 vol=\"txt\">Sec</bTi"),
                  kHead + u"\t<bTitle2 vol=\"txt\">Sec</bTitle2>\r\n" + kLine},
        TornIndex{"NULs after a line by hand", File(kHead + u"\tby hand" + Text(40, u'\0')),
                  kHead + u"\tby hand" + kLine},
        TornIndex{"NULs between lines by hand",
                  File(kHead + u"\tby hand" + Text(40, u'\0') + u"hand\r\n" + kOther),
                  kHead + u"\tby hand\r\nhand\r\n" + kOther + kLine},
        TornIndex{"NULs up to a LF", File(kHead + Text(40, u'\0') + u"\n" + kOther),
                  kHead + kOther + kLine}),
    [](const auto& torn) {
      return std::regex_replace(std::string(torn.param.name), std::regex(" "), "_");
    });

// Nobody's line is lost that isn't torn, however the file was written.
class BuildOverIndexByHand : public SecondBuild, public testing::WithParamInterface<Text> {};

TEST_P(BuildOverIndexByHand, KeepsItsEnd) {
  road.desk.Write(kIndex, File(kHead + GetParam()));
  Build();
  EXPECT_EQ(Index(), platform::ToUtf8(kHead + GetParam() + kLine));
}

INSTANTIATE_TEST_SUITE_P(Each, BuildOverIndexByHand,
                         testing::Values(u"</strings>", u"\t<bTitle2 vol=\"txt\">Second</bTitle2>",
                                         u"\tby hand", u"\tx", u"x", u"\t<note>", u"\t<dTitle1",
                                         u"\t<bTitle2 name=\"x\">Second", u"\t<bTitle2>Second"));

// Whatever else it is, UTF-16 it isn't.
TEST_F(SecondBuild, OverAnIndexInAnotherEncodingLosesNothingOfIt) {
  const std::string byHand = "<strings>\r\n\t<bTitle2>Second</bTitle2>\r\n by hand";
  ASSERT_EQ(byHand.size() % 2, 1U);
  road.desk.Write(kIndex, byHand);
  Build();
  EXPECT_EQ(road.desk.Read(kIndex), byHand + EncodeUtf16(kLine));
}

}  // namespace
