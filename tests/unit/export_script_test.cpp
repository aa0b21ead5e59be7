#include "export/script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/failure.h"

namespace {

using exporting::CutScript;
using exporting::ExportScript;
using exporting::SplitCopyLine;
using platform::Failure;
using platform::Text;
using testing::ElementsAre;
using testing::IsEmpty;

// All three sections, each closed by one empty line and the next bracket.
const Text kScript =
    u"words for the editor\r\n"
    u"[ Make Folder ]\r\nData\r\nData\\IMG two\r\n\r\n"
    u"[ Copy Folder ]\r\nTXT => Data\\TXT\r\n\r\n"
    u"[ Copy File ]\r\nmain.exe => root\r\n\r\n"
    u"[ End ]\r\n";

Text With(platform::TextView find, platform::TextView replacement) {
  return platform::Replace(kScript, find, replacement);
}

TEST(ExportScript, EverySectionHoldsItsLinesInOrder) {
  const ExportScript script = CutScript(kScript);
  EXPECT_THAT(script.makeFolder, ElementsAre(u"Data", u"Data\\IMG two"));
  EXPECT_THAT(script.copyFolder, ElementsAre(u"TXT => Data\\TXT"));
  EXPECT_THAT(script.copyFile, ElementsAre(u"main.exe => root"));
}

TEST(ExportScript, SectionsMayStandInAnyOrder) {
  const ExportScript script = CutScript(
      u"[ Copy File ]\r\na => root\r\n\r\n[ Make Folder ]\r\nb\r\n\r\n"
      u"[ Copy Folder ]\r\nc => d\r\n\r\n[");
  EXPECT_THAT(script.makeFolder, ElementsAre(u"b"));
  EXPECT_THAT(script.copyFolder, ElementsAre(u"c => d"));
  EXPECT_THAT(script.copyFile, ElementsAre(u"a => root"));
}

TEST(ExportScript, AHeaderNeedNotBeginItsLine) {
  const ExportScript script = CutScript(With(u"[ Copy File ]", u"and now [ Copy File ]"));
  EXPECT_THAT(script.copyFile, ElementsAre(u"main.exe => root"));
}

TEST(ExportScript, WhatFollowsAHeaderOnItsLineIsIgnored) {
  const ExportScript script = CutScript(With(u"[ Copy File ]", u"[ Copy File ] last of all"));
  EXPECT_THAT(script.copyFile, ElementsAre(u"main.exe => root"));
}

TEST(ExportScript, AnEmptySectionCarriesOutNothing) {
  EXPECT_THAT(CutScript(With(u"main.exe => root\r\n", u"")).copyFile, IsEmpty());
  EXPECT_THAT(CutScript(With(u"main.exe => root\r\n\r\n", u"")).copyFile, IsEmpty());
}

TEST(ExportScript, WithoutAnEmptyLineTheLastItemDoesNotRun) {
  const ExportScript script = CutScript(With(u"Data\\IMG two\r\n\r\n", u"Data\\IMG two\r\n"));
  EXPECT_THAT(script.makeFolder, ElementsAre(u"Data"));
}

TEST(ExportScript, WithTwoEmptyLinesAnEmptyItemIsCarriedOut) {
  const ExportScript script = CutScript(With(u"main.exe => root\r\n", u"main.exe => root\r\n\r\n"));
  EXPECT_THAT(script.copyFile, ElementsAre(u"main.exe => root", u""));
}

TEST(ExportScript, LineFeedsAloneLeaveEverySectionEmpty) {
  const ExportScript script = CutScript(platform::Replace(kScript, u"\r\n", u"\n"));
  EXPECT_THAT(script.makeFolder, IsEmpty());
  EXPECT_THAT(script.copyFolder, IsEmpty());
  EXPECT_THAT(script.copyFile, IsEmpty());
}

TEST(ExportScript, ASecondHeaderIsIgnoredAndStillEndsTheSectionBeforeIt) {
  const ExportScript script =
      CutScript(With(u"[ End ]", u"[ Make Folder ]\r\nnever\r\n\r\n[ End ]"));
  EXPECT_THAT(script.makeFolder, ElementsAre(u"Data", u"Data\\IMG two"));
  EXPECT_THAT(script.copyFile, ElementsAre(u"main.exe => root"));
}

TEST(ExportScript, ABracketInsideAPathCutsTheSectionThere) {
  const ExportScript script = CutScript(With(u"Data\\IMG two", u"Data\\[IMG]"));
  EXPECT_THAT(script.makeFolder, ElementsAre(u"Data"));
}

TEST(ExportScript, AMissingHeaderIsAFailure) {
  for (const char16_t* header : {u"[ Make Folder ]", u"[ Copy Folder ]", u"[ Copy File ]"}) {
    EXPECT_THROW(CutScript(With(header, u"[ other ]")), Failure);
  }
  EXPECT_THROW(CutScript(With(u"[ Copy File ]", u"[ copy file ]")), Failure);
  EXPECT_THROW(CutScript(With(u"[ Copy File ]", u"[Copy File]")), Failure);
}

TEST(ExportScript, NoBracketAfterTheLastSectionIsAFailure) {
  EXPECT_THROW(CutScript(With(u"[ End ]", u"End")), Failure);
}

TEST(ExportScript, AnEmptyTextIsAFailure) { EXPECT_THROW(CutScript(u""), Failure); }

TEST(ExportCopyLine, BlanksAroundTheArrowAreOptionalAndTabsStay) {
  EXPECT_EQ(SplitCopyLine(u"IMG=>Data\\IMG").source, u"IMG");
  EXPECT_EQ(SplitCopyLine(u"  IMG  =>  Data\\IMG  ").target, u"Data\\IMG");
  EXPECT_EQ(SplitCopyLine(u"IMG\t=> x").source, u"IMG\t");
}

TEST(ExportCopyLine, TheFirstArrowCounts) {
  EXPECT_EQ(SplitCopyLine(u"a => b => c").source, u"a");
  EXPECT_EQ(SplitCopyLine(u"a => b => c").target, u"b => c");
}

TEST(ExportCopyLine, WithoutAnArrowItIsAFailure) {
  EXPECT_THROW(SplitCopyLine(u"a = b"), Failure);
  EXPECT_THROW(SplitCopyLine(u""), Failure);
}

TEST(ExportTarget, EveryLowerCaseRootIsTakenOut) {
  EXPECT_EQ(exporting::WithoutRootWord(u"root"), u"");
  EXPECT_EQ(exporting::WithoutRootWord(u"root\\Data"), u"\\Data");
  EXPECT_EQ(exporting::WithoutRootWord(u"rootfolder"), u"folder");
  EXPECT_EQ(exporting::WithoutRootWord(u"ROOT\\x\\root"), u"ROOT\\x\\");
}

}  // namespace
