// A book as it stands on the disk, with its random file names replaced by names that stay.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace book {

// The bytes of each file by its path in the project folder ("TXT/NAME1.htm"). A folder is an entry
// of its own, without bytes, that ends in "/".
using BookFiles = std::map<std::string, std::string>;

// Everything in a folder of the host, hidden files included.
BookFiles ReadBook(const std::string& hostFolder);

// The random names that were met so far, in the order in which they were: NAME1, NAME2, ...
class RandomNames {
 public:
  // Learns the names in a collection file, top down, then those in its entries' gallery files. A
  // collection that isn't in the book has no names.
  void Learn(const BookFiles& book, const std::string& collection);
  // The book with its known names replaced, in the files' paths and texts. A file under a random
  // name that no collection has told stays as it is, so that it is found to be one too many.
  BookFiles Renamed(const BookFiles& book) const;

 private:
  void LearnFrom(const std::string& bytes);

  std::map<std::string, std::string> names_;  // by stem
};

// Files of text are known by their ends; what has another one is a picture or a medium.
bool IsTextFile(std::string_view path);

}  // namespace book
