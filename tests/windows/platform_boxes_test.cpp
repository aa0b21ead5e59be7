// Message boxes, the clipboard, and how the process ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <array>
#include <cstdio>

#include "platform/windows/application.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/controls.h"
#include "platform/windows/message_box.h"
#include "tests/support/application.h"
#include "tests/support/small_window.h"

namespace {

using platform::Answer;
using platform::AskYesNo;
using platform::Button;
using platform::ControlKind;
using platform::ControlRow;
using platform::ShowNotice;
using platform::TextBox;
using platform::WindowDefinition;
using testing::ElementsAre;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr ControlRow Row(platform::TextView name, ControlKind kind, int top) {
  return {.name = name, .kind = kind, .left = 150, .top = top, .width = 1500, .height = 375};
}

constexpr std::array kRows = {Row(u"go", ControlKind::kButton, 150),
                              Row(u"field", ControlKind::kTextBox, 600)};
constexpr WindowDefinition kWindow = {
    .name = u"Behind", .title = u"", .width = 3000, .height = 1500, .rows = kRows};

// Acts on the box that comes up next.
void WithBox(const std::function<void(QMessageBox&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    act(*box);
  });
}

TEST(PlatformBox, ANoticeIsModalRightToLeftAndHasOneButton) {
  bool seen = false;
  WithBox([&](QMessageBox& box) {
    seen = true;
    EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
    EXPECT_TRUE(box.isModal());
    EXPECT_EQ(box.windowTitle(), "Zorvand");
    EXPECT_EQ(box.text().toStdString(), "فايل\u200Cها <b>شد</b>!\u200F & ");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    EXPECT_EQ(box.button(QMessageBox::Ok)->text().toStdString(), "تأييد");
    box.button(QMessageBox::Ok)->click();
  });
  ShowNotice(u"فايل\u200Fها <b>شد</b>!\u200F & ", platform::kApplicationTitle);
  EXPECT_TRUE(seen);
}

TEST(PlatformBox, YesAndNoBearTheirPersianCaptions) {
  WithBox([](QMessageBox& box) {
    EXPECT_EQ(box.button(QMessageBox::Yes)->text().toStdString(), "بله");
    EXPECT_EQ(box.button(QMessageBox::No)->text().toStdString(), "خير");
    EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
    QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
  });
  EXPECT_EQ(AskYesNo(u"?", u""), Answer::kYes);
  WithBox([](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton); });
  EXPECT_EQ(AskYesNo(u"?", u""), Answer::kNo);
}

TEST(PlatformBox, ClosingAQuestionInAnyOtherWayIsNo) {
  WithBox([](QMessageBox& box) { box.close(); });
  EXPECT_EQ(AskYesNo(u"?", u""), Answer::kNo);
  WithBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(AskYesNo(u"?", u""), Answer::kNo);
}

