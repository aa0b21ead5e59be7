#include "tools/kill_test/program_robot.h"

#include <QApplication>
#include <QTimer>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <vector>

#include "tools/kill_test/screen.h"

namespace kill_test {
namespace {

using testing_support::Robot;

class ProgramScreen : public Screen {
 protected:
  Robot& TheRobot() override { return robot_; }

 private:
  Robot robot_;
};

std::vector<Operation> WantedOperations() {
  std::istringstream words(qgetenv("KILL_TEST_OPERATIONS").toStdString());
  std::vector<Operation> wanted;
  int deed = 0;
  for (Operation each; words >> deed >> each.row >> each.from >> each.length >> each.word;) {
    each.deed = static_cast<Deed>(deed);
    if (each.word == kNoWord) each.word.clear();
    wanted.push_back(each);
  }
  return wanted;
}

void OpenWorkbench() {
  Robot::Type("Form1", "idir", qEnvironmentVariable("KILL_TEST_BOOK"));
  Robot::Type("Form1", "Text1", qEnvironmentVariable("KILL_TEST_TEXTS"));
  Robot::Click("Form1", "Command3");
}

void Say(const char* when) {
  std::cout << when << "\n"
            << Describe(Screen::State()) << "\n"
            << Screen::ListAndCaptions() << "\n";
}

// Each step is an event of the program's own loop; what belongs after an event is done before the
// next.
class Steps : public QObject {
 public:
  Steps() {
    Then([] { OpenWorkbench(); });
    Then([] {
      if (Screen::BringBack()) std::cout << "BROUGHT BACK\n";
    });
    Then([] { Say("BEFORE"); });
    for (const Operation& each : WantedOperations()) Then([this, each] { screen_.Do(each); });
    Then([] { Say("AFTER"); });
    Then([this] { End(); });
    DoNext();
  }

 private:
  void Then(std::function<void()> step) { steps_.push_back(std::move(step)); }
  void DoNext() {
    if (done_ == steps_.size()) return;
    QTimer::singleShot(0, this, [this] {
      steps_[done_++]();
      DoNext();
    });
  }
  void End() {
    if (!qEnvironmentVariableIsSet("KILL_TEST_BUILD")) {
      std::cout << "DONE" << std::endl;
      return;
    }
    const bool isBuilt = screen_.Build();
    std::cout << (isBuilt ? "" : "NOT BUILT\n") << std::flush;
    std::_Exit(isBuilt ? 0 : 1);
  }

  ProgramScreen screen_;
  std::vector<std::function<void()>> steps_;
  std::size_t done_ = 0;
};

}  // namespace
}  // namespace kill_test

QObject* KillTestRobot::create(const QString& /*name*/, const QString& /*options*/) {
  QTimer::singleShot(0, qApp, [] { new kill_test::Steps; });
  return new QObject;
}
