#include "tests/faults/places.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace faults {
namespace {

struct Course {
  std::vector<Place> places;
  std::string log;
};

Course Walk(Road::Found found) {
  Road road(found);
  testing_support::Desk& desk = road.desk;
  Course course;
  desk.files.onOperation = [&](const std::string& name) {
    const auto entries = desk.LogLines();
    course.places.push_back(
        {road.Step(), entries.empty() ? "" : entries.back(), WithoutFolder(name, desk)});
  };
  if (!road.Go(1)) throw std::runtime_error("The road ends at " + road.Step());
  course.log = WithoutFolder(desk.Log(), desk);
  return course;
}

const Course& CourseOf(Road::Found found) {
  static std::map<Road::Found, Course> courses;
  const auto known = courses.find(found);
  return known != courses.end() ? known->second : courses.emplace(found, Walk(found)).first->second;
}

// While a project is checked nothing is logged; what was logged before tells how far it is.
int NumberAfterSavedSettings(const Place& place) {
  constexpr int kNext = 101;
  constexpr int kChecks = 48;
  return place.step == "first Next" ? kNext : kChecks;
}

}  // namespace

const std::vector<Place>& PlacesOf(Road::Found found) { return CourseOf(found).places; }

const std::string& LogOf(Road::Found found) { return CourseOf(found).log; }

std::string WithoutFolder(std::string text, const testing_support::Desk& desk) {
  const std::string folder = platform::ToUtf8(desk.folder.Path()) + "\\";
  for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
    text.erase(at, folder.size());
  }
  return text;
}

bool IsOfLog(const Place& place) {
  return place.operation.ends_with("ZVL.txt") || place.operation.ends_with("ZVL.log");
}

int NumberOf(const Place& place) {
  static const std::map<std::string, int> kByEntry = {
      {"Saving settings...", 0},      {"Reading settings...", 40},
      {"Making combo...", 42},        {"Combo made by 2, 2, 2.", 48},
      {"Directories making...", 50},  {"Title image copying...", 101},
      {"Opening a text file...", 55}, {"Making Title...", 57}};
  if (IsOfLog(place)) return 0;
  if (place.operation.ends_with("rose.gif")) return 68;
  if (place.lastEntry == "Settings saved.") return NumberAfterSavedSettings(place);
  if (place.lastEntry.starts_with("Geting files")) {
    return place.operation.starts_with("FileNames") ? 64 : 60;
  }
  return kByEntry.at(place.lastEntry);
}

}  // namespace faults
