// Programs that are started for real, from the folder named and without waiting for them.
#include "platform/launcher.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

using testing_support::TemporaryFolder;

class LauncherTest : public testing::Test {
 protected:
  // A program that tells its folder and its arguments through `told`, a pipe with a name.
  void MakeProgram(const std::string& name, const std::string& more = {}) {
    ASSERT_EQ(mkfifo(Told().c_str(), 0600), 0);
    const std::string path = folder_.HostPath(name);
    std::ofstream(path) << "#!/bin/sh\n" << more << "echo \"$PWD,$#,$*\" > '" << Told() << "'\n";
    fs::permissions(path, fs::perms::owner_all);
  }
  std::string Told() const { return folder_.HostPath("told"); }
  // Waits for the program.
  std::string ReadTold() const {
    std::ifstream pipe(Told());
    std::string line;
    std::getline(pipe, line);
    return line;
  }

  TemporaryFolder folder_;
};

TEST_F(LauncherTest, AProgramRunsInTheFolderNamed) {
  MakeProgram("main.exe");
  folder_.MakeFolder(u"place");
  platform::HostLauncher().Open(folder_.Path(u"main.exe"), folder_.Path(u"place"));
  EXPECT_EQ(ReadTold(), folder_.HostPath("place") + ",0,");
}

TEST_F(LauncherTest, NobodyWaitsForAProgram) {
  MakeProgram("main.exe", "read line < '" + folder_.HostPath("go") + "'\n");
  ASSERT_EQ(mkfifo(folder_.HostPath("go").c_str(), 0600), 0);
  platform::HostLauncher().Open(folder_.Path(u"main.exe"), folder_.Path());
  // It can't have ended: it waits for this line.
  std::ofstream(folder_.HostPath("go")) << "go\n";
  EXPECT_NE(ReadTold(), "");
}

TEST_F(LauncherTest, AnythingElseGoesToTheDesktopsHandlerWithItsPath) {
  MakeProgram("xdg-open");
  std::ofstream(folder_.HostPath("book.pdf")) << "a book";
  const std::string before = std::getenv("PATH");
  setenv("PATH", (folder_.HostPath() + ":" + before).c_str(), 1);
  platform::HostLauncher().Open(folder_.Path(u"book.pdf"), folder_.Path());
  const std::string told = ReadTold();
  setenv("PATH", before.c_str(), 1);
  EXPECT_TRUE(told.ends_with(",1," + folder_.HostPath("book.pdf"))) << told;
}

TEST_F(LauncherTest, WhatIsNotThereIsPassedOver) {
  platform::HostLauncher().Open(folder_.Path(u"missing.exe"), folder_.Path(u"missing"));
  platform::HostLauncher().Open(u"Q:\\x.exe", u"Q:\\");
}

}  // namespace
