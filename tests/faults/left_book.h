// What must hold of a book on the disk at any time of a road, whatever has failed.
#pragma once

#include <string>

#include "tests/book/book_files.h"
#include "tests/faults/road.h"

namespace faults {

// All of these give an empty text, or what is wrong.

// At any time: no file that stood before is lost or changed but those that the road replaces, and
// each file of the book is the old one, the new one or a part of it that was added line by line.
std::string WrongAnyTime(const testing_support::Desk& desk);

// At the end of a road: the book of expected/NAME.expected, besides pages and media under names
// that a build which failed has drawn, and besides the lines and gaps that it left in the index.
std::string WrongAtTheEnd(const testing_support::Desk& desk, const std::string& name);

// expected/NAME.expected.
book::BookFiles Expected(const std::string& name);

}  // namespace faults
