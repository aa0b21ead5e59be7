// The format window's controls follow its size, which doesn't get smaller than designed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRect>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>

#include "tests/support/format_desk.h"

namespace {

using platform::Twips;
using testing_support::FormatDesk;
using testing_support::Robot;

constexpr int kDesignWidth = 827;
constexpr int kDesignHeight = 624;

using Places = std::map<std::string, QRect>;

std::string NameOf(const platform::ControlRow& row) {
  const std::string name = platform::ToUtf8(row.name);
  return row.index == platform::kNoIndex ? name : name + "(" + std::to_string(row.index) + ")";
}

int Pixels(Twips twips) { return static_cast<int>(std::lround(twips / 15.0)); }

// A control's place where the window has grown by a width and a height, both in pixels. What grows
// is measured in twips, and both edges are then rounded.
QRect Grown(const platform::ControlRow& row, int width, int height) {
  const std::string name = NameOf(row);
  const std::string base = platform::ToUtf8(row.name);
  const auto isOneOf = [&](std::initializer_list<const char*> names) {
    return std::ranges::find(names, base) != names.end();
  };
  const Twips wider = 15 * width;
  const Twips higher = 15 * height;
  const Twips fifth = higher / 5;
  Twips left = row.left;
  Twips top = row.top;
  Twips right = row.left + row.width;
  Twips bottom = row.top + row.height;
  const bool isMarking =
      base == "Com" && name != "Com(4)" && name != "Com(11)" && name != "Com(13)";
  if (isMarking || isOneOf({"books", "Label3", "Label1", "P22", "chnd", "Noghte", "HazP", "HazC",
                            "IMG", "IMC", "Label14", "VSC"})) {
    left += wider;
    right += wider;
  }
  if (isOneOf({"matn", "bindex", "Frame1", "Frame2", "Frame3", "Frame4", "Frame5", "IMF", "IMN",
               "IMJ"})) {
    right += wider;
  }
  if (isOneOf({"Frame3", "Frame5"}) || name == "Com(13)") {
    top += higher;
    bottom += higher;
  }
  if (isOneOf({"matn", "Frame4", "VSC"})) bottom += higher;
  if (base == "IMF") {
    top += row.index * fifth;
    bottom += (row.index + 1) * fifth;
  }
  if (base == "IMG") bottom += fifth;
  return {QPoint(Pixels(left), Pixels(top)), QPoint(Pixels(right) - 1, Pixels(bottom) - 1)};
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
      const std::string name = NameOf(row);
      places[name] = Robot::Find("Form3", QString::fromStdString(name)).geometry();
    }
    return places;
  }
  void ExpectGrown(int width, int height) const {
    const Places places = ControlPlaces();
    for (const platform::ControlRow& row : desk.form3.Definition().rows) {
      if (!platform::IsPlaced(row.kind)) continue;
      const QRect place = places.at(NameOf(row));
      const QRect wanted = Grown(row, width, height);
      EXPECT_EQ(place, wanted) << NameOf(row) << " at " << place.x() << "," << place.y() << " "
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

// The desktop is told the smallest size, too; these are about what the window does by itself.
class FormatWindowDragged : public FormatWindowSize {
 protected:
  FormatWindowDragged() { Window().setMinimumSize(0, 0); }
};

TEST_F(FormatWindowSize, TellsTheDesktopItsSmallestSize) {
  EXPECT_EQ(Window().minimumSize(), QSize(kDesignWidth, kDesignHeight));
}

TEST_F(FormatWindowDragged, NarrowerItSnapsBackToItsWidth) {
  Resize(500, kDesignHeight + 100);
  EXPECT_EQ(Window().width(), kDesignWidth);
  EXPECT_EQ(Window().height(), kDesignHeight + 100);
  ExpectGrown(0, 100);
}

TEST_F(FormatWindowDragged, LowerItSnapsBackToItsHeight) {
  Resize(kDesignWidth + 60, 300);
  EXPECT_EQ(Window().width(), kDesignWidth + 60);
  EXPECT_EQ(Window().height(), kDesignHeight);
  ExpectGrown(60, 0);
}

TEST_F(FormatWindowDragged, SmallerInBothItSnapsBackInBoth) {
  const Places design = ControlPlaces();
  Resize(10, 10);
  EXPECT_EQ(Window().size(), QSize(kDesignWidth, kDesignHeight));
  EXPECT_EQ(ControlPlaces(), design);
}

TEST_F(FormatWindowSize, GrowingMovesAndWidensTheControlsOfTheTableAndNoOthers) {
  Resize(kDesignWidth + 150, kDesignHeight + 100);
  ExpectGrown(150, 100);
}

class FormatWindowSizes : public FormatWindowSize,
                          public testing::WithParamInterface<std::pair<int, int>> {};

// From the design to the inside of a large screen, fifths of the height that are no whole pixels
// among them.
INSTANTIATE_TEST_SUITE_P(Grown, FormatWindowSizes,
                         testing::Values(std::pair(0, 0), std::pair(1, 0), std::pair(0, 1),
                                         std::pair(3, 2), std::pair(60, 7), std::pair(150, 100),
                                         std::pair(197, 144), std::pair(453, 276),
                                         std::pair(1093, 456), std::pair(1733, 816)));

TEST_P(FormatWindowSizes, EveryControlStandsByTheRules) {
  const auto [width, height] = GetParam();
  Resize(kDesignWidth + width, kDesignHeight + height);
  EXPECT_EQ(Window().size(), QSize(kDesignWidth + width, kDesignHeight + height));
  ExpectGrown(width, height);
}

// Whatever sizes came before.
TEST_F(FormatWindowSize, TheSameSizeGivesTheSamePlaces) {
  Resize(kDesignWidth + 1733, kDesignHeight + 816);
  Resize(kDesignWidth + 5, kDesignHeight + 3);
  ExpectGrown(5, 3);
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
  Window().showMaximized();
  Robot::Settle();
  const QSize grown = Window().size() - QSize(kDesignWidth, kDesignHeight);
  EXPECT_GT(grown.height(), 0);
  ExpectGrown(grown.width(), grown.height());
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