TEST(PlatformBox, ANoticeIsClosedByEscapeAndEnter) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
    WithBox([key](QMessageBox& box) { QTest::keyClick(&box, key); });
    ShowNotice(u"!", u"");
  }
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(PlatformBox, BoxesNest) {
  WithBox([](QMessageBox& outer) {
    WithBox([](QMessageBox& inner) { inner.button(QMessageBox::Ok)->click(); });
    ShowNotice(u"inner", u"");
    outer.button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(AskYesNo(u"outer", u""), Answer::kYes);
}

TEST(PlatformBox, TheWindowBehindMayGoAwayMeanwhile) {
  SmallWindow window(kWindow);
  window.ShowActive();
  WithBox([&](QMessageBox& box) {
    window.Unload();
    QTimer::singleShot(0, &box, [&box] { box.button(QMessageBox::Yes)->click(); });
  });
  EXPECT_EQ(AskYesNo(u"?", u""), Answer::kNo);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(PlatformClipboard, TextGoesInAndComesBack) {
  platform::SetClipboardText(u"سلام\r\nدو");
  EXPECT_TRUE(platform::ClipboardHasText());
  EXPECT_EQ(platform::ClipboardText(), u"سلام\r\nدو");
  EXPECT_EQ(QApplication::clipboard()->text(), "سلام\nدو");
  QApplication::clipboard()->setText("a\nb\r\n\n");
  EXPECT_EQ(platform::ClipboardText(), u"a\r\nb\r\n\r\n");
  platform::SetClipboardText(u"");
  EXPECT_EQ(platform::ClipboardText(), u"");
}

// Each runs in a process of its own, which says on its error stream what boxes it has shown.
class PlatformEnd : public testing::Test {
 protected:
  PlatformEnd() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

  static int Run(const std::function<void()>& start) {
    Robot robot;
    robot.onBox = [](QWidget& box) {
      const auto& shown = static_cast<QMessageBox&>(box);
      std::fprintf(stderr, "BOX %s: %s\n", shown.windowTitle().toUtf8().constData(),
                   shown.text().toUtf8().constData());
    };
    return testing_support::TheApplication().Run(start);
  }
  static void Soon(const std::function<void()>& act) { QTimer::singleShot(0, qApp, act); }
};

struct Small : SmallWindow {
  Small() : SmallWindow(kWindow) {}
  Button go{*this, u"go"};
  TextBox field{*this, u"field"};
};

TEST_F(PlatformEnd, AFailureOfAHandlerIsShownInOneBoxAndEndsTheProcess) {
  EXPECT_EXIT(
      {
        Small window;
        window.go.onClick = [] { throw platform::Failure(u"disk full"); };
        window.onPaint = window.onResize = [] { throw platform::Failure(u"another"); };
        Run([&] {
          window.Load();
          Soon([] { Robot::FindAs<QPushButton>("Behind", "go").click(); });
        });
      },
      testing::ExitedWithCode(1), "BOX Zorvand: disk full\n$");
}

TEST_F(PlatformEnd, AFailureOfTheStartEndsTheProcess) {
  EXPECT_EXIT(Run([] { throw platform::Failure(u"no start"); }), testing::ExitedWithCode(1),
              "BOX Zorvand: no start\n$");
}

TEST_F(PlatformEnd, AnExceptionOfTheStandardLibraryEndsTheProcessTheSameWay) {
  EXPECT_EXIT(Run([] { throw std::bad_alloc(); }), testing::ExitedWithCode(1),
              "BOX Zorvand: .*[Mm]emory.*\n$");
}

TEST_F(PlatformEnd, AFailureOfTypedTextEndsTheProcess) {
  EXPECT_EXIT(
      {
        Small window;
        window.field.onChange = [] { throw platform::Failure(u"bad text"); };
        Run([&] {
          window.Show();
          Soon([] { Robot::Type("Behind", "field", "x"); });
        });
      },
      testing::ExitedWithCode(1), "BOX Zorvand: bad text\n$");
}

TEST_F(PlatformEnd, AFailureInsideAModalWindowEndsTheProcess) {
  EXPECT_EXIT(
      {
        Small window;
        window.go.onClick = [] { throw platform::Failure(u"inside"); };
        Run([&] {
          Soon([] { Robot::FindAs<QPushButton>("Behind", "go").click(); });
          window.ShowModal(nullptr);
          std::fprintf(stderr, "came back\n");
        });
      },
      testing::ExitedWithCode(1), "BOX Zorvand: inside\n$");
}

TEST_F(PlatformEnd, AFailureOfPaintingIsShownAndEndsTheProcess) {
  EXPECT_EXIT(
      {
        Small window;
        window.onPaint = [] { throw platform::Failure(u"paint"); };
        Run([&] { window.Show(); });
      },
      testing::ExitedWithCode(1), "BOX Zorvand: paint\n$");
}

TEST_F(PlatformEnd, EndProcessGivesItsStatusAndRunsNoUnload) {
  EXPECT_EXIT(
      {
        Small window;
        window.onUnload = [] { std::fprintf(stderr, "unloaded\n"); };
        const int status = Run([&] {
          window.Show();
          Soon([&] {
            platform::EndProcess(7);
            std::fprintf(stderr, window.IsVisible() ? "visible\n" : "gone\n");
          });
        });
        std::exit(status);
      },
      testing::ExitedWithCode(7), "gone\n$");
}

TEST_F(PlatformEnd, EndProcessInsideAModalWindowEndsItToo) {
  EXPECT_EXIT(
      {
        Small window;
        std::exit(Run([&] {
          Soon([] { platform::EndProcess(4); });
          window.ShowModal(nullptr);
        }));
      },
      testing::ExitedWithCode(4), "");
}

// What a handler still does after the end must not wait for a user who sees nothing.
TEST_F(PlatformEnd, NoWindowComesUpAfterTheEnd) {
  EXPECT_EXIT(
      {
        Small window;
        Small modal;
        std::exit(Run([&] {
          platform::EndProcess(5);
          window.Show();
          modal.ShowModal(nullptr);
          std::fprintf(stderr, window.IsVisible() ? "visible\n" : "gone\n");
        }));
      },
      testing::ExitedWithCode(5), "gone\n$");
}

}  // namespace
