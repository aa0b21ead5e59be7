// What the viewer starts for real.
#include "viewer/outside.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "tests/support/telling_program.h"

namespace {

using testing_support::TellingProgram;

class OutsideTest : public testing::Test {
 protected:
  QString PathOf(const QString& name) const { return folder_.filePath(name); }
  std::string HostPathOf(const QString& name) const {
    return QFile::encodeName(PathOf(name)).toStdString();
  }

  QTemporaryDir folder_;
  TellingProgram program_{HostPathOf(QStringLiteral("told"))};
};

TEST_F(OutsideTest, AProgramRunsInItsOwnFolder) {
  const QString name = QStringLiteral("\u067E\u06CC\u0648\u0633\u062A.exe");
  ASSERT_TRUE(program_.MakeAt(HostPathOf(name)));
  EXPECT_TRUE(viewer::TheMachine().startProgram(PathOf(name)));
  EXPECT_EQ(program_.Told(), QFile::encodeName(folder_.path()).toStdString() + ",0,");
}

TEST_F(OutsideTest, WhatIsNoProgramIsNotStarted) {
  QFile page(PathOf(QStringLiteral("page.txt")));
  ASSERT_TRUE(page.open(QIODevice::WriteOnly));
  page.write("a page");
  page.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  page.close();
  EXPECT_FALSE(viewer::TheMachine().startProgram(page.fileName()));
  EXPECT_FALSE(viewer::TheMachine().startProgram(PathOf(QStringLiteral("missing.exe"))));
  EXPECT_FALSE(TellingProgram::HasChildren());
}

}  // namespace
