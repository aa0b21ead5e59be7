// The desk of an editor who makes a whole book of the tests' own texts, pictures and media.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text/text.h"
#include "tests/book/book_files.h"
#include "tests/support/format_desk.h"

namespace book {

class BookDesk : public testing_support::FormatDesk {
 public:
  // tests/book/texts/NAME, written in UTF-8, becomes an input text in the machine's code page.
  void AddTextFile(const std::string& name) const;
  // A picture or medium in the program folder ("media/song.mp3"), unlike every other; gives its
  // path as the tool writes it.
  platform::Text AddMedium(const std::string& below) const;

  // F12, with the boxes answered by the robot.
  static void Build();
  workbench::EntryTable& Table() { return form3.table; }

  // Whether the project folder holds the book of tests/book/expected/NAME.expected and nothing
  // else. The random names are those of the collection files, in their order ("_xml/aTitle1.xml");
  // names that an earlier call has learnt stay.
  testing::AssertionResult IsBook(const std::string& name,
                                  const std::vector<std::string>& collections);

 private:
  RandomNames names_;
};

}  // namespace book
