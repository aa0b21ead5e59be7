// The project folder, or a part of it, goes away between two steps or may only be read.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTest>
#include <filesystem>
#include <optional>

#include "tests/faults/left_book.h"
#include "tests/faults/road.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/project_desk.h"

namespace {

namespace fs = std::filesystem;

using faults::Road;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::AsShown;
using testing_support::BoxText;
using testing_support::KnownText;
using testing_support::OrdinaryUser;
using testing_support::Robot;

class LostFolder : public testing::Test {
 protected:
  void Lose(const std::string& below) { fs::remove_all(road.desk.HostPath(below)); }
  void Build() {
    if (road.desk.Has("Data/_xml/aTitle1.xml")) road.desk.robot.AnswerYes();
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
  }
  std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const auto& box : road.desk.robot.TakeBoxes()) texts.push_back(box.text.toStdString());
    return texts;
  }
  void ExpectFailedBuild(int number) {
    EXPECT_EQ(road.desk.LoggedFailures(number), 1);
    EXPECT_TRUE(road.desk.form3.IsVisible());
    EXPECT_TRUE(road.TableIsWhole());
    EXPECT_THAT(Boxes(), IsEmpty());
  }
  // The next press of Next makes the folders again.
  void ExpectTheRoadGoesOn(const std::string& book) {
    road.desk.PressNext();
    ASSERT_TRUE(road.Go(3)) << road.Step();
    const std::string wrong = faults::WrongAtTheEnd(road.desk, book);
    EXPECT_TRUE(wrong.empty()) << wrong;
  }

  Road road{Road::Found::kNothing};
};

TEST_F(LostFolder, OfTheProjectBeforeNextIsTold) {
  ASSERT_TRUE(road.Go(1, "second Next"));
  Lose("Data");
  road.desk.PressNext();
  EXPECT_THAT(Boxes(), ElementsAre(BoxText(10)));
  EXPECT_FALSE(road.desk.Has("Data"));
  road.desk.MakeFolders("Data");
  ExpectTheRoadGoesOn("road-over_nothing");
}

TEST_F(LostFolder, OfTheTextsBeforeOneIsOpenedLeavesTheBoxAsItIs) {
  ASSERT_TRUE(road.Go(1, "open"));
  const platform::Text before = road.desk.form3.matn.Text();
  fs::rename(road.desk.HostPath("Resources"), road.desk.HostPath("away"));
  Robot::ClickLine("Form3", "books", "One.txt");
  EXPECT_EQ(road.desk.LoggedFailures(55), 1);
  EXPECT_EQ(road.desk.form3.matn.Text(), before);
  fs::rename(road.desk.HostPath("away"), road.desk.HostPath("Resources"));
  ExpectTheRoadGoesOn("road-over_nothing");
}

TEST_F(LostFolder, OfTheProjectBeforeTheBuildIsTold) {
  ASSERT_TRUE(road.Go(1, "build"));
  Lose("Data");
  Build();
  EXPECT_THAT(Boxes(), ElementsAre(AsShown(KnownText("notice", 1))));
  EXPECT_TRUE(road.TableIsWhole());
  EXPECT_TRUE(road.desk.form3.IsVisible());
  EXPECT_FALSE(road.desk.Has("Data"));
  road.desk.MakeFolders("Data");
  ExpectTheRoadGoesOn("road-over_nothing");
}

TEST_F(LostFolder, Failure57OfTheIndexEndsTheBuild) {
  ASSERT_TRUE(road.Go(1, "build"));
  Lose("Data/_xml");
  Build();
  ExpectFailedBuild(57);
  ExpectTheRoadGoesOn("road-over_nothing");
}

TEST_F(LostFolder, Failure57OfThePagesEndsTheBuildAtTheFirstOne) {
  ASSERT_TRUE(road.Go(1, "build"));
  Lose("Data/TXT");
  Build();
  ExpectFailedBuild(57);
  ExpectTheRoadGoesOn("road-over_nothing");
}

TEST_F(LostFolder, Failure68OfThePicturesCostsAPageItsPicture) {
  ASSERT_TRUE(road.Go(1, "build"));
  Lose("Data/IMG");
  Build();
  EXPECT_EQ(road.desk.LoggedFailures(68), 1);
  EXPECT_THAT(Boxes(), ElementsAre(BoxText(4)));
  EXPECT_FALSE(road.desk.form3.IsVisible());
}

TEST_F(LostFolder, Failure57WhileTheQuestionIsAskedEndsTheBuild) {
  ASSERT_TRUE(road.Go(1, "build"));
  road.desk.Write("Data/_xml/aTitle1.xml", "former");
  road.desk.robot.onBox = [this](QWidget&) { Lose("Data"); };
  Build();
  road.desk.robot.onBox = nullptr;
  EXPECT_EQ(Boxes().size(), 1U);
  ExpectFailedBuild(57);
  road.desk.MakeFolders("Data");
  ExpectTheRoadGoesOn("road-over_nothing");
}

// Folders that may only be read. The user who is refused is given all files first.
class ReadOnlyFolder : public LostFolder {
 protected:
  // Goes to the step and closes the project then.
  void GoAndClose(const std::string& step) {
    ASSERT_TRUE(road.Go(1, step));
    user_.emplace(road.desk.folder.HostPath());
    if (!user_->IsOrdinary()) GTEST_SKIP() << "root may write everything";
    before_ = book::ReadBook(road.desk.HostPath("Data"));
    Allow(0555, 0444);
  }
  void Allow(mode_t folders, mode_t files) {
    const std::string data = road.desk.HostPath("Data");
    chmod(data.c_str(), folders);
    for (const auto& entry : fs::recursive_directory_iterator(data)) {
      chmod(entry.path().c_str(), entry.is_directory() ? folders : files);
    }
  }
  void ExpectAllIsAsBefore() { EXPECT_EQ(book::ReadBook(road.desk.HostPath("Data")), before_); }
  // Root again, too, who alone may be able to read what the tests expect.
  void OpenAgain() {
    Allow(0755, 0644);
    user_.reset();
  }

 private:
  book::BookFiles before_;
  std::optional<OrdinaryUser> user_;
};

TEST_F(ReadOnlyFolder, Failure101OfTheProjectEndsNext) {
  GoAndClose("third Next");
  if (IsSkipped() || HasFatalFailure()) return;
  Boxes();
  road.desk.PressNext();
  EXPECT_THAT(Boxes(), ElementsAre(BoxText(101)));
  EXPECT_EQ(road.desk.LoggedFailures(101), 1);
  EXPECT_FALSE(road.desk.form3.IsVisible());
  ExpectAllIsAsBefore();
  OpenAgain();
  ExpectTheRoadGoesOn("road-over_nothing");
}

TEST_F(ReadOnlyFolder, Failure57OfTheProjectEndsTheBuild) {
  GoAndClose("build");
  if (IsSkipped() || HasFatalFailure()) return;
  Build();
  ExpectFailedBuild(57);
  ExpectAllIsAsBefore();
  OpenAgain();
  ExpectTheRoadGoesOn("road-over_nothing");
}

}  // namespace
