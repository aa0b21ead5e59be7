// How a picture is turned, fitted, enlarged and moved, by numbers.
#include "viewer/picture_pose.h"

#include <gtest/gtest.h>

namespace viewer_tests {
namespace {

class Pose : public testing::Test {
 protected:
  Pose() { pose_.Show({800, 400}, {400, 400}); }
  viewer::PicturePose pose_;
};

TEST_F(Pose, ALargePictureIsFittedIntoTheMiddle) {
  EXPECT_EQ(pose_.Place(), QRectF(-200, -100, 400, 200));
  EXPECT_TRUE(pose_.IsFitted());
}

TEST_F(Pose, ASmallOneIsNeverEnlargedByItself) {
  pose_.Show({100, 50}, {400, 400});
  EXPECT_EQ(pose_.Place(), QRectF(-50, -25, 100, 50));
}

TEST_F(Pose, TurnedItIsFittedAnew) {
  pose_.Show({800, 400}, {400, 300});
  pose_.Turn(true);
  EXPECT_EQ(pose_.Quarters(), 1);
  EXPECT_EQ(pose_.Place(), QRectF(-75, -150, 150, 300));
  EXPECT_EQ(pose_.Size(), QSizeF(300, 150));
  pose_.Turn(false);
  pose_.Turn(false);
  EXPECT_EQ(pose_.Quarters(), 3);
}

TEST_F(Pose, InItsWholeSizeItIsMovedAsFarAsItReaches) {
  pose_.ShowWholeSize();
  EXPECT_EQ(pose_.Place(), QRectF(-400, -200, 800, 400));
  EXPECT_TRUE(pose_.Pan({150, 70}));
  EXPECT_EQ(pose_.Place(), QRectF(-250, -200, 800, 400));
  EXPECT_TRUE(pose_.Pan({150, 0}));
  EXPECT_FALSE(pose_.Pan({150, 0}));
  EXPECT_EQ(pose_.Place().left(), -200);
}

TEST_F(Pose, AFittedOneStays) { EXPECT_FALSE(pose_.Pan({10, 10})); }

TEST_F(Pose, ZoomingOutEndsWhereItFits) {
  pose_.ZoomBy(2);
  EXPECT_EQ(pose_.Place(), QRectF(-400, -200, 800, 400));
  EXPECT_FALSE(pose_.IsFitted());
  pose_.Pan({100, 0});
  pose_.ZoomBy(2);
  EXPECT_EQ(pose_.Place().center(), QPointF(200, 0));
  pose_.ZoomBy(0.01);
  EXPECT_TRUE(pose_.IsFitted());
  EXPECT_EQ(pose_.Place(), QRectF(-200, -100, 400, 200));
}

TEST_F(Pose, ZoomingInEndsToo) {
  for (int i = 0; i < 100; ++i) pose_.ZoomBy(2);
  EXPECT_EQ(pose_.Size(), QSizeF(800 * 16, 400 * 16));
}

TEST_F(Pose, WhatWasMovedTurnsAroundTheMiddleOfWhatIsSeen) {
  pose_.ZoomBy(4);
  pose_.Pan({100, 0});
  pose_.Turn(true);
  EXPECT_EQ(pose_.Place().center(), QPointF(0, 100));
}

TEST_F(Pose, AWindowThatGrowsBringsItBackIntoSight) {
  pose_.ShowWholeSize();
  pose_.Pan({200, 0});
  pose_.Show({800, 400}, {700, 400});
  EXPECT_EQ(pose_.Place().center(), QPointF(50, 0));
  pose_.Fit();
  EXPECT_EQ(pose_.Place().center(), QPointF(0, 0));
}

}  // namespace
}  // namespace viewer_tests
