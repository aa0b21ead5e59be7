#include "platform/files/file_system.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/files/paths.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/full_disk.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace platform;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing_support::FaultyFileSystem;
using testing_support::FullDisk;
using testing_support::TemporaryFolder;

const std::string kOldText = "the old text, longer than a mark";

std::string FailureOf(const std::function<void()>& body) {
  std::string caught;
  CatchingFailure(body, [&](const Text& description) { caught = ToUtf8(description); });
  return caught;
}

mode_t ModeOf(const std::string& hostPath) {
  struct stat known {};
  EXPECT_EQ(stat(hostPath.c_str(), &known), 0);
  return known.st_mode & 07777;
}

class FileSystemTest : public testing::Test {
 protected:
  Text Path(TextView name) const { return folder_.Path(name); }
  void WriteWhole(TextView name, OpenMode mode, std::string_view bytes, bool create = true) {
    const auto file = files_.Open(Path(name), mode, create);
    file->Write(bytes);
    file->Close();
  }
  std::string ReadWhole(TextView name) {
    return files_.Open(Path(name), OpenMode::kRead, false)->ReadAll();
  }

  TemporaryFolder folder_;
  FileSystem& files_ = HostFileSystem();
};

using Existence = FileSystemTest;
using Reading = FileSystemTest;
using Replacing = FileSystemTest;
using Appending = FileSystemTest;
using Deleting = FileSystemTest;
using Copying = FileSystemTest;
using Folders = FileSystemTest;
using Listing = FileSystemTest;

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
  files_.Open(Path(u"a"), OpenMode::kReplace, true);
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
  if (geteuid() == 0) GTEST_SKIP() << "root may write everything";
  folder_.Write(u"a", kOldText);
  chmod(folder_.HostPath("a").c_str(), 0444);
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

TEST_F(Appending, GoesToTheEnd) {
  folder_.Write(u"a", "old ");
  WriteWhole(u"a", OpenMode::kAppend, "new", false);
  WriteWhole(u"a", OpenMode::kAppend, "er", true);
  EXPECT_EQ(folder_.Read(u"a"), "old newer");
}

TEST_F(Appending, MakesAFileOnlyIfAsked) {
  EXPECT_THROW(files_.Open(Path(u"a"), OpenMode::kAppend, false), Failure);
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

TEST_F(Listing, SortsWithoutRegardToCase) {
  for (const Text name : {u"b", u"A", u"a", u"C", u"_", u"Z1", u"z2"}) folder_.Write(name, "");
  folder_.MakeFolder(u"Y");
  folder_.MakeFolder(u"x");
  EXPECT_THAT(files_.FileNames(folder_.Path()),
              ElementsAre(u"_", u"A", u"a", u"b", u"C", u"Z1", u"z2"));
  EXPECT_THAT(files_.FolderNames(folder_.Path() + u"\\"), ElementsAre(u"x", u"Y"));
}

TEST_F(Listing, LinksCountAsWhatTheyLeadTo) {
  folder_.Write(u"file", "");
  folder_.MakeFolder(u"folder");
  std::filesystem::create_symlink("file", folder_.HostPath("toFile"));
  std::filesystem::create_symlink("folder", folder_.HostPath("toFolder"));
  std::filesystem::create_symlink("nowhere", folder_.HostPath("toNowhere"));
  ASSERT_EQ(mkfifo(folder_.HostPath("pipe").c_str(), 0600), 0);
  EXPECT_THAT(files_.FileNames(folder_.Path()), ElementsAre(u"file", u"toFile"));
  EXPECT_THAT(files_.FolderNames(folder_.Path()), ElementsAre(u"folder", u"toFolder"));
}

TEST_F(Listing, LeavesOutNamesThatNoPathCanHold) {
  folder_.Write(u"plain", "");
  ASSERT_GE(close(open(folder_.HostPath("back\\slash").c_str(), O_CREAT | O_WRONLY, 0600)), 0);
  EXPECT_THAT(files_.FileNames(folder_.Path()), ElementsAre(u"plain"));
}

TEST_F(Listing, ANameThatIsNoUtf8CanBeOpened) {
  const int file = open(folder_.HostPath("a\xD9\xFFz").c_str(), O_CREAT | O_WRONLY, 0600);
  ASSERT_EQ(write(file, "found", 5), 5);
  ASSERT_EQ(close(file), 0);
  const std::vector<Text> names = files_.FileNames(folder_.Path());
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(ReadWhole(names[0]), "found");
}

TEST_F(Listing, NeedsAFolder) {
  folder_.Write(u"file", "");
  EXPECT_EQ(FailureOf([&] { files_.FileNames(Path(u"none")); }),
            "Can't list " + ToUtf8(Path(u"none")) + ": No such file or directory");
  EXPECT_THROW(files_.FileNames(Path(u"file")), Failure);
  EXPECT_THROW(files_.FolderNames(u""), Failure);
}

TEST_F(Listing, OfTenThousandNamesIsWholeAndSorted) {
  for (int i = 0; i < 10000; ++i) {
    std::string name(1, i % 2 != 0 ? 'n' : 'N');
    name += std::to_string(i);
    ASSERT_EQ(close(open(folder_.HostPath(name).c_str(), O_CREAT | O_WRONLY, 0600)), 0);
  }
  const std::vector<Text> names = files_.FileNames(folder_.Path());
  EXPECT_EQ(names.size(), 10000U);
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end(),
                             [](const Text& a, const Text& b) { return LCase(a) < LCase(b); }));
}

