// A window of a test's own, with rows that the test writes down.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "platform/windows/window.h"
#include "platform/windows/window_definition.h"
#include "tests/support/robot.h"

namespace testing_support {

class SmallWindow : public platform::Window {
 public:
  using Window::Window;
  SmallWindow(const SmallWindow&) = delete;
  SmallWindow& operator=(const SmallWindow&) = delete;
  // An unloaded window's widget goes with the next turn of an event loop; the next test must not
  // find it.
  ~SmallWindow() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  // In front, with the focus in it.
  void ShowActive() {
    Show();
    Robot::WaitUntil([this] { return OnScreen().isActiveWindow(); });
    Robot::Settle();
  }
  QWidget& OnScreen() const {
    return *Robot::FindWindow(QString::fromStdU16String(platform::Text(Definition().name)));
  }

  std::function<void()> onLoad;
  std::function<void()> onUnload;
  std::function<void()> onResize;
  std::function<void()> onPaint;
  bool closeHides = false;

 private:
  static void Run(const std::function<void()>& act) {
    if (act) act();
  }
  void Form_Load() override { Run(onLoad); }
  void Form_Unload() override { Run(onUnload); }
  void Form_Resize() override { Run(onResize); }
  void Form_Paint() override { Run(onPaint); }
  bool CloseHides() const override { return closeHides; }
};

// What a failure of `act` says; "none" if there was none.
inline std::string FailureOf(const std::function<void()>& act) {
  std::string description = "none";
  platform::CatchingFailure(
      act, [&](const platform::Text& said) { description = platform::ToUtf8(said); });
  return description;
}

}  // namespace testing_support
