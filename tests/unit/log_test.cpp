#include "core/log.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/memory_file_system.h"

namespace {

using testing_support::MemoryFileSystem;
using testing_support::StoppedClock;

constexpr char kBanner[] =
    "In the Name of Allah\r\n\r\n"
    "This is a log file for Zorvand software\r\n"
    "Created in 1/2/2026 3:04:05 PM\r\n"
    "======================\r\n\r\n";
constexpr char kEntry[] = "1/2/2026 3:04:05 PM: Making combo...\r\n";

class Log : public testing::Test {
 protected:
  void Write(platform::TextView path) {
    core::WriteLog(fileSys_, clock_, u"Making combo...", path);
  }

  MemoryFileSystem files_;
  platform::FileSystemObject fileSys_{files_};
  StoppedClock clock_;
};

TEST_F(Log, ANewFileGetsTheBannerThenTheEntry) {
  Write(u"C:\\ZVL.txt");
  EXPECT_EQ(files_.content[u"C:\\ZVL.txt"], std::string(kBanner) + kEntry);
}

TEST_F(Log, WithOnlyOneOfTheTwoFilesPresentOnlyTheMissingOneGetsTheBanner) {
  files_.content[u"C:\\ZVL.txt"] = "old\r\n";
  Write(u"C:\\ZVL.txt");
  Write(u"C:\\ZVL.log");
  EXPECT_EQ(files_.content[u"C:\\ZVL.txt"], std::string("old\r\n") + kEntry);
  EXPECT_EQ(files_.content[u"C:\\ZVL.log"], std::string(kBanner) + kEntry);
}

TEST_F(Log, AFileThatCannotBeWrittenIsLeftOutAndTheOtherStillGetsItsLine) {
  files_.refusing.insert(u"C:\\ZVL.txt");
  Write(u"C:\\ZVL.txt");
  Write(u"C:\\ZVL.log");
  EXPECT_FALSE(files_.content.contains(u"C:\\ZVL.txt"));
  EXPECT_EQ(files_.content[u"C:\\ZVL.log"], std::string(kBanner) + kEntry);
}

TEST_F(Log, AnEntryInAFileThatIsThereCostsOneOpenAndOneClose) {
  files_.content[u"C:\\ZVL.txt"] = "";
  Write(u"C:\\ZVL.txt");
  EXPECT_EQ(files_.opened, 1);
  EXPECT_EQ(files_.closed, 1);
}

TEST_F(Log, EveryOpenedFileIsClosed) {
  Write(u"C:\\ZVL.txt");
  EXPECT_EQ(files_.opened, 2);
  EXPECT_EQ(files_.closed, 2);
}

TEST_F(Log, APersianNameInAnEntryIsWrittenInTheMachinesCodePage) {
  files_.content[u"a"] = "";
  core::WriteLog(fileSys_, clock_, u"\u0627", u"a");
  EXPECT_EQ(files_.content[u"a"], "1/2/2026 3:04:05 PM: \xC7\r\n");
}

TEST(LogText, AnEntryKeepsTheLineBreaksOfItsText) {
  EXPECT_EQ(core::LogEntry(u"D", u"Closing last log.\r\n\r\n="),
            u"D: Closing last log.\r\n\r\n=\r\n");
}

TEST(LogText, AFailureIsNotedWithItsNumberAndDescription) {
  EXPECT_EQ(core::FailureNote(42, u"Type mismatch"),
            u"Error occurred => Error number is 42 (Type mismatch)");
}

TEST(LogText, AClosedBoxIsNotedWithItsNumber) {
  EXPECT_EQ(core::DisplayNote(0), u"Payam number 0 displayed.");
  EXPECT_EQ(core::DisplayNote(101), u"Payam number 101 displayed.");
}

}  // namespace