// The fault injector itself: what it counts, and that only the k-th operation fails.
class Faults : public FileSystemTest {
 protected:
  // Each operation tried on its own; how many of them failed.
  int Run() {
    int failed = 0;
    std::unique_ptr<OpenedFile> file;
    const auto tried = [&](const std::function<void()>& operation) {
      CatchingFailure(operation, [&](const Text&) { ++failed; });
    };
    tried([&] { faulty_.MakeFolder(Path(u"f")); });
    tried([&] { faulty_.FolderExists(Path(u"f")); });
    tried([&] { faulty_.FileExists(Path(u"a")); });
    tried([&] { file = faulty_.Open(Path(u"a"), OpenMode::kReplace, true); });
    if (file) tried([&] { file->Write("abc"); });
    if (file) tried([&] { file->Close(); });
    tried([&] { faulty_.FileNames(folder_.Path()); });
    tried([&] { faulty_.FolderNames(folder_.Path()); });
    tried([&] { faulty_.CopyFile(Path(u"given"), Path(u"b")); });
    tried([&] { faulty_.DeleteFile(Path(u"given2")); });
    tried([&] { faulty_.Flush(folder_.Path()); });
    file.reset();
    tried([&] { faulty_.Open(Path(u"given"), OpenMode::kRead, false)->ReadAll(); });
    return failed;
  }
  void SetUp() override {
    folder_.Write(u"given", "g");
    folder_.Write(u"given2", "g");
  }

  FaultyFileSystem faulty_{HostFileSystem()};
};

TEST_F(Faults, NoneUnlessAsked) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(faulty_.Operations(), 13U);
  EXPECT_EQ(faulty_.Names()[3], "Open " + ToUtf8(Path(u"a")));
  EXPECT_FALSE(faulty_.HasFailed());
}

class FaultAt : public Faults, public testing::WithParamInterface<std::size_t> {};

TEST_P(FaultAt, ThatOneAlone) {
  faulty_.FailAt(GetParam());
  EXPECT_EQ(Run(), 1);
  EXPECT_TRUE(faulty_.HasFailed());
}

INSTANTIATE_TEST_SUITE_P(EachOperation, FaultAt, testing::Range<std::size_t>(1, 14));

TEST_F(Faults, PastTheEndNothingFails) {
  faulty_.FailAt(14);
  EXPECT_EQ(Run(), 0);
  EXPECT_FALSE(faulty_.HasFailed());
}

TEST_F(Faults, FromOneOnAllFail) {
  faulty_.FailFrom(7);
  EXPECT_EQ(Run(), 6);
  EXPECT_EQ(folder_.Read(u"a"), "abc");
  EXPECT_TRUE(folder_.Has(u"given2"));
}

TEST_F(Faults, AWriteOrCloseThatFailsKeepsTheOldText) {
  folder_.Write(u"a", kOldText);
  for (const std::size_t k : {5U, 6U}) {
    faulty_.FailAt(k);
    Run();
    EXPECT_EQ(folder_.Read(u"a"), k == 5 ? "" : kOldText) << faulty_.Names().back();
    folder_.Write(u"a", kOldText);
  }
}

}  // namespace
