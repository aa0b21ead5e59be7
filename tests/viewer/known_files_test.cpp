#include "book/known_files.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

TEST(KnownFiles, DocumentsPicturesSoundsAndFilms) {
  for (const char* name : {"a.pdf", "a.TXT", "a.b.docx", "a.Jpg", "a.mp3", "a.avi", "/x.y/a.mp4"}) {
    EXPECT_TRUE(book::IsKnownDocument(QString::fromLatin1(name))) << name;
  }
}

TEST(KnownFiles, WhatRunsOrMayRunIsNone) {
  for (const char* name :
       {"a.exe", "a.EXE", "a.com",  "a.bat",  "a.cmd",    "a.scr",   "a.pif", "a.msi",
        "a.msc", "a.cpl", "a.hta",  "a.reg",  "a.lnk",    "a.url",   "a.vbs", "a.vbe",
        "a.js",  "a.jse", "a.wsf",  "a.wsh",  "a.ps1",    "a.jar",   "a.sh",  "a.py",
        "a.pyw", "a.pl",  "a.rb",   "a.bash", "a.zsh",    "a.bin",   "a.out", "a.run",
        "a.deb", "a.rpm", "a.chm",  "a.dll",  "a.html",   "a.xhtml", "a.svg", "a.appimage",
        "a.swf", "a.iso", "a.docm", "a.xyz",  "a.desktop"}) {
    EXPECT_FALSE(book::IsKnownDocument(QString::fromLatin1(name))) << name;
  }
}

// Macros, formulas that start programs, shows that fill the screen; and rich text, which writing
// programs take for what its content is, whatever its name.
TEST(KnownFiles, DocumentsThatMayHoldAProgramAreNone) {
  for (const char* name :
       {"a.doc",  "a.dot",  "a.docm", "a.dotm", "a.dotx", "a.rtf",  "a.xls", "a.xlt", "a.xlsm",
        "a.xltm", "a.xlsb", "a.xlam", "a.csv",  "a.slk",  "a.ppt",  "a.pot", "a.pps", "a.ppsx",
        "a.ppsm", "a.pptm", "a.odt",  "a.ott",  "a.ods",  "a.ots",  "a.odp", "a.otp", "a.odg",
        "a.otg",  "a.odm",  "a.fodt", "a.fods", "a.mdb",  "a.accdb"}) {
    EXPECT_FALSE(book::IsKnownDocument(QString::fromLatin1(name))) << name;
  }
}

TEST(KnownFiles, NamesThatHideTheirEndAreNone) {
  for (const char* name : {"a", "pdf", "a.pdf.exe", "a.pdf.", "a.pdf ", "a.exe.", "a.exe ", "a.",
                           "a.pdf/b", "", "a. pdf"}) {
    EXPECT_FALSE(book::IsKnownDocument(QString::fromLatin1(name))) << name;
  }
}

}  // namespace
}  // namespace viewer
