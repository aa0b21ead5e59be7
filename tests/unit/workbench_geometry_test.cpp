#include "workbench/workbench_geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "support/window_catalogue.h"

namespace {

using platform::kNoIndex;
using platform::TextView;
using platform::Twips;
using workbench::ControlMeasure;
using workbench::DesignGeometry;
using workbench::Measure;

constexpr Twips kDesignWidth = 12405;
constexpr Twips kDesignHeight = 9360;
constexpr Twips kCellStep = 1530;

Twips ReadDesign(TextView control, int index, Measure measure) {
  for (const platform::ControlRow& row : support::Form3Definition().rows) {
    if (row.name != control || row.index != index) continue;
    if (measure == Measure::kLeft) return row.left;
    if (measure == Measure::kTop) return row.top;
    return measure == Measure::kWidth ? row.width : row.height;
  }
  throw platform::Failure(u"no such control");
}

class WorkbenchGeometry : public testing::Test {
 protected:
  void Resize(Twips byWidth, Twips byHeight) {
    measures_ = workbench::Resized(design_, kDesignWidth + byWidth, kDesignHeight + byHeight);
  }
  std::optional<Twips> NewMeasure(TextView control, int index, Measure measure) const {
    std::optional<Twips> value;
    for (const ControlMeasure& each : measures_) {
      if (each.control == control && each.index == index && each.measure == measure) {
        EXPECT_FALSE(value.has_value()) << "told twice";
        value = each.value;
      }
    }
    return value;
  }
  std::optional<Twips> Left(TextView control, int index = kNoIndex) const {
    return NewMeasure(control, index, Measure::kLeft);
  }
  std::optional<Twips> Top(TextView control, int index = kNoIndex) const {
    return NewMeasure(control, index, Measure::kTop);
  }
  std::optional<Twips> Width(TextView control, int index = kNoIndex) const {
    return NewMeasure(control, index, Measure::kWidth);
  }
  std::optional<Twips> Height(TextView control, int index = kNoIndex) const {
    return NewMeasure(control, index, Measure::kHeight);
  }

