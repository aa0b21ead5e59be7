#include "platform/files/file_system_object.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/failure.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace platform;
using namespace std::string_literals;
using testing_support::FaultyFileSystem;
using testing_support::TemporaryFolder;

class FileSystemObjectTest : public testing::Test {
 protected:
  void Put(TextView name, IoMode mode, TextFormat format, TextView text, bool create = false) {
    TextStream stream = fileSys_.OpenTextFile(folder_.Path(name), mode, create, format);
    stream.Write(text);
    stream.Close();
  }
  Text Get(TextView name, TextFormat format) {
    TextStream stream =
        fileSys_.OpenTextFile(folder_.Path(name), IoMode::kForReading, false, format);
    Text text = stream.ReadAll();
    stream.Close();
    return text;
  }

  TemporaryFolder folder_;
  FaultyFileSystem files_{HostFileSystem()};
  FileSystemObject fileSys_{files_};
};

using Unicode = FileSystemObjectTest;
using CodePage = FileSystemObjectTest;
using Operations = FileSystemObjectTest;

TEST_F(Unicode, ANewFileStartsWithItsMark) {
  Put(u"a", IoMode::kForWriting, TextFormat::kUnicode, u"<s", true);
  EXPECT_EQ(folder_.Read(u"a"), "\xFF\xFE\x3C\0\x73\0"s);
}

TEST_F(Unicode, AReplacedFileStartsWithItsMark) {
  folder_.Write(u"a", "something longer than that");
  Put(u"a", IoMode::kForWriting, TextFormat::kUnicode, u"x");
  EXPECT_EQ(folder_.Read(u"a"), "\xFF\xFEx\0"s);
}

TEST_F(Unicode, SeveralWritesHaveOneMark) {
  TextStream stream =
      fileSys_.OpenTextFile(folder_.Path(u"a"), IoMode::kForWriting, true, TextFormat::kUnicode);
  stream.Write(u"a");
  stream.Write(u"b");
  stream.Close();
  EXPECT_EQ(folder_.Read(u"a"),
            "\xFF\xFE"
            "a\0b\0"s);
}

TEST_F(Unicode, AFileWithoutATextHoldsItsMark) {
  fileSys_.OpenTextFile(folder_.Path(u"a"), IoMode::kForWriting, true, TextFormat::kUnicode)
      .Close();
  EXPECT_EQ(folder_.Read(u"a"), "\xFF\xFE");
}

TEST_F(Unicode, AnAppendAddsNoMark) {
  Put(u"a", IoMode::kForWriting, TextFormat::kUnicode, u"a", true);
  Put(u"a", IoMode::kForAppending, TextFormat::kUnicode, u"b");
  EXPECT_EQ(folder_.Read(u"a"),
            "\xFF\xFE"
            "a\0b\0"s);
  folder_.Write(u"empty", "");
  Put(u"empty", IoMode::kForAppending, TextFormat::kUnicode, u"b", true);
  EXPECT_EQ(folder_.Read(u"empty"), "b\0"s);
}

TEST_F(Unicode, AnAppendThatMakesItsFileBeginsItWithTheMark) {
  Put(u"a", IoMode::kForAppending, TextFormat::kUnicode, u"a", true);
  EXPECT_EQ(folder_.Read(u"a"),
            "\xFF\xFE"
            "a\0"s);
}

TEST_F(Unicode, ReadingLeavesTheMarkOut) {
  folder_.Write(u"a", "\xFF\xFE\x41\x06x\0"s);
  EXPECT_EQ(Get(u"a", TextFormat::kUnicode), u"\u0641x");
  folder_.Write(u"b", "x\0\xFF\xFE"s);
  EXPECT_EQ(Get(u"b", TextFormat::kUnicode), u"x\uFEFF");
}

TEST_F(Unicode, AnOddByteAtTheEndIsDropped) {
  folder_.Write(u"a", "\xFF\xFEx\0y"s);
  EXPECT_EQ(Get(u"a", TextFormat::kUnicode), u"x");
}

TEST_F(Unicode, EveryTextComesBack) {
  Text all;
  for (unsigned unit = 0; unit < 65536; ++unit) all += static_cast<char16_t>(unit);
  Put(u"a", IoMode::kForWriting, TextFormat::kUnicode, all, true);
  EXPECT_EQ(Get(u"a", TextFormat::kUnicode), all);
}

