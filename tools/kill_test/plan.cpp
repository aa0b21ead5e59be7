#include "tools/kill_test/plan.h"

#include <filesystem>
#include <iostream>

#include "tests/book/expected_book.h"

namespace kill_test {

namespace fs = std::filesystem;

int Fail(const Plan& plan, const std::string& said) {
  std::cout << said << "Seed " << plan.seed << ", " << plan.operations << " operations: FAILED\n";
  return 1;
}

book::BookFiles BuiltBook(const Plan& plan) {
  const book::BookFiles files = book::ReadBook(plan.work + "/Data");
  book::RandomNames names;
  names.Learn(files, "_xml/aTitle1.xml");
  return names.Renamed(files);
}

void BeginAnew(const Plan& plan) {
  for (const char* folder : {"/Data", "/state", "/tmp"}) {
    fs::remove_all(plan.work + folder);
    fs::create_directories(plan.work + folder);
  }
  // Each run finds the same, the first one, too.
  for (const char* folder : {"/Data/TXT", "/Data/_xml", "/Data/IMG", "/Data/FlashIMG"}) {
    fs::create_directories(plan.work + folder);
  }
}

int Compare(const Plan& plan, const book::BookFiles& unbroken, const book::BookFiles& broken,
            bool recordIsGone) {
  const std::string difference = book::Difference(unbroken, broken);
  if (!difference.empty()) return Fail(plan, "The books differ:\n" + difference);
  if (!recordIsGone) return Fail(plan, "The record is there still.\n");
  std::cout << "Seed " << plan.seed << ": killed after each of " << plan.operations
            << " operations; everything came back, and the book is the same.\n";
  fs::remove_all(plan.work);
  return 0;
}

}  // namespace kill_test
