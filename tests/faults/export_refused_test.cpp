// An export that the host refuses something: a target that may not be written, a file that may not
// be read, a folder that goes while it is filled.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "tests/faults/export_walk.h"
#include "tests/support/ordinary_user.h"

namespace {

using faults::ExportWalk;
using faults::Tree;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::BoxText;
using testing_support::OrdinaryUser;

namespace fs = std::filesystem;

constexpr const char* kRoot = "Export/Export 2";

class RefusedExport : public testing::Test {
 protected:
  // Whoever runs the tests is refused what the permissions say.
  void SetUp() override {
    user_.emplace(walk.desk.folder.HostPath());
    if (!user_->IsOrdinary()) GTEST_SKIP() << "root can't be anybody else here";
  }
  void TearDown() override { Allow("Export", fs::perms::owner_all); }

  void Refuse(const std::string& below, fs::perms permissions) {
    fs::permissions(walk.desk.HostPath(below), permissions, fs::perm_options::remove);
  }
  void Allow(const std::string& below, fs::perms permissions) {
    if (!walk.desk.Has(below)) return;
    fs::permissions(walk.desk.HostPath(below), permissions, fs::perm_options::add);
  }
  void RefuseWriting(const std::string& below) {
    Refuse(below, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write);
  }
  void ExpectMessage(int number) {
    const Tree around = walk.Around(kRoot);
    EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(number)));
    EXPECT_EQ(walk.Around(kRoot), around);
    EXPECT_THAT(walk.desk.launcher.opened, SizeIs(number == 29 ? 1 : 0));
  }

  ExportWalk walk;

 private:
  std::optional<OrdinaryUser> user_;
};

TEST_F(RefusedExport, OntoAReadOnlyTargetMakesNothing) {
  RefuseWriting("Export");
  ExpectMessage(28);
  EXPECT_THAT(walk.desk.Names("Export"), ElementsAre("Export 1", "Export 3"));
  Allow("Export", fs::perms::owner_write);
  ExpectMessage(29);
  EXPECT_TRUE(walk.desk.Has(std::string(kRoot) + "/main.exe"));
}

TEST_F(RefusedExport, OfADefaultTargetThatMayNotBeMadeIsToldByTheButton) {
  fs::remove_all(walk.desk.HostPath("Export"));
  RefuseWriting("");
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(102)));
  EXPECT_FALSE(walk.desk.Has("Export"));
  Allow("", fs::perms::owner_write);
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_TRUE(walk.desk.Has("Export/Export 1/main.exe"));
}

TEST_F(RefusedExport, OfAFileThatMayNotBeReadKeepsTheFilesBefore) {
  walk.desk.Write("Data/IMG/rose.jpg", "a rose");
  Refuse("Data/IMG/rose.jpg", fs::perms::all);
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_THAT(walk.desk.Names(std::string(kRoot) + "/Data/IMG"), ElementsAre("picture.jpg"));
  EXPECT_FALSE(walk.desk.Has(std::string(kRoot) + "/main.exe"));
  Allow("Data/IMG/rose.jpg", fs::perms::owner_read);
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(29)));
}

TEST_F(RefusedExport, OfAScriptThatMayNotBeReadMakesNothing) {
  Refuse("Resources/Export.inf", fs::perms::all);
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_FALSE(walk.desk.Has(kRoot));
  Allow("Resources/Export.inf", fs::perms::owner_read);
  ExpectMessage(29);
}

// Files of a disc have no write permission; their copies can be replaced and deleted.
TEST_F(RefusedExport, OfABookFromAReadOnlyDiscSucceeds) {
  RefuseWriting("Data/IMG/picture.jpg");
  RefuseWriting("Data/TXT/A.htm");
  RefuseWriting("Resources/main.exe");
  ExpectMessage(29);
  for (const char* name : {"/Data/IMG/picture.jpg", "/Data/TXT/A.htm", "/main.exe"}) {
    const fs::perms mode = fs::status(walk.desk.HostPath(kRoot + std::string(name))).permissions();
    EXPECT_NE(mode & fs::perms::owner_write, fs::perms::none) << name;
  }
}

TEST_F(RefusedExport, IntoATargetThatGoesMeanwhileFails) {
  walk.desk.files.onOperation = [&](const std::string& name) {
    if (name.ends_with("picture.jpg")) fs::remove_all(walk.desk.HostPath("Export"));
  };
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_FALSE(walk.desk.Has("Export"));
  walk.desk.files.onOperation = nullptr;
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(26)));
}

TEST_F(RefusedExport, OfAProjectThatGoesMeanwhileFailsAndIsMissedTheNextTime) {
  walk.desk.files.onOperation = [&](const std::string& name) {
    if (name.ends_with("_xml")) fs::remove_all(walk.desk.HostPath("Data"));
  };
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(28)));
  walk.desk.files.onOperation = nullptr;
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(10)));
  EXPECT_THAT(walk.desk.launcher.opened, IsEmpty());
}

}  // namespace
