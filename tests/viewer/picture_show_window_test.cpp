// One picture over the whole screen: turned, enlarged, moved, copied, saved.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QTest>

#include "tests/support/picture_files.h"
#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

// Red to the left, blue to the right.
QImage TwoColours(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::red);
  QPainter(&image).fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
  return image;
}

class Show : public testing::Test {
 protected:
  Show() { MakeBook(maker_); }
  ~Show() override { delete TopLevel(u"pictureShow"_s); }

  void Open(QSize size) {
    bytes_ = QByteArray::fromStdString(testing_support::FileOf(TwoColours(size), "PNG"));
    maker_.WriteBytes(u"Data/IMG/P1.jpg"_s, bytes_);
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->show();
    Click(*window_, u"b1"_s);
    QTest::keyClick(&ListOf(*window_, u"galleryPage"_s), Qt::Key_Return);
    show_ = TopLevel(u"pictureShow"_s);
    ASSERT_NE(show_, nullptr);
    show_->resize(800, 600);
    ASSERT_TRUE(Await([&] { return Has(Qt::red) && Has(Qt::blue); }));
  }
  QImage Seen() { return show_->grab().toImage(); }
  // Where this colour is seen.
  QRect PlaceOf(QColor colour) {
    const QImage seen = Seen();
    QRect place;
    for (int y = 0; y < seen.height(); ++y) {
      for (int x = 0; x < seen.width(); ++x) {
        if (seen.pixelColor(x, y) == colour) place |= QRect(x, y, 1, 1);
      }
    }
    return place;
  }
  bool Has(QColor colour) { return !PlaceOf(colour).isEmpty(); }
  void Press(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(show_, static_cast<Qt::Key>(key), with);
  }

  BookMaker maker_;
  QByteArray bytes_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
  QWidget* show_ = nullptr;
};

TEST_F(Show, TurnedToTheRightTheLeftIsAbove) {
  Open({200, 100});
  EXPECT_LT(PlaceOf(Qt::red).center().x(), PlaceOf(Qt::blue).center().x());
  Press(Qt::Key_R);
  EXPECT_EQ(PlaceOf(Qt::red).size(), QSize(100, 100));
  EXPECT_LT(PlaceOf(Qt::red).center().y(), PlaceOf(Qt::blue).center().y());
  Press(Qt::Key_L);
  Press(Qt::Key_L);
  EXPECT_GT(PlaceOf(Qt::red).center().y(), PlaceOf(Qt::blue).center().y());
  Click(*show_, u"turnPicture"_s);
  EXPECT_LT(PlaceOf(Qt::red).center().x(), PlaceOf(Qt::blue).center().x());
}

TEST_F(Show, TheNextPictureIsUprightAndFits) {
  Open({200, 100});
  Press(Qt::Key_R);
  Press(Qt::Key_Left);
  Press(Qt::Key_Right);
  EXPECT_LT(PlaceOf(Qt::red).center().x(), PlaceOf(Qt::blue).center().x());
}

TEST_F(Show, EnlargedItIsMovedByTheArrowsAndByTheMouse) {
  Open({3000, 1000});
  const int before = PlaceOf(Qt::red).right();
  Press(Qt::Key_F);
  EXPECT_EQ(Find(*show_, u"fitPicture"_s).accessibleName(), u"هم‌اندازه‌ی صفحه"_s);
  EXPECT_NEAR(PlaceOf(Qt::red).right(), before, 2);
  Press(Qt::Key_Right);  // towards what lies to the right
  const int moved = PlaceOf(Qt::red).right();
  EXPECT_NEAR(moved, before - 80, 2);
  QTest::mousePress(show_, Qt::LeftButton, {}, {300, 200});
  QTest::mouseMove(show_, {350, 200});
  QTest::mouseRelease(show_, Qt::LeftButton, {}, {350, 200});
  EXPECT_NEAR(PlaceOf(Qt::red).right(), moved + 50, 2);
  Press(Qt::Key_F);
  EXPECT_NEAR(PlaceOf(Qt::red).right(), before, 2);
  EXPECT_EQ(Find(*show_, u"fitPicture"_s).accessibleName(), u"اندازه‌ی اصلی"_s);
  Press(Qt::Key_Left);  // fits: the next one
  EXPECT_FALSE(Has(Qt::blue));
}

TEST_F(Show, PlusAndMinusMakeItLargerAndSmaller) {
  Open({200, 100});
  Press(Qt::Key_Plus);
  EXPECT_NEAR(PlaceOf(Qt::red).height(), 125, 2);
  Press(Qt::Key_Minus);
  Press(Qt::Key_Minus);
  EXPECT_EQ(PlaceOf(Qt::red).height(), 100);
}

TEST_F(Show, ItIsCopiedAsItIsSeen) {
  Open({200, 100});
  Press(Qt::Key_R);
  Press(Qt::Key_C, Qt::ControlModifier);
  const QImage copied = QGuiApplication::clipboard()->image();
  ASSERT_EQ(copied.size(), QSize(100, 200));
  EXPECT_EQ(copied.pixelColor(50, 20), QColor(Qt::red));
  EXPECT_EQ(copied.pixelColor(50, 180), QColor(Qt::blue));
}

TEST_F(Show, ItIsSavedByteForByteWhereTheReaderWantsIt) {
  Open({200, 100});
  const QTemporaryDir folder;
  asked_->newFile = folder.filePath(u"mine.jpg"_s);
  Press(Qt::Key_S, Qt::ControlModifier);
  QFile saved(asked_->newFile);
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  EXPECT_EQ(saved.readAll(), bytes_);
  EXPECT_EQ(asked_->nameOfNewFile, u"P1.jpg"_s);
}

TEST_F(Show, NothingIsSavedIntoTheBook) {
  Open({200, 100});
  const QTemporaryDir outside;
  ASSERT_TRUE(QFile::link(maker_.PathOf(u"Data"_s), outside.filePath(u"link"_s)));
  const QStringList before = TreeOf(maker_.Root());
  for (const QString& path : {maker_.PathOf(u"mine.jpg"_s), maker_.PathOf(u"Data/IMG/P1.jpg"_s),
                              outside.filePath(u"link/mine.jpg"_s)}) {
    asked_->newFile = path;
    const auto told = AnswerNextBox({});
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(told->startsWith(u"در پوشه‌ی کتاب"_s)) << path.toStdString();
  }
  EXPECT_EQ(TreeOf(maker_.Root()), before);
}

TEST_F(Show, WhatCannotBeSavedIsTold) {
  Open({200, 100});
  asked_->newFile = u"/nowhere/mine.jpg"_s;
  const auto told = AnswerNextBox({});
  Click(*show_, u"savePicture"_s);
  EXPECT_EQ(*told, u"این تصویر ذخیره نشد."_s);
}

}  // namespace
}  // namespace viewer_tests
