// How the lines of lists are drawn: each in the direction of its own letters, on its list's side.
// What code and screen readers read of them stays bare.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "platform/qt/conversions.h"
#include "platform/windows/controls.h"
#include "tests/support/small_window.h"

namespace {

using platform::ComboBox;
using platform::ControlKind;
using platform::ControlRow;
using platform::ListBox;
using platform::Text;
using platform::TextView;
using platform::ToQString;
using platform::WindowDefinition;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr std::array kRows = std::to_array<ControlRow>({
    {.name = u"right", .kind = ControlKind::kListBox, .width = 4500, .height = 2400},
    {.name = u"left",
     .kind = ControlKind::kListBox,
     .top = 2400,
     .width = 4500,
     .height = 2400,
     .leftToRight = true},
    {.name = u"combo", .kind = ControlKind::kComboBox, .top = 4800, .width = 4500, .height = 315},
});
constexpr WindowDefinition kWindow = {
    .name = u"Sides", .title = u"", .width = 4500, .height = 6000, .rows = kRows};

bool IsInk(QRgb pixel) { return qGray(pixel) < 160; }

// The part of the picture that holds letters.
QRect InkOf(const QImage& picture) {
  QRect ink;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (IsInk(picture.pixel(x, y))) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

// The line's letters as they stand in a paragraph of that direction, with nothing around them.
QImage Written(const QFont& font, const QString& text, Qt::LayoutDirection direction) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setTextDirection(direction);
  option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  layout.setTextOption(option);
  layout.beginLayout();
  layout.createLine().setLineWidth(1000);
  layout.endLayout();
  QImage picture(1100, 60, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  layout.draw(&painter, QPointF(20, 20));
  painter.end();
  return picture.copy(InkOf(picture));
}

// How much grey differs with `b` moved to the right.
int DifferenceAt(const QImage& a, const QImage& b, int shift) {
  const auto grey = [](const QImage& picture, int x, int y) {
    return picture.valid(x, y) ? qGray(picture.pixel(x, y)) : 255;
  };
  int difference = 0;
  for (int y = 0; y < std::max(a.height(), b.height()); ++y) {
    for (int x = -1; x <= std::max(a.width(), b.width()); ++x) {
      difference += std::abs(grey(a, x, y) - grey(b, x - shift, y));
    }
  }
  return difference;
}

// A line may begin between two pixels, so the same words aren't always the same picture.
int Difference(const QImage& a, const QImage& b) {
  return std::min({DifferenceAt(a, b, -1), DifferenceAt(a, b, 0), DifferenceAt(a, b, 1)});
}

// Whether the letters stand as in a paragraph of that direction and not as in one of the other.
bool Runs(const QImage& letters, const QString& text, Qt::LayoutDirection direction) {
  const QFont font = QApplication::font();
  const bool right = direction == Qt::RightToLeft;
  const int wanted = Difference(letters, Written(font, text, direction));
  const int other =
      Difference(letters, Written(font, text, right ? Qt::LeftToRight : Qt::RightToLeft));
  return 3 * wanted < 2 * other;
}

class LineDirection : public testing::Test {
 protected:
  LineDirection() { window.Load(); }

  static QImage RowOf(QAbstractItemView& view, int row) {
    const QImage all = view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    return all.copy(view.visualRect(view.model()->index(row, 0)));
  }
  static QImage LettersOf(QAbstractItemView& view, int row) {
    const QImage line = RowOf(view, row);
    return line.copy(InkOf(line));
  }
  QImage Shown(const char* name, TextView text) {
    window.ShowActive();
    auto& list = Robot::FindAs<QListWidget>("Sides", name);
    (name == std::string("right") ? right : left).AddItem(text);
    Robot::Settle();
    return LettersOf(list, list.count() - 1);
  }

  SmallWindow window{kWindow};
  ListBox right{window, u"right"};
  ListBox left{window, u"left"};
  ComboBox combo{window, u"combo"};
};

TEST_F(LineDirection, AFilesNameReadsAsItIsWritten) {
  for (const char* list : {"right", "left"}) {
    for (const TextView name : {u"01-Yaddasht.txt", u"_draft (2).txt", u"2. Bagh"}) {
      EXPECT_TRUE(Runs(Shown(list, name), ToQString(name), Qt::LeftToRight))
          << list << " " << platform::ToUtf8(name);
    }
    for (const TextView name : {u"باغ-01.txt", u"[باغ] 2"}) {
      EXPECT_TRUE(Runs(Shown(list, name), ToQString(name), Qt::RightToLeft))
          << list << " " << platform::ToUtf8(name);
    }
  }
}

TEST_F(LineDirection, TheLineStaysOnItsListsSide) {
  Shown("right", u"Bagh.txt");
  Shown("left", u"باغ");
  auto& fromRight = Robot::FindAs<QListWidget>("Sides", "right");
  auto& fromLeft = Robot::FindAs<QListWidget>("Sides", "left");
  EXPECT_GE(InkOf(RowOf(fromRight, 0)).right(), fromRight.viewport()->width() - 8);
  EXPECT_LE(InkOf(RowOf(fromLeft, 0)).left(), 8);
}

TEST_F(LineDirection, ABlankInFrontOfAFolderKeepsItsDepth) {
  Shown("left", u"باغ");
  Shown("left", u"    باغ");
  auto& list = Robot::FindAs<QListWidget>("Sides", "left");
  EXPECT_GE(InkOf(RowOf(list, 1)).left(), InkOf(RowOf(list, 0)).left() + 8);
}

TEST_F(LineDirection, TheMarksOfAnEntryStandInFrontOfItsTitle) {
  for (const TextView line : {u"§ ~ باغ (متن)", u"# Bagh"}) {
    EXPECT_TRUE(Runs(Shown("right", line), ToQString(line), Qt::RightToLeft))
        << platform::ToUtf8(line);
  }
}

TEST_F(LineDirection, AnOpenDropDownListReadsAsTheClosedBox) {
  window.ShowActive();
  const TextView first = u"رديف اول -> مجموعه اول  (a1)";
  const TextView second = u"رديف دوم -> مجموعه دوم  (b2)";
  combo.AddItem(first);
  combo.AddItem(second);
  combo.SetListIndex(0);
  auto& box = Robot::FindAs<QComboBox>("Sides", "combo");
  box.showPopup();
  Robot::Settle();
  EXPECT_TRUE(Runs(LettersOf(*box.view(), 1), ToQString(second), Qt::RightToLeft));
  EXPECT_GE(InkOf(RowOf(*box.view(), 1)).right(), box.view()->viewport()->width() - 12);
  box.hidePopup();
}

TEST_F(LineDirection, WhatIsReadStaysBare) {
  Shown("right", u"01-Yaddasht.txt");
  combo.AddItem(u"(a1)");
  combo.SetListIndex(0);
  EXPECT_EQ(right.List(0), u"01-Yaddasht.txt");
  EXPECT_EQ(combo.Text(), u"(a1)");
  const auto* list = QAccessible::queryAccessibleInterface(&Robot::Find("Sides", "right"));
  EXPECT_EQ(list->child(0)->text(QAccessible::Name), QStringLiteral("01-Yaddasht.txt"));
}

}  // namespace
