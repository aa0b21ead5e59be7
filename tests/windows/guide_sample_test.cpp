// The sample at the end of the guide, step by step as it is told there, on the delivered files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/format_desk.h"
#include "tests/support/known_texts.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing_support::BoxText;
using testing_support::FormatDesk;
using testing_support::Robot;

class GuideSample : public testing::Test {
 protected:
  GuideSample() { desk.Write("Resources/main.exe", "the viewer"); }

  static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    Robot::PressKey("Form3", "matn", key, modifiers);
  }
  // From one passage to another, both with it.
  static void MarkFromTo(int key, const QString& from, const QString& to) {
    const QString text = QString::fromStdString(FormatDesk::Shown("matn"));
    const qsizetype start = text.indexOf(from);
    const qsizetype end = text.indexOf(to, start) + to.size();
    Robot::Select("Form3", "matn", static_cast<int>(start), static_cast<int>(end - start));
    Press(key);
  }
  static void OpenPictures(const QString& chooser) {
    Robot::DoubleClickLine(chooser, "Dir1", "Resources");
    Robot::DoubleClickLine(chooser, "Dir1", "Negareh");
  }
  void TickTwo(const QString& window, const QString& button) {
    desk.robot.WhenShown("Form2", [] {
      OpenPictures("Form2");
      Robot::Click("Form2", "btn(0)");
    });
    Robot::Click(window, button);
    for (const int row : {0, 1}) {
      Robot::Type(window, QStringLiteral("IMN(%1)").arg(row), QStringLiteral("نگاره"));
      Robot::Click(window, QStringLiteral("IMC(%1)").arg(row));
    }
  }
  std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const auto& box : desk.robot.TakeBoxes()) texts.push_back(box.text.toStdString());
    return texts;
  }

  void StartTheProject() {
    desk.Start();
    Robot::Type("Form1", "matn", "0");
    Robot::Type("Form1", "shenas", "0");
    Robot::PressKey("Form1", "shenas", Qt::Key_Tab);
    EXPECT_EQ(desk.form1.dataName.ListCount(), 2);
    desk.PressNext();
  }
  static void FileTheText() {
    FormatDesk::OpenBook("Baghha.txt");
    FormatDesk::Mark(Qt::Key_F5, "باغ‌هاي مهران‌دژ");
    FormatDesk::Command(5, "راهنماي كوچك رهگذران");
    FormatDesk::Mark(Qt::Key_F11, "شناسنامه");
    MarkFromTo(Qt::Key_F6, "نام كتاب:", "نويسنده‌اند.");
    FormatDesk::Mark(Qt::Key_F2, "پيش از راه افتادن");
    MarkFromTo(Qt::Key_F3, "مهران‌دژ شهري است",
               "به باغ بعدي مي‌رسند.");
    Press(Qt::Key_F7);
    FormatDesk::Mark(Qt::Key_F1, "باغ سرچشمه");
    Press(Qt::Key_F7);
    FormatDesk::Mark(Qt::Key_F2, "باغ سرچشمه");
    MarkFromTo(Qt::Key_F3, "كاريز شهر", "هر بهار نيستند.");
    FormatDesk::Mark(Qt::Key_F2, "باغ گيلاس‌كاران");
    MarkFromTo(Qt::Key_F3, "از سرچشمه كه", "باغ ديگري نديده‌ام.");
    Press(Qt::Key_F4);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_F11);
  }
  void EditTheEntries() {
    desk.Edit(0, [this] {
      Robot::RightClick("Form6", "matn");
      desk.robot.WhenShown("Form5", [] {
        OpenPictures("Form5");
        Robot::ClickLine("Form5", "File1", QStringLiteral("Sarv.jpg"));
        Robot::Click("Form5", "btn(0)");
      });
      Robot::ChooseFromMenu("popM", "picM");
    });
    desk.Edit(1, [this] {
      Robot::Click("Form6", "btn(5)");
      TickTwo("Form6", "Command3");
    });
  }

  FormatDesk desk;
};

TEST_F(GuideSample, MakesTheBookThatTheGuidePromises) {
  StartTheProject();
  FileTheText();
  EXPECT_EQ(FormatDesk::Shown("bname"),
            "باغ‌هاي مهران‌دژ (راهنماي كوچك رهگذران)");
  EXPECT_EQ(FormatDesk::Shown("matn"), "");
  EXPECT_THAT(FormatDesk::Lines("bindex"), SizeIs(6));
  EditTheEntries();
  Press(Qt::Key_F12);
  EXPECT_THAT(Boxes(), ElementsAre(BoxText(4)));

  desk.PressNext();
  Robot::Type("Form3", "bname", QStringLiteral("نگاره‌ها"));
  Robot::Click("Form3", "Com(12)");
  TickTwo("Form3", "Command1");
  Robot::Click("Form3", "Com(13)");
  EXPECT_THAT(Boxes(), ElementsAre(BoxText(4)));
  EXPECT_EQ(desk.form1.dataName.ListCount(), 0);

  Robot::Click("Form1", "Pcheck");
  Robot::Click("Form1", "Command10");
  EXPECT_THAT(Boxes(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export/Export 1"), ElementsAre("Data", "main.exe"));
  EXPECT_THAT(desk.launcher.opened, SizeIs(1));
  EXPECT_THAT(desk.BookNames("IMG", ".jpg"), SizeIs(7));  // two collections, a page, four pictures
  EXPECT_THAT(desk.Page("شناسنامه"), HasSubstr("<IMG src=\"Data/IMG/Sarv.jpg\">"));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

}  // namespace
