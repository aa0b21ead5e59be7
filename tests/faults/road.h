// An editor's whole road on a disk that may fail: start, Next twice, a text opened and filed with a
// main title, a heading with a medium and a picture, a build over an older collection, Next again.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tests/faults/in_memory.h"
#include "tests/support/desk.h"

namespace faults {

class Road {
 public:
  // What the project folder holds when the text is opened, besides the empty folders.
  enum class Found { kNothing, kOlderBook };

  explicit Road(Found found = Found::kOlderBook);

  // Goes from where it is to the end. What a step should lead to is looked at after it; a step
  // that hasn't led there is taken again, `tries` times in all, with what an editor would do about
  // it. False where that was in vain: a later call goes on at that step.
  // Stops before the step `until`.
  bool Go(int tries, const std::string& until = {});

  // The step that the road is at ("build").
  const std::string& Step() const { return step_; }
  // The rows that are filed, once they are: a build that fails must leave them.
  static constexpr std::ptrdiff_t kRows = 4;
  bool TableIsWhole() const;

 private:
  InMemory inMemory_;  // there are hundreds of roads

 public:
  testing_support::Desk desk{false};

 private:
  struct Goal {
    std::string step;
    std::function<void()> act;
    std::function<bool()> isReached;
  };

  void PlanProject();
  void PlanText();
  void PlanBuild();
  void PressNext();
  void OpenWorkbench();
  void FileText();
  void FilePicture();
  void Build();
  void ChangeSettings();
  bool BookHasMedia(const std::string& picture) const;
  bool SettingsAreSaved() const;
  bool Holds(const std::string& below, const std::string& source) const;

  std::vector<Goal> goals_;
  std::size_t at_ = 0;
  std::string step_;
};

}  // namespace faults
