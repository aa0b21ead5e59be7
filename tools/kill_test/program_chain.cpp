#include "tools/kill_test/program_chain.h"

#include <filesystem>
#include <vector>

#include "tools/kill_test/editor.h"
#include "tools/kill_test/model.h"
#include "tools/kill_test/program_process.h"

namespace kill_test {

namespace fs = std::filesystem;

namespace {

std::string Differing(const std::string& what, const std::string& wanted,
                      const std::string& there) {
  return "DIFFERS: " + what + "\n---- wanted\n" + wanted + "\n---- there\n" + there + "\n";
}

// Nothing where the program showed what it should: before its operation all that stood there when
// the one before it was killed, after it what the model says.
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
  const bool recordIsGone = fs::is_empty(RecordFolder(plan));
  BeginAnew(plan);
  said = BuildBy(plan, all);
  if (!said.empty()) return Fail(plan, said);
  return Compare(plan, BuiltBook(plan), broken, recordIsGone);
}

}  // namespace kill_test
