// Programs that are started for real, from the folder named and without waiting for them.
#include "platform/launcher.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

#include "launch/launcher.h"
#include "tests/support/telling_program.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

using testing_support::TellingProgram;
using testing_support::TemporaryFolder;

class LauncherTest : public testing::Test {
 protected:
  void MakeProgram(const std::string& name, const std::string& more = {}) {
    ASSERT_TRUE(program_.MakeAt(folder_.HostPath(name), more));
  }
  std::string ReadTold() const { return program_.Told(); }
  static bool HasChildren() { return TellingProgram::HasChildren(); }

  TemporaryFolder folder_;
  TellingProgram program_{folder_.HostPath("told")};
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

TEST_F(LauncherTest, AProgramNamedWithoutAFolderIsTakenFromTheCurrentOne) {
  MakeProgram("main.exe");
  folder_.MakeFolder(u"place");
  const fs::path before = fs::current_path();
  fs::current_path(folder_.HostPath());
  platform::HostLauncher().Open(u"main.exe", folder_.Path(u"place"));
  fs::current_path(before);
  EXPECT_EQ(ReadTold(), folder_.HostPath("place") + ",0,");
}

// A stand-in for the desktop's handler, found before any other.
class HandlerTest : public LauncherTest {
 protected:
  void SetUp() override {
    MakeProgram("xdg-open");
    setenv("PATH", (folder_.HostPath() + ":" + before_).c_str(), 1);
  }
  void TearDown() override { setenv("PATH", before_.c_str(), 1); }

 private:
  const std::string before_ = std::getenv("PATH");
};

TEST_F(HandlerTest, GetsAnythingElseWithItsPath) {
  std::ofstream(folder_.HostPath("book.pdf")) << "a book";
  platform::HostLauncher().Open(folder_.Path(u"book.pdf"), folder_.Path());
  EXPECT_EQ(ReadTold(), folder_.HostPath() + ",1," + folder_.HostPath("book.pdf"));
}

// On many a stick and disc every file may be executed.
TEST_F(HandlerTest, GetsAFileThatMayBeExecutedAndIsNoProgram) {
  std::ofstream(folder_.HostPath("main.exe"))
      << "echo run by a shell > '" << program_.Pipe() << "'\n";
  fs::permissions(folder_.HostPath("main.exe"), fs::perms::owner_all);
  platform::HostLauncher().Open(folder_.Path(u"main.exe"), folder_.Path());
  EXPECT_EQ(ReadTold(), folder_.HostPath() + ",1," + folder_.HostPath("main.exe"));
}

TEST_F(HandlerTest, NothingIsStartedInAFolderThatIsNotThere) {
  std::ofstream(folder_.HostPath("main.exe")) << "#!/bin/sh\n";
  fs::permissions(folder_.HostPath("main.exe"), fs::perms::owner_all);
  for (const char16_t* file : {u"main.exe", u"missing.exe", u"told"}) {
    platform::HostLauncher().Open(folder_.Path(file), folder_.Path(u"missing"));
    EXPECT_FALSE(HasChildren());
  }
  platform::HostLauncher().Open(u"Q:\\x.exe", u"Q:\\");
  EXPECT_FALSE(HasChildren());
}

// The desktop tells the reader that it isn't there.
TEST_F(HandlerTest, GetsAFileThatIsNotThere) {
  platform::HostLauncher().Open(folder_.Path(u"missing.pdf"), folder_.Path());
  EXPECT_EQ(ReadTold(), folder_.HostPath() + ",1," + folder_.HostPath("missing.pdf"));
}

TEST_F(LauncherTest, AProgramThatHasEndedIsLetGoWithTheNext) {
  MakeProgram("main.exe");
  platform::HostLauncher().Open(folder_.Path(u"main.exe"), folder_.Path());
  ReadTold();
  siginfo_t ended = {};
  ASSERT_EQ(waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT), 0);
  platform::HostLauncher().Open(folder_.Path(u"main.exe"), folder_.Path(u"missing"));
  EXPECT_FALSE(HasChildren());
}

// A player of books asks first whether a file is to be run at all.
TEST_F(LauncherTest, WhatIsStartedAsAProgramIsHandedToNobody) {
  int handed = 0;
  launch::Launcher launcher([&](const std::string&, const std::string&) { return ++handed > 0; });
  std::ofstream(folder_.HostPath("page.txt")) << "a page";
  fs::permissions(folder_.HostPath("page.txt"), fs::perms::owner_all);
  EXPECT_FALSE(launcher.Start(folder_.HostPath("page.txt"), folder_.HostPath()));
  EXPECT_FALSE(launcher.Start(folder_.HostPath("missing"), folder_.HostPath()));
  EXPECT_FALSE(HasChildren());
  EXPECT_EQ(handed, 0);
}

TEST_F(LauncherTest, AHandlerOfItsOwnSaysWhetherThereIsSomebody) {
  MakeProgram("main.exe");
  std::string asked;
  bool isThere = false;
  launch::Launcher launcher([&](const std::string& file, const std::string& folder) {
    asked += file.substr(folder.size()) + ";";
    return isThere;
  });
  EXPECT_FALSE(launcher.HandOver(folder_.HostPath("main.exe"), folder_.HostPath()));
  EXPECT_FALSE(launcher.Open(folder_.HostPath("book.pdf"), folder_.HostPath()));
  isThere = true;
  EXPECT_TRUE(launcher.Open(folder_.HostPath("book.pdf"), folder_.HostPath()));
  EXPECT_EQ(asked, "/main.exe;/book.pdf;/book.pdf;");
  EXPECT_FALSE(HasChildren());
}

}  // namespace
