// Books that were written by hand, and how a book differs from one.
//
// A book stands in one file, NAME.expected, in UTF-8:
//
//   # ...                      a remark, only above the first entry
//   = like OTHER               all entries of OTHER.expected, which the entries below replace
//   = no PATH                  nothing under that name, in spite of the former entries
//   = FOLDER/                  a folder
//   = PATH <- SOURCE           a copy of a file of the program folder, byte for byte
//   = PATH                     a file of text: the lines up to the next entry
//
// In a text a line ends where it shows a pilcrow, which stands for CR LF; a last line without one
// has no line end. Three more signs stand for what can't be seen:
//
//   →  a tab            ¶  CR LF at the end of a line
//   §  U+200F, the right-to-left mark
//
// On the disk a text is UTF-16, little-endian, after its byte order mark.
#pragma once

#include <functional>
#include <string>

#include "tests/book/book_files.h"

namespace book {

// Gives the text of OTHER.expected, and the bytes of a file of the program folder.
struct ExpectedSources {
  std::function<std::string(const std::string& name)> expected;
  std::function<std::string(const std::string& path)> copied;
};

// What stands in the file NAME.expected. Failure (std::runtime_error) for a line that has no
// meaning.
BookFiles ReadExpected(const std::string& name, const ExpectedSources& sources);

// Empty where both are the same in their names and bytes; else each file that differs, texts line
// by line with "-" before what is expected alone and "+" before what is there alone.
std::string Difference(const BookFiles& expected, const BookFiles& actual);

// A text's bytes in the signs above; bytes that are no text of a book are counted.
std::string Shown(const std::string& bytes);

}  // namespace book
