// What must stand in the workbench after what a random editor has done there: worked out from the
// operations alone, without a window.
#pragma once

#include <map>
#include <random>
#include <string>
#include <vector>

#include "platform/text/text.h"
#include "tools/kill_test/operation.h"

namespace kill_test {

struct ModelRow {
  std::string title;
  std::string text;  // plain
  bool attached = false;
};

inline constexpr int kPictures = 3;

class Model {
 public:
  Model(unsigned seed, platform::Text inputText);

  // The next operation, already carried out here.
  Operation Next();

  std::string Described() const;
  // So much of it as the workbench shows; see ScreenState.
  std::string OnScreen() const;

 private:
  Operation Choose();
  bool IsPossible(const Operation& operation) const;
  bool CanBeOpened(const Operation& operation) const;
  void CarryOut(const Operation& operation);
  void FilePassage(const Operation& operation);
  void CarryOutOnRow(const Operation& operation);
  void Select(Operation& operation) const;
  std::string Passage(const Operation& operation) const;
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool IsPending() const { return static_cast<int>(rows_.size()) > count_; }
  ModelRow& RowInHand();
  void AddLine(const std::string& title);

  std::mt19937 random_;
  platform::Text input_;
  platform::Text rest_;  // "\n" at a paragraph's end
  std::string title_;
  std::string lastMain_;
  std::vector<ModelRow> rows_;      // a heading without its text is the last
  std::vector<std::string> lines_;  // titles; one that was overwritten stays behind its row's line
  int count_ = 0;
  int mainOpen_ = 0;
  int images_ = 0;
  std::map<int, bool> isGallery_;                    // by row number
  std::map<int, std::vector<std::string>> gallery_;  // of entries, by row number
  bool isOpened_ = false;
  bool galleryMode_ = false;
  std::vector<std::string> chosen_;  // of the collection
};

// The state as both sides write it down.
struct Shown {
  std::vector<ModelRow> rows = {};
  int count = 0;
  int mainOpen = 0;
  int images = 0;
  bool galleryMode = false;
  std::string title = {};
  std::string rest = {};
  std::map<int, bool> isGallery = {};
  std::map<int, std::vector<std::string>> gallery = {};
  std::vector<std::string> chosen = {};
};
std::string Describe(const Shown& shown);

}  // namespace kill_test
