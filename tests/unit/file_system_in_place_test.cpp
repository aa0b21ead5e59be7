// A file that may be written, in a folder that may not: its new text goes over the old one.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <optional>
#include <string>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "tests/support/ordinary_user.h"
#include "tests/unit/file_system_testing.h"

namespace {

// What the disk says to the next calls; without an answer they do their work.
std::function<int()> onReserve;
std::function<int()> onFlush;

int Answered(const std::function<int()>& answer, const std::function<long()>& call) {
  const int error = answer ? answer() : 0;
  if (error == 0) return static_cast<int>(call());
  errno = error;
  return -1;
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" int fallocate(int file, int mode, off_t offset, off_t length) {
  return Answered(onReserve, [&] { return syscall(SYS_fallocate, file, mode, offset, length); });
}
extern "C" int fsync(int file) {
  return Answered(onFlush, [&] { return syscall(SYS_fsync, file); });
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace {

using namespace platform;
using testing::EndsWith;
using testing_support::FailureOf;
using testing_support::kOldText;
using testing_support::ModeOf;
using testing_support::OrdinaryUser;

class InPlace : public testing_support::FileSystemTest {
 protected:
  InPlace() {
    folder_.MakeFolder(u"shut");
    folder_.Write(u"shut\\a", kOldText);
    folder_.Write(u"source", "copied");
  }
  void SetUp() override {
    user_.emplace(folder_.HostPath());
    if (!user_->IsOrdinary()) GTEST_SKIP() << "this user is refused nothing";
    ASSERT_EQ(chmod(folder_.HostPath("shut").c_str(), 0555), 0);
  }
  void TearDown() override {
    onReserve = nullptr;
    onFlush = nullptr;
    user_.reset();
    chmod(folder_.HostPath("shut").c_str(), 0755);
  }
  std::string Now() const { return folder_.Read(u"shut\\a"); }
  std::string FailureOfReplacing() {
    return FailureOf([&] {
      WriteWhole(u"shut\\a", OpenMode::kReplace, "a new text that is longer than the one before");
    });
  }

  std::optional<OrdinaryUser> user_;
};

TEST_F(InPlace, TheTextIsReplacedWhereItStands) {
  struct stat before {};
  ASSERT_EQ(stat(folder_.HostPath("shut/a").c_str(), &before), 0);
  for (const std::string bytes : {"shorter", "once more, and longer than it has ever been", ""}) {
    folder_.Write(u"shut\\a", kOldText);
    WriteWhole(u"shut\\a", OpenMode::kReplace, bytes);
    EXPECT_EQ(Now(), bytes);
  }
  struct stat after {};
  ASSERT_EQ(stat(folder_.HostPath("shut/a").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_mode, before.st_mode);
}

TEST_F(InPlace, ANewFileIsRefused) {
  EXPECT_THAT(FailureOf([&] { files_.Open(Path(u"shut\\b"), OpenMode::kReplace, true); }),
              EndsWith("b: Permission denied"));
}

TEST_F(InPlace, TheOldTextStandsUntilTheClose) {
  const auto file = files_.Open(Path(u"shut\\a"), OpenMode::kReplace, false);
  file->Write("new ");
  file->Write("text");
  EXPECT_EQ(Now(), kOldText);
  file->Close();
  EXPECT_EQ(Now(), "new text");
}

TEST_F(InPlace, WithoutACloseTheOldTextStays) {
  files_.Open(Path(u"shut\\a"), OpenMode::kReplace, false)->Write("new text");
  EXPECT_EQ(Now(), kOldText);
}

TEST_F(InPlace, ACopyGoesOverTheFile) {
  ASSERT_EQ(chmod(folder_.HostPath("source").c_str(), 0755), 0);
  files_.CopyFile(Path(u"source"), Path(u"shut\\a"));
  EXPECT_EQ(Now(), "copied");
  EXPECT_NE(ModeOf(folder_.HostPath("shut/a")) & S_IXUSR, 0U);
}

TEST_F(InPlace, WithoutRoomTheOldTextIsNotTouched) {
  std::string atTheFailure;
  onReserve = [&] {
    atTheFailure = Now();
    return ENOSPC;
  };
  EXPECT_THAT(FailureOfReplacing(), EndsWith("a: No space left on device"));
  EXPECT_EQ(atTheFailure, kOldText);
  EXPECT_EQ(Now(), kOldText);
}

// On a network's disk, say.
TEST_F(InPlace, WhereNoRoomCanBePromisedTheTextIsReplacedAllTheSame) {
  onReserve = [] { return EOPNOTSUPP; };
  EXPECT_EQ(FailureOfReplacing(), "");
  EXPECT_EQ(Now(), "a new text that is longer than the one before");
}

// The text that is kept until it is whole is flushed first.
constexpr int kFlushOfTheFile = 2;

TEST_F(InPlace, ADiskThatFailsGetsItsOldTextBack) {
  int flushes = 0;
  std::string atTheFailure;
  onFlush = [&] {
    if (++flushes != kFlushOfTheFile) return 0;
    atTheFailure = Now();
    return EIO;
  };
  EXPECT_THAT(FailureOfReplacing(), EndsWith("a: Input/output error"));
  EXPECT_EQ(atTheFailure, "a new text that is longer than the one before");
  EXPECT_EQ(Now(), kOldText);
}

TEST_F(InPlace, WhatCanNotBePutBackIsTold) {
  int flushes = 0;
  onFlush = [&] { return ++flushes < kFlushOfTheFile ? 0 : EIO; };
  EXPECT_EQ(FailureOfReplacing(), "Can't write the old content back to " +
                                      ToUtf8(Path(u"shut\\a")) + ": Input/output error");
}

TEST_F(InPlace, OfTwoToolsAtOnceOneIsRefused) {
  const int other = open(folder_.HostPath("shut/a").c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  EXPECT_THAT(FailureOfReplacing(), EndsWith("a: Device or resource busy"));
  EXPECT_EQ(Now(), kOldText);
  close(other);
  EXPECT_EQ(FailureOfReplacing(), "");
}

TEST_F(InPlace, AFileThatMayNotBeReadIsRefusedAsItsOldTextCouldNotBeKept) {
  const std::string path = folder_.HostPath("shut/a");
  ASSERT_EQ(chmod(path.c_str(), 0200), 0);
  EXPECT_THAT(FailureOfReplacing(), EndsWith("a: Permission denied"));
  ASSERT_EQ(chmod(path.c_str(), 0600), 0);
  EXPECT_EQ(Now(), kOldText);
}

// As in the folder for everybody's temporary files: names can be made, but not taken from others.
TEST(InPlaceSticky, AFileOfAnotherUserThatAllMayWriteIsReplaced) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  const testing_support::TemporaryFolder everybodys;
  everybodys.Write(u"a", kOldText);
  const std::string path = everybodys.HostPath("a");
  ASSERT_EQ(chown(path.c_str(), 1234, 4321), 0);
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(chmod(everybodys.HostPath().c_str(), 01777), 0);
  const testing_support::TemporaryFolder own;
  const OrdinaryUser user(own.HostPath());
  const auto file = HostFileSystem().Open(everybodys.Path(u"a"), OpenMode::kReplace, false);
  file->Write("new text");
  file->Close();
  EXPECT_EQ(everybodys.Read(u"a"), "new text");
  EXPECT_EQ(everybodys.Count(), 1);
}

}  // namespace
