// How a book looks in each light, by numbers.
#include "viewer/look.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace viewer_tests {
namespace {

using viewer::Colours;
using viewer::ColoursOf;
using viewer::Layout;
using viewer::LayoutOf;
using viewer::Light;
using viewer::LookOf;

// https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double Luminance(const QColor& colour) {
  const auto part = [](double of) {
    return of <= 0.03928 ? of / 12.92 : std::pow((of + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
         0.0722 * part(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, bright] = std::minmax(Luminance(one), Luminance(other));
  return (bright + 0.05) / (dark + 0.05);
}

QColor Over(const QColor& upper, const QColor& lower) {
  const auto mix = [&](double above, double below) {
    return static_cast<float>(above * upper.alphaF() + below * (1 - upper.alphaF()));
  };
  return QColor::fromRgbF(mix(upper.redF(), lower.redF()), mix(upper.greenF(), lower.greenF()),
                          mix(upper.blueF(), lower.blueF()));
}

class InEachLight : public testing::TestWithParam<Light> {
 protected:
  const Colours& colours_ = ColoursOf(GetParam());
};

TEST_P(InEachLight, TextsCanBeRead) {
  const Colours& c = colours_;
  const QColor panel = Over(c.panel, c.ground);
  constexpr double kReadable = 4.5;  // https://www.w3.org/TR/WCAG21/#contrast-minimum
  for (const QColor& ground : {c.ground, c.card, c.paper, c.control, panel}) {
    EXPECT_GE(Contrast(c.ink, ground), kReadable) << ground.name().toStdString();
    EXPECT_GE(Contrast(c.faint, ground), kReadable) << ground.name().toStdString();
  }
  EXPECT_GE(Contrast(c.accent, panel), kReadable);
  EXPECT_GE(Contrast(c.accent, c.card), kReadable);
  EXPECT_GE(Contrast(c.onAccent, c.accent), kReadable);
  EXPECT_GE(Contrast(c.onBar, Over(c.barButton, c.bar)), kReadable);
  EXPECT_GE(Contrast(c.onBarPointed, Over(c.barPointed, c.bar)), kReadable);
  EXPECT_GE(Contrast(c.onMark, c.mark), kReadable);
}

// What has been found, is chosen or is pointed at is seen among the rest.
TEST_P(InEachLight, WhatStandsOutIsSeen) {
  const Colours& c = colours_;
  EXPECT_GE(Contrast(c.edge, c.card), 1.3);
  EXPECT_GE(Contrast(c.accent, c.card), 3);
  EXPECT_NE(c.mark, c.paper);
  EXPECT_NE(Over(c.pointed, c.ground), c.ground);
  EXPECT_NE(Over(c.barPointed, c.bar), Over(c.barButton, c.bar));
}

INSTANTIATE_TEST_SUITE_P(Lights, InEachLight,
                         testing::Values(Light::kDay, Light::kPaper, Light::kNight));

TEST(Lights, ByNightTheWindowIsDark) {
  EXPECT_LT(Luminance(ColoursOf(Light::kNight).paper), 0.05);
  EXPECT_GT(Luminance(ColoursOf(Light::kPaper).paper), 0.8);
  EXPECT_EQ(ColoursOf(Light::kDay).paper, QColor(Qt::white));
}

TEST(Looks, EachLayoutHasALightOfItsOwn) {
  EXPECT_EQ(LookOf(1).paper, ColoursOf(Light::kPaper).paper);
  EXPECT_EQ(LookOf(2).paper, ColoursOf(Light::kNight).paper);
}

TEST(Looks, ALayoutKeepsItsPlacesInEachLight) {
  for (const Light light : {Light::kDay, Light::kPaper, Light::kNight}) {
    EXPECT_EQ(LookOf(1, light).paper, ColoursOf(light).paper);
    EXPECT_EQ(LookOf(2, light).ink, ColoursOf(light).ink);
    EXPECT_EQ(LookOf(1, light).layout.contents, Layout::Contents::kBesidePage);
    EXPECT_EQ(LookOf(2, light).layout.contents, Layout::Contents::kApart);
  }
}

TEST(Looks, AnUnknownLayoutIsTheFirst) {
  for (const int number : {0, 3, -1}) {
    EXPECT_EQ(LayoutOf(number).cards, Layout::Cards::kBesidePicture) << number;
    EXPECT_EQ(LookOf(number).paper, LookOf(1).paper) << number;
  }
}

TEST(Looks, TheToolkitsOwnControlsHaveTheLightsColours) {
  for (const Light light : {Light::kDay, Light::kPaper, Light::kNight}) {
    const QPalette palette = viewer::PaletteOf(LookOf(2, light));
    const Colours& colours = ColoursOf(light);
    EXPECT_EQ(palette.color(QPalette::Window), colours.ground);
    EXPECT_EQ(palette.color(QPalette::Button), colours.control);
    EXPECT_EQ(palette.color(QPalette::Base), colours.paper);
    EXPECT_EQ(palette.color(QPalette::Text), colours.ink);
    EXPECT_EQ(palette.color(QPalette::PlaceholderText), colours.faint);
    EXPECT_EQ(palette.color(QPalette::Highlight), colours.accent);
    EXPECT_EQ(palette.color(QPalette::HighlightedText), colours.onAccent);
  }
}

}  // namespace
}  // namespace viewer_tests
