#include "tools/kill_test/program_chain.h"

#include <QColor>
#include <filesystem>
#include <fstream>
#include <map>
#include <vector>

#include "tests/support/picture_files.h"
#include "tools/kill_test/editor.h"
#include "tools/kill_test/model.h"
#include "tools/kill_test/process.h"

namespace kill_test {
namespace {

namespace fs = std::filesystem;

// The program writes beside itself, so it gets a folder of its own.
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

std::string AsWords(const std::vector<Operation>& operations) {
  std::string words;
  for (const Operation& each : operations) {
    words += std::to_string(static_cast<int>(each.deed)) + " " + std::to_string(each.row) + " " +
             std::to_string(each.from) + " " + std::to_string(each.length) + " " +
             (each.word.empty() ? "-" : each.word) + "\n";
  }
  return words;
}

enum class Then : std::uint8_t { kWaits, kBuilds };

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

// What the robot said it saw, first line and last.
std::string Between(const std::string& said, const std::string& from, const std::string& to) {
  const std::size_t begin = said.find(from + "\n");
  if (begin == std::string::npos) return "(nothing)";
  const std::size_t first = begin + from.size() + 1;
  return said.substr(first, said.find(to + "\n", first) - first);
}

std::string Differing(const std::string& what, const std::string& wanted,
                      const std::string& there) {
  return "DIFFERS: " + what + "\n---- wanted\n" + wanted + "\n---- there\n" + there + "\n";
}

// Nothing where the program showed what it should: before its operation all that stood there when
// the one before it was killed, behind it what the model says.
std::string WhatIsWrong(const Model& model, const std::string& saidBefore,
                        const std::string& said) {
  const std::string left = saidBefore.empty() ? "" : Between(saidBefore, "AFTER", "DONE");
  const std::string back = Between(said, "BEFORE", "AFTER");
  if (!saidBefore.empty() && left != back) return Differing("what came back", left, back);
  const std::string there = Between(said, "AFTER", "DONE");
  if (!there.starts_with(model.OnScreen() + "\n")) {
    return Differing("the model", model.OnScreen(), there);
  }
  return {};
}

std::string BuildBy(const Plan& plan, const std::vector<Operation>& operations) {
  const std::string said = StartProgram(plan, operations, Then::kBuilds).SayToTheEnd();
  const bool failed = said.ends_with("FAILED\n") || said.ends_with("NOT BUILT\n");
  return failed ? said : std::string();
}

bool RecordIsGone(const Plan& plan) {
  return fs::is_empty(plan.work + "/state/.local/state/zorvand/recovery");
}

}  // namespace

int DriveProgram(const Plan& plan) {
  fs::remove_all(plan.work);
  BeginAnew(plan);
  SetOut(plan);
  Model model(plan.seed, CleanInput());
  std::vector<Operation> all;
  std::string before;
  for (int index = 0; index < plan.operations; ++index) {
    all.push_back(model.Next());
    const std::string said = StartProgram(plan, {all.back()}, Then::kWaits).SayAndKill();
    const std::string wrong = WhatIsWrong(model, before, said);
    if (!wrong.empty()) return Fail(plan, wrong + "operation " + std::to_string(index) + "\n");
    before = said;
  }
  std::string said = BuildBy(plan, {});
  if (!said.empty()) return Fail(plan, said);
  const book::BookFiles broken = BuiltBook(plan);
  const bool recordIsGone = RecordIsGone(plan);
  BeginAnew(plan);
  said = BuildBy(plan, all);
  if (!said.empty()) return Fail(plan, said);
  return Compare(plan, BuiltBook(plan), broken, recordIsGone);
}

}  // namespace kill_test
