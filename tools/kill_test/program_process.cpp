#include "tools/kill_test/program_process.h"

#include <QColor>
#include <filesystem>
#include <fstream>
#include <map>

#include "tests/support/picture_files.h"
#include "tools/kill_test/editor.h"
#include "tools/kill_test/model.h"

namespace kill_test {

namespace fs = std::filesystem;

namespace {

std::string AsWords(const std::vector<Operation>& operations) {
  std::string words;
  for (const Operation& each : operations) {
    words += std::to_string(static_cast<int>(each.deed)) + " " + std::to_string(each.row) + " " +
             std::to_string(each.from) + " " + std::to_string(each.length) + " " +
             (each.word.empty() ? kNoWord : each.word) + "\n";
  }
  return words;
}

}  // namespace

void SetOut(const Plan& plan) {
  const fs::path program = plan.work + "/program";
  fs::copy(plan.program, program, fs::copy_options::recursive);
  fs::create_directories(program / "Pictures");
  for (int i = 1; i <= kPictures; ++i) {
    std::ofstream(program / "Pictures" / ("p" + std::to_string(i) + ".jpg"), std::ios::binary)
        << testing_support::PictureOf("JPG", QColor(40 * i, 120, 60));
  }
  fs::create_directories(plan.work + "/Texts");
  std::ofstream(plan.work + "/Texts/One.txt", std::ios::binary) << InputBytes();
}

Child StartProgram(const Plan& plan, const std::vector<Operation>& operations, Then then) {
  std::map<std::string, std::string> environment = {
      {"HOME", plan.work + "/state"},
      {"TMPDIR", plan.work + "/tmp"},
      {"QT_PLUGIN_PATH", plan.plugIns},
      {"QT_QPA_GENERIC_PLUGINS", "kill_test_robot"},
      {"QT_LOGGING_RULES", "*.warning=false"},  // what a platform without a screen can't do
      {"KILL_TEST_BOOK", plan.work + "/Data"},
      {"KILL_TEST_TEXTS", plan.work + "/Texts"},
      {"KILL_TEST_OPERATIONS", AsWords(operations)}};
  if (then == Then::kBuilds) environment["KILL_TEST_BUILD"] = "1";
  return Child(plan.work + "/program/zorvand", {}, environment);
}

std::string Between(const std::string& said, const std::string& from, const std::string& to) {
  const std::size_t begin = said.find(from + "\n");
  if (begin == std::string::npos) return "(nothing)";
  const std::size_t first = begin + from.size() + 1;
  return said.substr(first, said.find(to + "\n", first) - first);
}

bool WasOffered(const std::string& said) { return said.starts_with("BROUGHT BACK\n"); }

std::string RecordFolder(const Plan& plan) {
  return plan.work + "/state/.local/state/zorvand/recovery";
}

}  // namespace kill_test