  const DesignGeometry design_ = workbench::TakeGeometry(support::Form3Definition().rows,
                                                         kDesignWidth, kDesignHeight, ReadDesign);
  std::vector<ControlMeasure> measures_;
};

TEST_F(WorkbenchGeometry, DesignIsTheCataloguesInside) {
  EXPECT_EQ(support::Form3Definition().width, kDesignWidth);
  EXPECT_EQ(support::Form3Definition().height, kDesignHeight);
}

TEST_F(WorkbenchGeometry, DesignSizeGivesTheDesignBack) {
  Resize(0, 0);
  ASSERT_EQ(measures_.size(), design_.measures.size());
  for (std::size_t i = 0; i < measures_.size(); ++i) {
    EXPECT_EQ(measures_[i].value, design_.measures[i].value)
        << "measure number " << i << " of the table";
  }
}

TEST_F(WorkbenchGeometry, HeightGrowthOf100GivesEachCell20AndTheText100) {
  Resize(0, 100);
  EXPECT_EQ(Height(u"matn"), 5995);
  EXPECT_EQ(Width(u"matn"), 12300);
  for (int cell = 0; cell < 5; ++cell) {
    EXPECT_EQ(Height(u"IMF", cell), 1550);
    EXPECT_EQ(Height(u"IMG", cell), 1235);
    EXPECT_EQ(Top(u"IMF", cell), 480 + cell * 1550);
  }
  EXPECT_EQ(Height(u"Frame4"), 8860);
  EXPECT_EQ(Height(u"VSC"), 7660);
  EXPECT_EQ(Top(u"Frame3"), 8965);
  EXPECT_EQ(Top(u"Frame5"), ReadDesign(u"Frame5", kNoIndex, Measure::kTop) + 100);
  EXPECT_EQ(Top(u"Com", 13), 8410);
}

TEST_F(WorkbenchGeometry, FifthOfTheHeightIsAWholeNumber) {
  Resize(0, 14);
  EXPECT_EQ(Height(u"IMF", 0), 1532);
  EXPECT_EQ(Height(u"IMG", 4), 1217);
  EXPECT_EQ(Top(u"IMF", 4), 480 + 4 * 1532);
  EXPECT_EQ(Height(u"matn"), 5909);
}

TEST_F(WorkbenchGeometry, WidthGrowthMovesAndWidens) {
  Resize(300, 0);
  EXPECT_EQ(Width(u"matn"), 12600);
  EXPECT_EQ(Height(u"matn"), 5895);
  EXPECT_EQ(Width(u"bindex"), 9690);
  EXPECT_EQ(Width(u"Frame1"), 12600);
  EXPECT_EQ(Width(u"Frame2"), 9825);
  EXPECT_EQ(Width(u"Frame3"), 12600);
  EXPECT_EQ(Width(u"Frame4"), 12600);
  EXPECT_EQ(Width(u"Frame5"), ReadDesign(u"Frame5", kNoIndex, Measure::kWidth) + 300);
  EXPECT_EQ(Left(u"books"), 9915);
  EXPECT_EQ(Left(u"Label3"), 8010);
  EXPECT_EQ(Left(u"Label1"), 9990);
  EXPECT_EQ(Left(u"P22"), 6750);
  EXPECT_EQ(Left(u"chnd"), 8115);
  EXPECT_EQ(Left(u"Noghte"), 360);
  EXPECT_EQ(Left(u"HazP"), 4545);
  EXPECT_EQ(Left(u"HazC", 12), 11955);
  EXPECT_EQ(Left(u"Com", 12), 9915);
  EXPECT_EQ(Left(u"VSC"), 12135);
}

TEST_F(WorkbenchGeometry, WidthGrowthReachesEveryCell) {
  Resize(300, 0);
  for (int cell = 0; cell < 5; ++cell) {
    EXPECT_EQ(Width(u"IMF", cell), 11955);
    EXPECT_EQ(Left(u"IMG", cell), 9870);
    EXPECT_EQ(Left(u"IMC", cell), 8310);
    EXPECT_EQ(Left(u"Label14", cell), 8790);
    EXPECT_EQ(Width(u"IMN", cell), 8580);
    EXPECT_EQ(Width(u"IMJ", cell), 9480);
    EXPECT_EQ(Top(u"IMF", cell), 480 + cell * kCellStep);
  }
}

TEST_F(WorkbenchGeometry, MarkingButtonsMoveButDeleteAndBuildStay) {
  Resize(45, 0);
  EXPECT_EQ(Left(u"Com", 0), 11160);
  EXPECT_EQ(Left(u"Com", 1), 9810);
  EXPECT_EQ(Left(u"Com", 2), 5130);
  EXPECT_EQ(Left(u"Com", 3), 4020);
  EXPECT_EQ(Left(u"Com", 5), 9285);
  EXPECT_EQ(Left(u"Com", 6), 9000);
  EXPECT_EQ(Left(u"Com", 7), 8715);
  EXPECT_EQ(Left(u"Com", 8), 8430);
  EXPECT_EQ(Left(u"Com", 9), 6750);
  EXPECT_EQ(Left(u"Com", 10), 6105);
  for (const int stays : {4, 11, 13}) EXPECT_EQ(Left(u"Com", stays), std::nullopt);
}

TEST_F(WorkbenchGeometry, WhatIsNotToldKeepsItsPlace) {
  Resize(300, 300);
  for (const TextView stays :
       {u"bname", u"BookLabel", u"Label2", u"Chek", u"ShPath", u"SelAll", u"Command1", u"ConRT"}) {
    EXPECT_FALSE(std::ranges::any_of(measures_, [&](const ControlMeasure& each) {
      return each.control == stays;
    })) << platform::ToUtf8(stays);
  }
}

TEST_F(WorkbenchGeometry, BothDirectionsTogether) {
  Resize(1500, 750);
  EXPECT_EQ(Width(u"matn"), 13800);
  EXPECT_EQ(Height(u"matn"), 6645);
  EXPECT_EQ(Width(u"IMF", 3), 13155);
  EXPECT_EQ(Height(u"IMF", 3), 1680);
  EXPECT_EQ(Top(u"IMF", 3), 480 + 3 * 1680);
}

TEST_F(WorkbenchGeometry, BackAtDesignSizeNothingHasDrifted) {
  Resize(1500, 752);
  Resize(0, 0);
  EXPECT_EQ(Height(u"IMF", 4), 1530);
  EXPECT_EQ(Top(u"IMF", 4), 480 + 4 * kCellStep);
  EXPECT_EQ(Left(u"books"), 9615);
}

TEST(WorkbenchGeometryTaking, FailureOfAReadReachesTheCaller) {
  const auto failing = [](TextView, int, Measure) -> Twips { throw platform::Failure(u"gone"); };
  EXPECT_THROW(workbench::TakeGeometry(support::Form3Definition().rows, kDesignWidth, kDesignHeight,
                                       failing),
               platform::Failure);
}

}  // namespace
