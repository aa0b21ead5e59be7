// The windows on a dark desktop: what is formatted stays on paper, what is off can be read, and
// drawings stand out.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPalette>
#include <QTextEdit>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/qt/artwork.h"
#include "platform/windows/controls.h"
#include "platform/windows/rich_text_box.h"
#include "tests/support/small_window.h"

namespace {

using platform::Artwork;
using platform::ControlKind;
using platform::ControlRow;
using platform::WindowDefinition;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr std::array kRows = std::to_array<ControlRow>({
    {.name = u"page", .kind = ControlKind::kRichTextBox, .width = 1500, .height = 1500},
    {.name = u"field",
     .kind = ControlKind::kTextBox,
     .left = 1500,
     .width = 1500,
     .height = 300,
     .text = u"متن",
     .enabled = false},
    {.name = u"tick",
     .kind = ControlKind::kCheckBox,
     .left = 1500,
     .top = 300,
     .width = 750,
     .height = 300},
    {.name = u"option",
     .kind = ControlKind::kOption,
     .left = 2250,
     .top = 300,
     .width = 750,
     .height = 300},
    {.name = u"list",
     .kind = ControlKind::kListBox,
     .left = 1650,
     .top = 750,
     .width = 1200,
     .height = 600},
});
constexpr WindowDefinition kWindow = {
    .name = u"Dark", .title = u"", .width = 3000, .height = 1500, .rows = kRows};

// As a share of light, by the weights of the sRGB primaries (WCAG 2.1, relative luminance).
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return first > second ? first / second : second / first;
}

// A desktop whose windows are of this colour, while it lives.
class Desktop {
 public:
  explicit Desktop(const QColor& window) {
    const bool dark = window.lightness() < 128;
    const QColor words = dark ? Qt::white : Qt::black;
    QApplication::setPalette(QPalette(words, window, window.lighter(), window.darker(), window,
                                      words, words, dark ? window.darker() : QColor(Qt::white),
                                      window));
  }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop() { QApplication::setPalette(before_); }

 private:
  QPalette before_ = QApplication::palette();
};

const QColor kLight(0xee, 0xee, 0xee);
const QColor kDark(0x2d, 0x2d, 0x2d);

class DarkDesktop : public testing::TestWithParam<QColor> {
 protected:
  Desktop desktop{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(All, DarkDesktop, testing::Values(kDark, kLight),
                         [](const auto& each) { return each.param == kDark ? "Dark" : "Light"; });

int RedIn(const QImage& picture) {
  int red = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor colour = picture.pixelColor(x, y);
      if (colour.red() > colour.green() + 20) ++red;
    }
  }
  return red;
}

TEST_P(DarkDesktop, FormattedTextStandsOnPaper) {
  SmallWindow window(kWindow);
  window.Show();
  const auto& page = Robot::FindAs<QTextEdit>("Dark", "page");
  EXPECT_EQ(page.palette().color(QPalette::Base), QColor(Qt::white));
  EXPECT_EQ(page.palette().color(QPalette::Text), QColor(Qt::black));
  const QImage shown = Robot::FindAs<QTextEdit>("Dark", "page").viewport()->grab().toImage();
  EXPECT_EQ(shown.pixelColor(shown.width() / 2, shown.height() - 3), QColor(Qt::white));
}

TEST_P(DarkDesktop, AFieldThatIsOffCanBeRead) {
  SmallWindow window(kWindow);
  window.Show();
  const QPalette& colours = Robot::FindAs<QLineEdit>("Dark", "field").palette();
  // Large or dimmed text may have three (WCAG 2.1, 1.4.3).
  EXPECT_GE(Contrast(colours.color(QPalette::Disabled, QPalette::Text),
                     colours.color(QPalette::Disabled, QPalette::Base)),
            3.0);
}

TEST_P(DarkDesktop, FieldsMarksAndListsHaveAnEdge) {
  SmallWindow window(kWindow);
  window.Show();
  const QImage shown = window.OnScreen().grab().toImage();
  for (const char* name : {"page", "field", "tick", "option", "list"}) {
    const QRect place = Robot::Find("Dark", name).geometry();
    double strongest = 1;
    for (int x = place.left(); x <= place.right(); ++x) {
      const QColor pixel = shown.pixelColor(x, place.center().y());
      strongest = std::max(strongest, Contrast(pixel, GetParam()));
    }
    // What shows a control's place may have three (WCAG 2.1, 1.4.11); a light desktop has its own.
    EXPECT_GE(strongest, GetParam() == kDark ? 3.0 : 1.5) << name;
  }
}

TEST_P(DarkDesktop, WhatIsOffInAMenuHasNoLightCopyUnderIt) {
  QMenu menu;
  menu.addAction(QStringLiteral("متن"))->setEnabled(false);
  QPalette palette = menu.palette();
  palette.setColor(QPalette::Light, Qt::red);
  menu.setPalette(palette);
  menu.show();
  EXPECT_EQ(RedIn(menu.grab().toImage()), 0);
}

TEST_P(DarkDesktop, DrawingsStandOut) {
  const platform::Ground ground = platform::GroundOf(QApplication::palette());
  for (const Artwork artwork : {Artwork::kTextsIcon, Artwork::kCollectionIcon, Artwork::kMusicIcon,
                                Artwork::kPatternIcon, Artwork::kExportIcon}) {
    QImage picture(60, 60, QImage::Format_RGB32);
    picture.fill(GetParam());
    QPainter painter(&picture);
    platform::DrawArtwork(painter, artwork, picture.rect(), ground);
    painter.end();
    int standing = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (Contrast(picture.pixelColor(x, y), GetParam()) >= 4.5) ++standing;
      }
    }
    EXPECT_GE(standing, 100) << "drawing " << static_cast<int>(artwork);
  }
}

}  // namespace
