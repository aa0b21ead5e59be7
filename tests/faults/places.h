// The file operations of a road on which nothing fails, and the number under which the failure of
// each is to be reported.
#pragma once

#include <string>
#include <vector>

#include "tests/faults/road.h"

namespace faults {

struct Place {
  std::string step;       // of the road
  std::string lastEntry;  // of the log, which tells what the tool is doing
  std::string operation;  // with paths from the desk's folder on
};

// In their order; made once in a process for each kind of road.
const std::vector<Place>& PlacesOf(Road::Found found);
// What such a road leaves in either log.
const std::string& LogOf(Road::Found found);

// A text of a desk's log or operations with the desk's folder taken out.
std::string WithoutFolder(std::string text, const testing_support::Desk& desk);

// An operation on one of the two logs, which nobody is told about.
bool IsOfLog(const Place& place);
// 0: left out without a report.
int NumberOf(const Place& place);

}  // namespace faults
