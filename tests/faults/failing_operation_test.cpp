// One file operation of a whole road fails, and each in its turn. Whichever it is, the editor who
// tries again what didn't work ends with the same book.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "tests/book/expected_book.h"
#include "tests/faults/left_book.h"
#include "tests/faults/places.h"
#include "tests/faults/road.h"
#include "tests/support/project_desk.h"

namespace {

using faults::Place;
using faults::Road;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::Desk;

constexpr int kShards = 4;

// What fails later because an operation has failed: an empty list has no line to select and names
// no collection, and a project whose paths were not made absolute has no texts.
const std::map<int, std::set<int>> kConsequences = {
    {42, {48, 61, 64, 101}}, {48, {64}}, {50, {101}}};

int FailureNumber(const std::string& entry) {
  static const std::string kStart = "Error occurred => Error number is ";
  return entry.starts_with(kStart) ? std::stoi(entry.substr(kStart.size())) : 0;
}

class FailingOperation : public testing::TestWithParam<int> {
 protected:
  // The k-th, counted from 1.
  void WalkWithFailure(Road::Found found, std::size_t k) {
    const Place& place = faults::PlacesOf(found)[k - 1];
    SCOPED_TRACE(std::to_string(k) + ": " + place.step + ", after \"" + place.lastEntry +
                 "\": " + place.operation);
    Road road(found);
    Desk& desk = road.desk;
    desk.files.FailAt(k);
    ASSERT_TRUE(road.Go(3)) << "in vain: " << road.Step();
    ASSERT_TRUE(desk.files.HasFailed());
    ASSERT_EQ(faults::WithoutFolder(desk.files.Names()[k - 1], desk), place.operation);
    ExpectReport(desk, place);
    ExpectBoxes(desk, place);
    ExpectLogs(desk, found, place);
    const std::string wrong = faults::WrongAtTheEnd(desk, BookName(found, place));
    EXPECT_TRUE(wrong.empty()) << wrong;
  }

  static std::string BookName(Road::Found found, const Place& place) {
    std::string name = found == Road::Found::kOlderBook ? "road" : "road-over_nothing";
    if (faults::NumberOf(place) != 68) return name;
    return name + (name == "road" ? "-without_picture" : "_without_picture");
  }

  static void ExpectReport(const Desk& desk, const Place& place) {
    const int number = faults::NumberOf(place);
    int reports = 0;
    for (const std::string& entry : desk.LogLines()) {
      const int reported = FailureNumber(entry);
      if (reported == 0) continue;
      if (entry.find("Made to fail: ") != std::string::npos) {
        ++reports;
        EXPECT_EQ(reported, number) << entry;
        EXPECT_THAT(faults::WithoutFolder(entry, desk), testing::HasSubstr(place.operation));
      } else {
        const auto known = kConsequences.find(number);
        EXPECT_TRUE(known != kConsequences.end() && known->second.contains(reported)) << entry;
      }
    }
    EXPECT_EQ(reports, number == 0 ? 0 : 1);
  }

  static void ExpectBoxes(Desk& desk, const Place& place) {
    std::map<std::string, int> shown;
    for (const auto& box : desk.robot.TakeBoxes()) {
      const std::string text = box.text.toStdString();
      ++shown[text.find("aTitle1.xml") != std::string::npos ? "question" : text];
    }
    const int number = faults::NumberOf(place);
    EXPECT_LE(shown["question"], 2);
    EXPECT_EQ(shown[BoxText(4)], 1);
    EXPECT_GE(shown[BoxText(101)], number == 101 ? 1 : 0);
    for (const auto& [text, times] : shown) {
      const bool told = text == "question" || text == BoxText(4) ||
                        (text == BoxText(101) && (number == 42 || number == 50 || number == 101)) ||
                        (text == BoxText(15) && number == 42);
      EXPECT_TRUE(told || times == 0) << text;
    }
  }

  // A log that isn't hit is the same as the other one, and tells all.
  static void ExpectLogs(Desk& desk, Road::Found found, const Place& place) {
    desk.form1.LogMe(u"Still here.");
    const std::string first = desk.Log();
    const std::string second = desk.folder.Read(u"state\\ZVL.log");
    EXPECT_TRUE(first.ends_with(": Still here.\r\n"));
    EXPECT_TRUE(second.ends_with(": Still here.\r\n"));
    if (!faults::IsOfLog(place)) {
      EXPECT_EQ(first, second);
      return;
    }
    const bool firstIsHit = place.operation.ends_with("ZVL.txt");
    ExpectAllEntries(desk, firstIsHit ? second : first, found);
    ExpectAllEntriesButOne(firstIsHit ? first : second, firstIsHit ? second : first, place);
  }

  static void ExpectAllEntries(const Desk& desk, const std::string& log, Road::Found found) {
    EXPECT_EQ(faults::WithoutFolder(log, desk),
              faults::LogOf(found) + "01/02/2003 04:05:06: Still here.\r\n");
  }

  // A log that can't be asked for counts as not there, and begins anew.
  static void ExpectAllEntriesButOne(const std::string& hit, const std::string& whole,
                                     const Place& place) {
    const auto common = std::ranges::mismatch(hit, whole);
    const std::string rest(common.in1, hit.end());
    if (place.operation.starts_with("FileExists")) {
      const std::size_t banner = hit.find("\r\n\r\n", hit.find("Created in")) + 4;
      EXPECT_TRUE(whole.ends_with(hit.substr(banner)));
    } else {
      EXPECT_TRUE(whole.ends_with(rest));
      EXPECT_LE(whole.size() - hit.size(), std::size_t{150});
    }
  }
};

TEST_P(FailingOperation, CostsNothingThatASecondTryDoesNotBring) {
  const std::size_t operations = faults::PlacesOf(Road::Found::kOlderBook).size();
  for (std::size_t k = 1 + static_cast<std::size_t>(GetParam()); k <= operations; k += kShards) {
    WalkWithFailure(Road::Found::kOlderBook, k);
    if (HasFatalFailure()) return;
  }
}

// The operations that make the index are met on an empty disk alone.
TEST_P(FailingOperation, OfTheFirstBuildIsHealedByTheSecond) {
  const auto& places = faults::PlacesOf(Road::Found::kNothing);
  for (std::size_t k = 1 + static_cast<std::size_t>(GetParam()); k <= places.size(); k += kShards) {
    if (places[k - 1].step == "build" && !IsOfLog(places[k - 1])) {
      WalkWithFailure(Road::Found::kNothing, k);
    }
    if (HasFatalFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, FailingOperation, testing::Range(0, kShards));

TEST(Road, OnWhichNothingFailsMakesTheBook) {
  Road road;
  ASSERT_TRUE(road.Go(1)) << road.Step();
  const book::BookFiles onDisk = book::ReadBook(road.desk.HostPath("Data"));
  book::RandomNames names;
  names.Learn(onDisk, "_xml/aTitle1.xml");
  const std::string difference = book::Difference(faults::Expected("road"), names.Renamed(onDisk));
  EXPECT_TRUE(difference.empty()) << difference;
  const std::string wrong = faults::WrongAnyTime(road.desk);
  EXPECT_TRUE(wrong.empty()) << wrong;
}

}  // namespace
