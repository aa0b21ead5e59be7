// The format window's controls follow its size, which doesn't get smaller than designed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRect>
#include <QWidget>
#include <map>
#include <string>

#include "tests/support/format_desk.h"

namespace {

using platform::Twips;
using testing_support::FormatDesk;
using testing_support::Robot;

constexpr int kDesignWidth = 827;
constexpr int kDesignHeight = 624;

using Places = std::map<std::string, QRect>;

// What is added to a control's place where the window grows by a width and a height, both in
// pixels, the height a multiple of five.
QRect Grown(const std::string& name, const QRect& design, int width, int height) {
  const std::string base = name.substr(0, name.find('('));
  const auto isOneOf = [](const std::string& wanted, std::initializer_list<const char*> names) {
    return std::ranges::find(names, wanted) != names.end();
  };
  const bool isMarking =
      base == "Com" && name != "Com(4)" && name != "Com(11)" && name != "Com(13)";
  QRect grown = design;
  if (isMarking || isOneOf(base, {"books", "Label3", "Label1", "P22", "chnd", "Noghte", "HazP",
                                  "HazC", "IMG", "IMC", "Label14", "VSC"})) {
    grown.translate(width, 0);
  }
  if (isOneOf(base, {"matn", "bindex", "Frame1", "Frame2", "Frame3", "Frame4", "Frame5", "IMF",
                     "IMN", "IMJ"})) {
    grown.setWidth(grown.width() + width);
  }
  if (isOneOf(base, {"Frame3", "Frame5"}) || name == "Com(13)") grown.translate(0, height);
  if (isOneOf(base, {"matn", "Frame4", "VSC"})) grown.setHeight(grown.height() + height);
  if (isOneOf(base, {"IMF", "IMG"})) grown.setHeight(grown.height() + height / 5);
  if (base == "IMF") grown.translate(0, (name[4] - '0') * height / 5);
  return grown;
}

class FormatWindowSize : public testing::Test {
 protected:
  FormatWindowSize() { desk.Open(); }

  static QWidget& Window() { return *Robot::FindWindow("Form3"); }
  static void Resize(int width, int height) {
    Window().resize(width, height);
    Robot::Settle();
  }
  Places ControlPlaces() const {
    Places places;
    for (const platform::ControlRow& row : desk.form3.Definition().rows) {
      if (!platform::IsPlaced(row.kind)) continue;
      std::string name = platform::ToUtf8(row.name);
      if (row.index != platform::kNoIndex) name += "(" + std::to_string(row.index) + ")";
      places[name] = Robot::Find("Form3", QString::fromStdString(name)).geometry();
    }
    return places;
  }
  void ExpectGrown(const Places& design, int width, int height) const {
    for (const auto& [name, place] : ControlPlaces()) {
      const QRect wanted = Grown(name, design.at(name), width, height);
      EXPECT_EQ(place, wanted) << name << " at " << place.x() << "," << place.y() << " "
                               << place.width() << "x" << place.height() << ", wanted "
                               << wanted.x() << "," << wanted.y() << " " << wanted.width() << "x"
                               << wanted.height();
    }
  }

