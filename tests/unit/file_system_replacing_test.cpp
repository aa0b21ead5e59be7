// A file gets a new text: beside the old one, then in its place.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/unit/file_system_testing.h"

namespace {

using namespace platform;
using testing::EndsWith;
using testing_support::FailureOf;
using testing_support::FullDisk;
using testing_support::kOldText;
using testing_support::ModeOf;

using Replacing = testing_support::FileSystemTest;

TEST_F(Replacing, MakesANewFileOnlyIfAsked) {
  EXPECT_THAT(FailureOf([&] { files_.Open(Path(u"a"), OpenMode::kReplace, false); }),
              EndsWith("a: No such file or directory"));
  WriteWhole(u"a", OpenMode::kReplace, "new");
  EXPECT_EQ(folder_.Read(u"a"), "new");
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(Replacing, NeedsAParent) {
  EXPECT_EQ(FailureOf([&] { files_.Open(Path(u"none\\a"), OpenMode::kReplace, true); }),
            "Can't open " + ToUtf8(Path(u"none\\a")) + ": No such file or directory");
}

TEST_F(Replacing, ShorterTextLeavesNothingOfTheOldOne) {
  for (const std::string old : {"", "\xFF\xFE", "x", "xyz", "a much longer text than the new"}) {
    folder_.Write(u"a", old);
    WriteWhole(u"a", OpenMode::kReplace, "n");
    EXPECT_EQ(folder_.Read(u"a"), "n");
    EXPECT_EQ(folder_.Count(), 1);
  }
}

TEST_F(Replacing, TheOldTextStandsUntilTheClose) {
  folder_.Write(u"a", kOldText);
  const auto file = files_.Open(Path(u"a"), OpenMode::kReplace, false);
  file->Write("new ");
  file->Write("text");
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
  file->Close();
  EXPECT_EQ(folder_.Read(u"a"), "new text");
  file->Close();
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(Replacing, WithoutACloseTheOldTextStays) {
  folder_.Write(u"a", kOldText);
  files_.Open(Path(u"a"), OpenMode::kReplace, false)->Write("new text");
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(Replacing, WithoutACloseANewFileStaysAsFarAsItGot) {
  files_.Open(Path(u"a"), OpenMode::kReplace, true)->Write("new te");
  EXPECT_EQ(folder_.Read(u"a"), "new te");
}

// Empty, it would count as there when the caller tries again.
TEST_F(Replacing, OfANewFileThatNeverHadATextNothingStays) {
  static_cast<void>(files_.Open(Path(u"a"), OpenMode::kReplace, true));
  EXPECT_EQ(folder_.Count(), 0);
  {
    const auto file = files_.Open(Path(u"a"), OpenMode::kReplace, true);
    const FullDisk full(10);
    EXPECT_THROW(file->Write("a new text that has no room"), Failure);
  }
  EXPECT_EQ(folder_.Count(), 0);
  files_.Open(Path(u"a"), OpenMode::kReplace, true)->Close();
  EXPECT_EQ(folder_.Read(u"a"), "");
}

TEST_F(Replacing, AnEmptyFileStaysWhereItsTextHasNoRoom) {
  files_.Open(Path(u"a"), OpenMode::kReplace, true)->Close();
  const FullDisk full(10);
  EXPECT_THROW(WriteWhole(u"a", OpenMode::kReplace, "a new text that has no room"), Failure);
  EXPECT_EQ(folder_.Read(u"a"), "");
}

TEST_F(Replacing, WithoutAWriteTheFileIsEmptied) {
  folder_.Write(u"a", kOldText);
  files_.Open(Path(u"a"), OpenMode::kReplace, false)->Close();
  EXPECT_EQ(folder_.Read(u"a"), "");
}

TEST_F(Replacing, AFullDiskLeavesTheOldText) {
  folder_.Write(u"a", kOldText);
  const auto file = files_.Open(Path(u"a"), OpenMode::kReplace, false);
  const FullDisk full(10);
  EXPECT_EQ(FailureOf([&] { file->Write("a new text that has no room"); }),
            "Can't write " + ToUtf8(Path(u"a")) + ": File too large");
  // A caller that ignores failures goes on; half a text must not take the old one's place.
  EXPECT_THROW(file->Write("x"), Failure);
  EXPECT_THROW(file->Close(), Failure);
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(Replacing, AFullDiskLeavesNothingOfANewText) {
  const auto file = files_.Open(Path(u"a"), OpenMode::kReplace, true);
  const FullDisk full(10);
  file->Write("12345");
  EXPECT_THROW(file->Write("67890 and more"), Failure);
  file->Write("67");
  file->Close();
  EXPECT_EQ(folder_.Read(u"a"), "1234567");
}

TEST_F(Replacing, KeepsTheModeBits) {
  folder_.Write(u"a", kOldText);
  chmod(folder_.HostPath("a").c_str(), 0640);
  WriteWhole(u"a", OpenMode::kReplace, "new text");
  EXPECT_EQ(ModeOf(folder_.HostPath("a")), 0640U);
}

TEST_F(Replacing, KeepsTheOwner) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  folder_.Write(u"a", kOldText);
  ASSERT_EQ(chown(folder_.HostPath("a").c_str(), 1234, 4321), 0);
  WriteWhole(u"a", OpenMode::kReplace, "new text");
  struct stat known {};
  ASSERT_EQ(stat(folder_.HostPath("a").c_str(), &known), 0);
  EXPECT_EQ(known.st_uid, 1234U);
  EXPECT_EQ(known.st_gid, 4321U);
}

TEST_F(Replacing, ALinksTargetIsReplacedAndNotTheLink) {
  folder_.MakeFolder(u"far");
  folder_.Write(u"far\\target", kOldText);
  std::filesystem::create_symlink("far/target", folder_.HostPath("link"));
  WriteWhole(u"link", OpenMode::kReplace, "new text");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.HostPath("link")));
  EXPECT_EQ(folder_.Read(u"far\\target"), "new text");
  EXPECT_EQ(folder_.Count(), 2);
}

TEST_F(Replacing, AVeryLongNameHasRoomForTheNewText) {
  const Text name(255, u'n');
  folder_.Write(name, kOldText);
  WriteWhole(name, OpenMode::kReplace, "new text");
  EXPECT_EQ(folder_.Read(name), "new text");
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(Replacing, AFileThatMayNotBeWrittenRefuses) {
  folder_.Write(u"a", kOldText);
  chmod(folder_.HostPath("a").c_str(), 0444);
  const testing_support::OrdinaryUser user(folder_.HostPath());
  if (!user.IsOrdinary()) GTEST_SKIP() << "this user is refused nothing";
  EXPECT_THAT(FailureOf([&] { files_.Open(Path(u"a"), OpenMode::kReplace, true); }),
              EndsWith("a: Permission denied"));
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
}

// The kernel refuses to write a program that runs, for root too.
TEST_F(Replacing, AFileThatCanNotBeWrittenInItsPlaceRefuses) {
  std::filesystem::copy_file("/bin/sleep", folder_.HostPath("program"));
  const std::string program = folder_.HostPath("program");
  int ready[2];
  ASSERT_EQ(pipe2(ready, O_CLOEXEC), 0);
  const pid_t child = fork();
  if (child == 0) {
    execl(program.c_str(), "program", "60", nullptr);
    _exit(1);
  }
  close(ready[1]);
  char byte = 0;
  EXPECT_EQ(read(ready[0], &byte, 1), 0);  // ends when the child has become the program
  EXPECT_THAT(FailureOf([&] { files_.Open(Path(u"program"), OpenMode::kReplace, true); }),
              EndsWith("program: Text file busy"));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  close(ready[0]);
  EXPECT_EQ(folder_.Count(), 1);
}

}  // namespace
