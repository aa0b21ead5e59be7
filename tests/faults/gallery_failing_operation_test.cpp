// One file operation of a gallery's road fails, and each in its turn: the mode, the folder, two
// ticks, the build. Whichever it is, it is reported once, and the editor who tries again what
// didn't work ends with both pictures in the book.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/faults/in_memory.h"
#include "tests/support/gallery_desk.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;

constexpr int kTries = 3;

// The numbers of a step's failures; 42 is the list of collections after a build.
const std::map<std::string, std::set<int>> kNumbers = {
    {"mode", {59}}, {"entry", {70, 77}}, {"folder", {44}}, {"ticks", {}}, {"build", {42, 57}}};

bool IsOfLog(const std::string& operation) {
  return operation.ends_with("ZVL.txt") || operation.ends_with("ZVL.log");
}

class GalleryRoad {
 public:
  GalleryRoad() {
    desk.AddPictures(2);
    desk.OpenOn(u"Head Text");
  }
  virtual ~GalleryRoad() = default;
  GalleryRoad(const GalleryRoad&) = delete;
  GalleryRoad& operator=(const GalleryRoad&) = delete;

  virtual bool Go() = 0;
  virtual void ExpectBook() = 0;

  faults::InMemory inMemory;
  GalleryDesk desk;
  std::string step;

 protected:
  bool ChooseTwo(const QString& window) {
    step = "folder";
    for (int i = 0; i < kTries && GalleryDesk::Names(window).size() != 2; ++i) {
      desk.OpenFolder(window);
    }
    if (GalleryDesk::Names(window) != std::vector<std::string>{"p1.jpg", "p2.jpg"}) return false;
    step = "ticks";
    GalleryDesk::Tick(window, 0, "one");
    GalleryDesk::Tick(window, 1, "two");
    return GalleryDesk::Ticked(window) == std::vector<int>{0, 1};
  }
  bool Build(const std::function<void()>& press) {
    step = "build";
    for (int i = 0; i < kTries && desk.form3.IsVisible(); ++i) {
      if (desk.Has("Data/_xml/aTitle1.xml")) desk.robot.AnswerYes();
      press();
    }
    return !desk.form3.IsVisible();
  }
};

class CollectionRoad : public GalleryRoad {
 public:
  bool Go() override {
    step = "mode";
    Robot::Click("Form3", "Com(12)");
    return ChooseTwo("Form3") && Build([] { Robot::Click("Form3", "Com(13)"); });
  }
  void ExpectBook() override {
    EXPECT_EQ(desk.Collection("aTitle1"),
              "<?xml version=\"1.0\"?>\r\n<gallery>\r\n"
              "\t<img dtl=\"one\">Data/IMG/S.jpg</img>\r\n"
              "\t<img dtl=\"two\">Data/IMG/S.jpg</img>\r\n</gallery>\r\n");
  }
};

class EntryRoad : public GalleryRoad {
 public:
  EntryRoad() { FormatDesk::FileHeading("Head", "Text"); }

  bool Go() override {
    bool chosen = false;
    step = "entry";
    desk.InEntry(0, [&] {
      Robot::Click("Form6", "btn(5)");
      chosen = ChooseTwo("Form6");
      Robot::Click("Form6", "btn(4)");
    });
    return chosen && Build([] { Robot::PressKey("Form3", "matn", Qt::Key_F12); });
  }
  void ExpectBook() override {
    EXPECT_THAT(desk.BuiltGalleries(),
                Contains("<?xml version=\"1.0\"?>\r\n<gallery>\r\n"
                         "\t<img dtl=\"one\">Data/IMG/S.jpg</img>\r\n"
                         "\t<img dtl=\"two\">Data/IMG/S.jpg</img>\r\n</gallery>\r\n"));
  }
};

// "Error number is 57 ..." of each failure that the test made.
std::vector<int> ReportsOf(const GalleryDesk& desk) {
  static const std::string kStart = "Error occurred => Error number is ";
  std::vector<int> numbers;
  for (const std::string& entry : desk.LogLines()) {
    if (entry.find("Made to fail: ") == std::string::npos) continue;
    numbers.push_back(std::stoi(entry.substr(kStart.size())));
  }
  return numbers;
}

template <typename Road>
std::size_t OperationsOfRoad() {
  Road road;
  road.desk.files.FailAt(testing_support::FaultyFileSystem::kNever);
  EXPECT_TRUE(road.Go()) << road.step;
  road.ExpectBook();
  EXPECT_EQ(road.desk.AllLoggedFailures(), 0);
  return road.desk.files.Operations();
}

template <typename Road>
void GoWithFailureAt(std::size_t k) {
  Road road;
  std::string stepOfFailure;
  road.desk.files.FailAt(k);
  road.desk.files.onOperation = [&](const std::string&) {
    if (road.desk.files.Operations() == k) stepOfFailure = road.step;
  };
  ASSERT_TRUE(road.Go()) << "in vain: " << road.step;
  ASSERT_TRUE(road.desk.files.HasFailed());
  const std::string& operation = road.desk.files.Names()[k - 1];
  SCOPED_TRACE(std::to_string(k) + ": " + operation);
  road.ExpectBook();
  if (IsOfLog(operation)) {
    EXPECT_THAT(ReportsOf(road.desk), testing::IsEmpty());
  } else {
    EXPECT_THAT(
        ReportsOf(road.desk),
        ElementsAre(testing::ResultOf(
            [&](int number) { return kNumbers.at(stepOfFailure).contains(number); }, true)));
  }
}

template <typename Road>
class GalleryFailingOperation : public testing::Test {};
using Roads = testing::Types<CollectionRoad, EntryRoad>;
TYPED_TEST_SUITE(GalleryFailingOperation, Roads);

TYPED_TEST(GalleryFailingOperation, CostsNothingThatASecondTryDoesNotBring) {
  const std::size_t operations = OperationsOfRoad<TypeParam>();
  ASSERT_GT(operations, std::size_t{20});
  for (std::size_t k = 1; k <= operations; ++k) {
    GoWithFailureAt<TypeParam>(k);
    if (this->HasFatalFailure()) return;
  }
}

}  // namespace
