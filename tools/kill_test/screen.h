// The random editor's hands: the workbench by mouse and keys alone, whatever program it is in.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/robot.h"
#include "tools/kill_test/operation.h"

namespace kill_test {

// What it shows of what is filed, one thing a line: the title, the main titles that are open, the
// gallery, how each line of the list begins, the text that is left.
struct ScreenState {
  std::string title = {};
  int mainOpen = 0;
  bool isGallery = false;
  std::vector<std::string> titles = {};  // of the list's lines, without marks
  std::string rest = {};
};
std::string Describe(const ScreenState& state);

// Without blanks and line ends, which the way through rich text may move.
std::string Bare(const std::string& text);

class Screen {
 public:
  Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  void Do(const Operation& operation);
  // Whether something is offered; presses the button that brings it back.
  static bool BringBack();
  static ScreenState State();
  // The list as it stands there, after what the buttons for main titles and galleries say.
  static std::string ListAndCaptions();
  // F12; false where the collection wasn't built.
  bool Build();

 protected:
  virtual testing_support::Robot& TheRobot() = 0;
  // With the entry in view. They go by the choosers, which begin in the program's folder.
  virtual void PutPictureIntoText();
  virtual void Attach();
  virtual void OpenPictures(const QString& window);

 private:
  void DoInRow(const Operation& operation);
  void InRow(int row, const std::function<void()>& act);
  void TickPicture(const QString& window, int picture);
};

}  // namespace kill_test
