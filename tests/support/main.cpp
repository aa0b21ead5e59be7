// The main of every test program that opens windows.
#include <gtest/gtest.h>

#include "platform/application.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const platform::Application application(argc, argv);
  return RUN_ALL_TESTS();
}