  FormatDesk desk;
};

TEST_F(FormatWindowSize, OpensInItsDesignSize) {
  EXPECT_EQ(Window().width(), kDesignWidth);
  EXPECT_EQ(Window().height(), kDesignHeight);
  EXPECT_EQ(desk.form3.designGeometry.width, 12405);
  EXPECT_EQ(desk.form3.designGeometry.height, 9360);
}

TEST_F(FormatWindowSize, DraggedNarrowerItSnapsBackToItsWidth) {
  const Places design = ControlPlaces();
  Resize(500, kDesignHeight + 100);
  EXPECT_EQ(Window().width(), kDesignWidth);
  EXPECT_EQ(Window().height(), kDesignHeight + 100);
  ExpectGrown(design, 0, 100);
}

TEST_F(FormatWindowSize, DraggedLowerItSnapsBackToItsHeight) {
  const Places design = ControlPlaces();
  Resize(kDesignWidth + 60, 300);
  EXPECT_EQ(Window().width(), kDesignWidth + 60);
  EXPECT_EQ(Window().height(), kDesignHeight);
  ExpectGrown(design, 60, 0);
}

TEST_F(FormatWindowSize, DraggedSmallerInBothItSnapsBackInBoth) {
  const Places design = ControlPlaces();
  Resize(10, 10);
  EXPECT_EQ(Window().size(), QSize(kDesignWidth, kDesignHeight));
  EXPECT_EQ(ControlPlaces(), design);
}

TEST_F(FormatWindowSize, GrowingMovesAndWidensTheControlsOfTheTableAndNoOthers) {
  const Places design = ControlPlaces();
  Resize(kDesignWidth + 150, kDesignHeight + 100);
  ExpectGrown(design, 150, 100);
}

TEST_F(FormatWindowSize, BackInItsDesignSizeEverythingStandsAsDesigned) {
  const Places design = ControlPlaces();
  Resize(kDesignWidth + 333, kDesignHeight + 217);
  Resize(kDesignWidth + 12, kDesignHeight + 7);
  Resize(kDesignWidth, kDesignHeight);
  EXPECT_EQ(ControlPlaces(), design);
}

// A pixel is 15 twips, so the smallest growth that five can divide is 7 pixels.
TEST_F(FormatWindowSize, AGrowthOfHeightGivesEachCellAFifthAndTheTextAllOfIt) {
  const Twips text = desk.form3.matn.Height();
  const Twips picture = desk.form3.IMG(4).Height();
  Resize(kDesignWidth, kDesignHeight + 7);
  EXPECT_EQ(desk.form3.matn.Height(), text + 105);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(desk.form3.IMF(i).Height(), 1530 + 21) << i;
    EXPECT_EQ(desk.form3.IMF(i).Top(), 480 + i * (1530 + 21)) << i;
  }
  EXPECT_EQ(desk.form3.IMG(4).Height(), picture + 21);
}

TEST_F(FormatWindowSize, AFifthIsAWholeNumberOfTwips) {
  Resize(kDesignWidth, kDesignHeight + 1);
  EXPECT_EQ(desk.form3.IMF(0).Height(), 1530 + 3);
  Resize(kDesignWidth, kDesignHeight + 2);
  EXPECT_EQ(desk.form3.IMF(0).Height(), 1530 + 6);
}

TEST_F(FormatWindowSize, TheCellsStayEdgeToEdge) {
  Resize(kDesignWidth, kDesignHeight + 83);
  for (int i = 1; i < 5; ++i) {
    const QRect above = Robot::Find("Form3", QStringLiteral("IMF(%1)").arg(i - 1)).geometry();
    const QRect below = Robot::Find("Form3", QStringLiteral("IMF(%1)").arg(i)).geometry();
    EXPECT_EQ(below.top(), above.bottom() + 1) << i;
  }
}

TEST_F(FormatWindowSize, MaximisedTheControlsFollow) {
  const Places design = ControlPlaces();
  Window().showMaximized();
  Robot::Settle();
  const int width = Window().width() - kDesignWidth;
  ASSERT_GE(width, 0);
  EXPECT_EQ(Robot::Find("Form3", "matn").width(), design.at("matn").width() + width);
  Window().showNormal();
  Robot::Settle();
}

TEST_F(FormatWindowSize, MinimisingReportsNoFailure) {
  Window().showMinimized();
  Robot::Settle();
  Window().showNormal();
  Robot::Settle();
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  EXPECT_EQ(Window().size(), QSize(kDesignWidth, kDesignHeight));
}

TEST_F(FormatWindowSize, AFailureInItEndsWithoutANumber) {
  desk.form3.designGeometry.measures.push_back({.control = u"NoSuchControl",
                                                .index = platform::kNoIndex,
                                                .measure = workbench::Measure::kLeft,
                                                .growth = workbench::Growth::kByWidth,
                                                .value = 0});
  const std::string log = desk.Log();
  Resize(kDesignWidth + 30, kDesignHeight);
  EXPECT_EQ(desk.Log(), log);
  EXPECT_EQ(desk.form3.matn.Width(), 12300 + 450);
}

}  // namespace
