// The main of every test program that opens windows.
#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <cstdlib>
#include <iostream>

#include "tests/support/application.h"

namespace testing_support {
namespace {

platform::Application* theApplication = nullptr;

// A window that outlives its test would be found, clicked or answered by the next one.
class OpenWindowsCheck : public testing::EmptyTestEventListener {
  void OnTestEnd(const testing::TestInfo&) override {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      EXPECT_FALSE(window->isVisible())
          << "The test has left a window open: " << window->objectName().toStdString();
    }
  }
};

// The platform without a screen says at each showing of a window what it can't do.
void DropWordsOfThePlatform(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (text.startsWith(QStringLiteral("This plugin does not support"))) return;
  std::cerr << text.toStdString() << '\n';
  if (type == QtFatalMsg) std::abort();
}

}  // namespace

platform::Application& TheApplication() { return *theApplication; }

}  // namespace testing_support

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qInstallMessageHandler(testing_support::DropWordsOfThePlatform);
  platform::Application application(argc, argv);
  testing_support::theApplication = &application;
  auto& listeners = ::testing::UnitTest::GetInstance()->listeners();
  listeners.Append(new testing_support::OpenWindowsCheck);  // theirs from here on
  return RUN_ALL_TESTS();
}
