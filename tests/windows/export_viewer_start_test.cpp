// An export that starts its viewer for real, in a process of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "tests/support/export_desk.h"
#include "tests/support/program_process.h"

namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::ContainsRegex;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing_support::BoxText;
using testing_support::ExportDesk;
using testing_support::Robot;
using testing_support::RunProgram;
using testing_support::ScriptOf;

// Hidden from this process alone.
const std::string kOwnRoot = "/media";

bool Mount(const std::string& what, const std::string& where, unsigned long flags,
           const char* kind = nullptr) {
  return ::mount(what.c_str(), where.c_str(), kind, flags, nullptr) == 0;
}

bool BeginsOwnRoot() {
  return ::unshare(CLONE_NEWNS) == 0 && Mount("none", "/", MS_REC | MS_PRIVATE) &&
         Mount("none", kOwnRoot, 0, "tmpfs");
}

// Not every root may: not the one of most containers.
bool MayHaveOwnRoot() {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(BeginsOwnRoot() ? 0 : 1);
  int status = 1;
  return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

// Gives the process a root folder in which it sees all folders of the host's; what it puts straight
// into it is gone with the process.
bool HasOwnRoot() {
  if (!BeginsOwnRoot()) return false;
  for (const auto& entry : fs::directory_iterator("/")) {
    const std::string here = kOwnRoot + entry.path().string();
    if (entry.is_symlink()) {
      fs::copy_symlink(entry.path(), here);
    } else if (entry.is_directory() && entry.path() != kOwnRoot) {
      fs::create_directory(here);
      if (!Mount(entry.path(), here, MS_BIND | MS_REC)) return false;
    }
  }
  return ::chroot(kOwnRoot.c_str()) == 0 && ::chdir("/") == 0;
}

// A program that tells where it runs through the pipe `told`.
void MakeViewer(const std::string& path, const std::string& told) {
  std::ofstream(path) << "#!/bin/sh\necho \"$0 in $PWD with $#\" > '" << told << "'\n";
  fs::permissions(path, fs::perms::owner_all);
}

// Exports with the machine's own launcher, reports what the viewer tells, and closes the window.
void ExportAndListen(ExportDesk& desk, const std::string& told) {
  exporting::ExportPass exportPass(desk.form1, platform::HostLauncher());
  desk.form1.Wire({.workbench = &desk.form3, .paragraph = &desk.form6, .exporting = &exportPass});
  Robot::Click("Form1", "Command10");
  std::ifstream pipe(told);
  std::string line;
  std::getline(pipe, line);
  std::cerr << "VIEWER " << line << ".\n";
  Robot::CloseWindow("Form1");
}

class ExportStartsTheViewer : public testing::Test {
 protected:
  ExportStartsTheViewer() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ExportStartsTheViewer, OfTheExportFromItsOwnFolder) {
  EXPECT_EXIT(RunProgram<ExportDesk>([](ExportDesk& desk) {
                const std::string told = desk.HostPath("told");
                ::mkfifo(told.c_str(), 0600);
                desk.OpenProject(ScriptOf({{}, {}, {"main.exe => root"}}));
                MakeViewer(desk.HostPath("Resources/main.exe"), told);
                ExportAndListen(desk, told);
              }),
              ExitedWithCode(0),
              AllOf(HasSubstr("BOX Zorvand: " + BoxText(29)),
                    ContainsRegex("VIEWER /.*/program/Export/Export 1/main.exe in "
                                  "/.*/program/Export/Export 1 with 0[.]"),
                    HasSubstr("Exported Main.exe played.")));
}

// The export's folder is empty then, so that the viewer's path begins with its separator.
TEST_F(ExportStartsTheViewer, AtTheRootOfTheDriveWhereTheScriptIsMissing) {
  if (!MayHaveOwnRoot()) GTEST_SKIP() << "this user may have no root folder of its own";
  const auto run = [] {
    if (!HasOwnRoot()) std::quick_exit(1);
    RunProgram<ExportDesk>([](ExportDesk& desk) {
      const std::string told = desk.HostPath("told");
      ::mkfifo(told.c_str(), 0600);
      desk.OpenProject("");
      fs::remove(desk.HostPath("Resources/Export.inf"));
      MakeViewer("/main.exe", told);
      ExportAndListen(desk, told);
    });
  };
  EXPECT_EXIT(
      run(), ExitedWithCode(0),
      AllOf(HasSubstr("BOX Zorvand: " + BoxText(27) + ".\nBOX Zorvand: " + BoxText(29)),
            HasSubstr("VIEWER /main.exe in / with 0.\n"), HasSubstr("Exported Main.exe played.")));
}

}  // namespace
