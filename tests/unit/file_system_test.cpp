#include "platform/files/file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "platform/failure.h"
#include "platform/files/paths.h"
#include "tests/support/full_disk.h"
#include "tests/unit/file_system_testing.h"

namespace {

using namespace platform;
using testing::EndsWith;
using testing::HasSubstr;
using testing_support::FailureOf;
using testing_support::FullDisk;

using Existence = testing_support::FileSystemTest;
using Reading = testing_support::FileSystemTest;
using Appending = testing_support::FileSystemTest;
using Deleting = testing_support::FileSystemTest;
using Folders = testing_support::FileSystemTest;

TEST_F(Existence, AFileIsNoFolderAndTheOtherWayRound) {
  folder_.Write(u"a.txt", "x");
  EXPECT_TRUE(files_.FileExists(Path(u"a.txt")));
  EXPECT_FALSE(files_.FolderExists(Path(u"a.txt")));
  EXPECT_TRUE(files_.FolderExists(folder_.Path()));
  EXPECT_TRUE(files_.FolderExists(folder_.Path() + u"\\"));
  EXPECT_FALSE(files_.FileExists(folder_.Path()));
  EXPECT_FALSE(files_.FileExists(Path(u"b.txt")));
}

TEST_F(Existence, WhatCanNotBeAskedForIsNotThere) {
  for (const Text& path : {Text(), Text(u"D:\\x"), Text(u"a\0b", 3), Text{0xD800}, Text(5000, u'x'),
                           Path(u"a.txt\\b")}) {
    EXPECT_FALSE(files_.FileExists(path));
    EXPECT_FALSE(files_.FolderExists(path));
  }
}

TEST_F(Existence, APipeIsNoFile) {
  ASSERT_EQ(mkfifo(folder_.HostPath("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(files_.FileExists(Path(u"pipe")));
}

TEST_F(Reading, GivesAllBytes) {
  std::string bytes;
  for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i % 251);
  folder_.Write(u"a.bin", bytes);
  EXPECT_EQ(ReadWhole(u"a.bin"), bytes);
  folder_.Write(u"empty", "");
  EXPECT_EQ(ReadWhole(u"empty"), "");
}

TEST_F(Reading, TwiceBeginsAtTheBeginning) {
  folder_.Write(u"a", "abc");
  const auto file = files_.Open(Path(u"a"), OpenMode::kRead, false);
  EXPECT_EQ(file->ReadAll(), "abc");
  EXPECT_EQ(file->ReadAll(), "abc");
  file->Close();
  file->Close();
  EXPECT_THROW(file->ReadAll(), Failure);
}

TEST_F(Reading, AFileThatHasMoreThanItSays) {
  const auto file = files_.Open(u"C:\\proc\\self\\status", OpenMode::kRead, false);
  EXPECT_THAT(file->ReadAll(), HasSubstr("Name:"));
}

TEST_F(Reading, NeverMakesAFile) {
  EXPECT_THAT(FailureOf([&] { files_.Open(Path(u"a.txt"), OpenMode::kRead, true); }),
              EndsWith("a.txt: No such file or directory"));
  EXPECT_FALSE(folder_.Has(u"a.txt"));
}

TEST_F(Reading, AFolderAndAPipeAreRefusedAtOnce) {
  ASSERT_EQ(mkfifo(folder_.HostPath("pipe").c_str(), 0600), 0);
  folder_.MakeFolder(u"folder");
  for (const OpenMode mode : {OpenMode::kRead, OpenMode::kReplace, OpenMode::kAppend}) {
    EXPECT_THAT(FailureOf([&] { files_.Open(Path(u"folder"), mode, true); }),
                EndsWith("folder: Is a directory"));
    EXPECT_NE(FailureOf([&] { files_.Open(Path(u"pipe"), mode, true); }), "");
    EXPECT_NE(FailureOf([&] { files_.Open(u"C:\\dev\\null", mode, true); }), "");
  }
  EXPECT_THAT(FailureOf([&] { files_.Open(Path(u"pipe"), OpenMode::kRead, false); }),
              EndsWith("pipe: Not an ordinary file"));
}

TEST_F(Reading, EachWayOfOpeningHasItsOperations) {
  folder_.Write(u"a", "abc");
  const auto reading = files_.Open(Path(u"a"), OpenMode::kRead, false);
  EXPECT_THAT(FailureOf([&] { reading->Write("x"); }), EndsWith("Bad file mode"));
  const auto appending = files_.Open(Path(u"a"), OpenMode::kAppend, false);
  EXPECT_THAT(FailureOf([&] { appending->ReadAll(); }), EndsWith("Bad file mode"));
  const auto replacing = files_.Open(Path(u"a"), OpenMode::kReplace, false);
  EXPECT_THAT(FailureOf([&] { replacing->ReadAll(); }), EndsWith("Bad file mode"));
}

TEST_F(Appending, GoesToTheEnd) {
  folder_.Write(u"a", "old ");
  WriteWhole(u"a", OpenMode::kAppend, "new", false);
  WriteWhole(u"a", OpenMode::kAppend, "er", true);
  EXPECT_EQ(folder_.Read(u"a"), "old newer");
}

TEST_F(Appending, MakesAFileOnlyIfAsked) {
  EXPECT_THROW(static_cast<void>(files_.Open(Path(u"a"), OpenMode::kAppend, false)), Failure);
  WriteWhole(u"a", OpenMode::kAppend, "new", true);
  EXPECT_EQ(folder_.Read(u"a"), "new");
}

TEST_F(Appending, AFullDiskLeavesTheTextAsItWas) {
  folder_.Write(u"a", "12345");
  const auto file = files_.Open(Path(u"a"), OpenMode::kAppend, false);
  const FullDisk full(10);
  EXPECT_EQ(FailureOf([&] { file->Write("67890 and more"); }),
            "Can't write " + ToUtf8(Path(u"a")) + ": File too large");
  file->Write("678");
  file->Close();
  EXPECT_EQ(folder_.Read(u"a"), "12345678");
}

TEST_F(Appending, WhatAnotherProgramWroteMeanwhileStays) {
  folder_.Write(u"a", "12345");
  const auto file = files_.Open(Path(u"a"), OpenMode::kAppend, false);
  WriteWhole(u"a", OpenMode::kAppend, "67", false);
  const FullDisk full(10);
  EXPECT_THROW(file->Write("890 and more"), Failure);
  EXPECT_EQ(folder_.Read(u"a"), "1234567");
}

TEST_F(Appending, AfterTheCloseAWriteFails) {
  const auto file = files_.Open(Path(u"a"), OpenMode::kAppend, true);
  file->Close();
  file->Close();
  EXPECT_THROW(file->Write("x"), Failure);
}

TEST_F(Deleting, TakesAFileAndNothingElse) {
  folder_.Write(u"a", "x");
  files_.DeleteFile(Path(u"a"));
  EXPECT_FALSE(folder_.Has(u"a"));
  EXPECT_EQ(FailureOf([&] { files_.DeleteFile(Path(u"a")); }),
            "Can't delete " + ToUtf8(Path(u"a")) + ": No such file or directory");
  EXPECT_THROW(files_.DeleteFile(folder_.Path()), Failure);
  EXPECT_EQ(folder_.Count(), 0);
}

TEST_F(Folders, OneLevelIsMade) {
  files_.MakeFolder(Path(u"a"));
  EXPECT_TRUE(files_.FolderExists(Path(u"a")));
  EXPECT_EQ(FailureOf([&] { files_.MakeFolder(Path(u"a")); }),
            "Can't make " + ToUtf8(Path(u"a")) + ": File exists");
  EXPECT_THROW(files_.MakeFolder(Path(u"b\\c")), Failure);
  folder_.Write(u"file", "");
  EXPECT_THROW(files_.MakeFolder(Path(u"file")), Failure);
  files_.MakeFolder(Path(u"\u0643\u062A\u0627\u0628\\"));
  EXPECT_TRUE(files_.FolderExists(Path(u"\u0643\u062A\u0627\u0628")));
}

}  // namespace
