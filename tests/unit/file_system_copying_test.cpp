#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "tests/support/full_disk.h"
#include "tests/unit/file_system_testing.h"

namespace {

using namespace platform;
using testing::EndsWith;
using testing::HasSubstr;
using testing_support::FailureOf;
using testing_support::FullDisk;
using testing_support::kOldText;
using testing_support::ModeOf;

using Copying = testing_support::FileSystemTest;

TEST_F(Copying, MakesANewFile) {
  std::string bytes;
  for (int i = 0; i < 1000000; ++i) bytes += static_cast<char>(i % 253);
  folder_.Write(u"a", bytes);
  files_.CopyFile(Path(u"a"), Path(u"b"));
  EXPECT_EQ(folder_.Read(u"b"), bytes);
  folder_.Write(u"empty", "");
  files_.CopyFile(Path(u"empty"), Path(u"c"));
  EXPECT_EQ(folder_.Read(u"c"), "");
}

TEST_F(Copying, TheCopyOfAProgramIsOneToo) {
  WriteWhole(u"main.exe", OpenMode::kReplace, "#!/bin/sh\n");
  const std::string source = folder_.HostPath("main.exe");
  const std::string target = folder_.HostPath("copy.exe");
  ASSERT_EQ(chmod(source.c_str(), 0555), 0);
  files_.CopyFile(Path(u"main.exe"), Path(u"copy.exe"));
  EXPECT_EQ(ModeOf(target) & 0100, 0100U);
  EXPECT_EQ(ModeOf(target) & 0200, 0200U) << "a copy from a read-only disc can be changed";
}

TEST_F(Copying, GoesOverWhateverFileStandsThere) {
  folder_.Write(u"a", "short");
  for (const std::string old : {"", "\xFF\xFE", "a longer text than the copied one"}) {
    folder_.Write(u"b", old);
    files_.CopyFile(Path(u"a"), Path(u"b"));
    EXPECT_EQ(folder_.Read(u"b"), "short");
    EXPECT_EQ(folder_.Count(), 2);
  }
}

TEST_F(Copying, AFileOntoItselfIsAFailureAndHarmsNothing) {
  folder_.Write(u"a", kOldText);
  std::filesystem::create_symlink("a", folder_.HostPath("link"));
  std::filesystem::create_hard_link(folder_.HostPath("a"), folder_.HostPath("hard"));
  for (const Text other : {u"a", u"link", u"hard", u".\\a"}) {
    EXPECT_THAT(FailureOf([&] { files_.CopyFile(Path(u"a"), Path(other)); }),
                EndsWith("It is the same file"));
    EXPECT_EQ(folder_.Read(u"a"), kOldText);
  }
  EXPECT_EQ(folder_.Count(), 3);
}

TEST_F(Copying, NeedsASource) {
  folder_.Write(u"b", kOldText);
  EXPECT_EQ(FailureOf([&] { files_.CopyFile(Path(u"a"), Path(u"b")); }),
            "Can't copy " + ToUtf8(Path(u"a")) + ": No such file or directory");
  EXPECT_EQ(folder_.Read(u"b"), kOldText);
  EXPECT_THROW(files_.CopyFile(Path(u"a"), Path(u"c")), Failure);
  EXPECT_FALSE(folder_.Has(u"c"));
}

TEST_F(Copying, FoldersAndPipesAreNeitherSourceNorTarget) {
  folder_.Write(u"a", kOldText);
  folder_.MakeFolder(u"folder");
  ASSERT_EQ(mkfifo(folder_.HostPath("pipe").c_str(), 0600), 0);
  for (const Text odd : {u"folder", u"pipe"}) {
    EXPECT_THROW(files_.CopyFile(Path(odd), Path(u"b")), Failure);
    EXPECT_FALSE(folder_.Has(u"b"));
    EXPECT_THROW(files_.CopyFile(Path(u"a"), Path(odd)), Failure);
  }
  EXPECT_THROW(files_.CopyFile(Path(u"a"), Path(u"none\\b")), Failure);
  EXPECT_EQ(folder_.Count(), 3);
}

TEST_F(Copying, FromAReadOnlyDiscCanBeChanged) {
  folder_.Write(u"a", kOldText);
  chmod(folder_.HostPath("a").c_str(), 0444);
  const mode_t mask = umask(022);
  files_.CopyFile(Path(u"a"), Path(u"b"));
  umask(mask);
  EXPECT_EQ(ModeOf(folder_.HostPath("b")), 0644U);
}

TEST_F(Copying, OverAFileKeepsItsModeBits) {
  folder_.Write(u"a", "new");
  folder_.Write(u"b", kOldText);
  chmod(folder_.HostPath("b").c_str(), 0600);
  files_.CopyFile(Path(u"a"), Path(u"b"));
  EXPECT_EQ(ModeOf(folder_.HostPath("b")), 0600U);
}

TEST_F(Copying, OverAFileTheCopyOfAProgramIsOneForWhoeverMayReadIt) {
  folder_.Write(u"program", "#!/bin/sh\n");
  chmod(folder_.HostPath("program").c_str(), 0555);
  folder_.Write(u"b", kOldText);
  for (const auto& [old, mode] : {std::pair{0644U, 0755U}, {0600U, 0700U}, {0640U, 0750U}}) {
    chmod(folder_.HostPath("b").c_str(), old);
    files_.CopyFile(Path(u"program"), Path(u"b"));
    EXPECT_EQ(ModeOf(folder_.HostPath("b")), mode);
  }
}

TEST_F(Copying, OverAProgramTheCopyOfATextIsNone) {
  folder_.Write(u"a", "new");
  folder_.Write(u"b", "#!/bin/sh\n");
  chmod(folder_.HostPath("b").c_str(), 0755);
  files_.CopyFile(Path(u"a"), Path(u"b"));
  EXPECT_EQ(ModeOf(folder_.HostPath("b")), 0644U);
}

TEST_F(Copying, AFullDiskLeavesTheOldTargetAndNoNewOne) {
  folder_.Write(u"a", std::string(5000, 'n'));
  folder_.Write(u"b", kOldText);
  const FullDisk full(1000);
  EXPECT_EQ(FailureOf([&] { files_.CopyFile(Path(u"a"), Path(u"b")); }),
            "Can't write " + ToUtf8(Path(u"b")) + ": File too large");
  EXPECT_EQ(folder_.Read(u"b"), kOldText);
  EXPECT_THROW(files_.CopyFile(Path(u"a"), Path(u"c")), Failure);
  EXPECT_EQ(folder_.Count(), 2);
}

TEST_F(Copying, WhereTheKernelHasNoCopyOfItsOwn) {
  files_.CopyFile(u"C:\\proc\\self\\status", Path(u"status"));
  EXPECT_THAT(folder_.Read(u"status"), HasSubstr("Name:"));
}

TEST_F(Copying, ALinksTargetIsReplacedAndNotTheLink) {
  folder_.Write(u"a", "new");
  folder_.Write(u"b", kOldText);
  std::filesystem::create_symlink("b", folder_.HostPath("link"));
  files_.CopyFile(Path(u"a"), Path(u"link"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.HostPath("link")));
  EXPECT_EQ(folder_.Read(u"b"), "new");
}

}  // namespace