TEST_F(Unicode, NothingToReadIsAFailure) {
  for (const std::string& bytes : {""s, "\xFF\xFE"s, "x"s}) {
    folder_.Write(u"a", bytes);
    Text description;
    CatchingFailure([&] { Get(u"a", TextFormat::kUnicode); },
                    [&](const Text& caught) { description = caught; });
    EXPECT_EQ(description, u"Input past end of file");
  }
}

TEST_F(CodePage, EveryByteComesBackAndThereIsNoMark) {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  folder_.Write(u"a", bytes);
  Put(u"b", IoMode::kForWriting, TextFormat::kCodePage, Get(u"a", TextFormat::kCodePage), true);
  EXPECT_EQ(folder_.Read(u"b"), bytes);
}

TEST_F(CodePage, AMarkIsReadAsTwoLetters) {
  folder_.Write(u"a", "\xFF\xFE");
  EXPECT_EQ(Get(u"a", TextFormat::kCodePage), u"\u06D2\u200F");
}

TEST_F(CodePage, AnEmptyFileCanNotBeRead) {
  folder_.Write(u"a", "");
  EXPECT_THROW(Get(u"a", TextFormat::kCodePage), Failure);
}

TEST_F(CodePage, CreateTextFileMakesAndEmpties) {
  for (const TextView text : {u"a first and longer text", u"second"}) {
    TextStream stream = fileSys_.CreateTextFile(folder_.Path(u"a"));
    stream.Write(text);
    stream.Close();
    EXPECT_EQ(folder_.Read(u"a"), ToUtf8(text));
  }
  fileSys_.CreateTextFile(folder_.Path(u"a")).Close();
  EXPECT_EQ(folder_.Read(u"a"), "");
}

TEST_F(CodePage, AnAppendMakesAFileOnlyIfAsked) {
  EXPECT_THROW(Put(u"a", IoMode::kForAppending, TextFormat::kCodePage, u"x"), Failure);
  Put(u"a", IoMode::kForAppending, TextFormat::kCodePage, u"x\u06CC", true);
  EXPECT_EQ(folder_.Read(u"a"), "x?");
}

TEST_F(Operations, AWritingIsOneOpenOneWriteOneClose) {
  for (const IoMode mode : {IoMode::kForWriting, IoMode::kForAppending}) {
    files_.FailAt(FaultyFileSystem::kNever);
    Put(u"a", mode, TextFormat::kUnicode, u"text", mode == IoMode::kForWriting);
    EXPECT_EQ(files_.Operations(), 3U);
  }
}

TEST_F(Operations, AReplacedTextIsTheOldOrTheNewWhicheverOperationFails) {
  for (std::size_t k = 1; k <= 4; ++k) {
    folder_.Write(u"a", "the old text");
    files_.FailAt(k);
    Ignoring([&] { Put(u"a", IoMode::kForWriting, TextFormat::kUnicode, u"new"); });
    EXPECT_EQ(folder_.Read(u"a"), k <= 3 ? "the old text" : "\xFF\xFEn\0e\0w\0"s) << k;
    EXPECT_EQ(folder_.Count(), 1);
  }
}

TEST_F(Operations, ExistenceAndNamesGoThrough) {
  folder_.Write(u"b", "");
  folder_.Write(u"A", "");
  EXPECT_TRUE(fileSys_.FileExists(folder_.Path(u"b")));
  EXPECT_TRUE(fileSys_.FolderExists(folder_.Path()));
  EXPECT_EQ(fileSys_.FileNames(folder_.Path()), (std::vector<Text>{u"A", u"b"}));
  EXPECT_EQ(files_.Operations(), 3U);
  EXPECT_EQ(&fileSys_.Files(), &files_);
}

TEST_F(Operations, AStreamCanBeHandedOn) {
  TextStream first = fileSys_.CreateTextFile(folder_.Path(u"a"));
  TextStream second = std::move(first);
  second.Write(u"x");
  second.Close();
  EXPECT_EQ(folder_.Read(u"a"), "x");
}

}  // namespace
