// The main of every test program that opens windows.
#include <gtest/gtest.h>

#include "tests/support/application.h"

namespace testing_support {
namespace {

platform::Application* theApplication = nullptr;

}  // namespace

platform::Application& TheApplication() { return *theApplication; }

}  // namespace testing_support

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  platform::Application application(argc, argv);
  testing_support::theApplication = &application;
  return RUN_ALL_TESTS();
}
