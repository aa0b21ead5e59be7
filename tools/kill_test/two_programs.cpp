#include "tools/kill_test/two_programs.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <vector>

#include "tools/kill_test/editor.h"
#include "tools/kill_test/model.h"
#include "tools/kill_test/program_process.h"

namespace kill_test {
namespace {

namespace fs = std::filesystem;

// The bytes of each record by its name.
std::map<std::string, std::string> Records(const Plan& plan) {
  std::map<std::string, std::string> records;
  if (!fs::exists(RecordFolder(plan))) return records;
  for (const auto& entry : fs::directory_iterator(RecordFolder(plan))) {
    std::ifstream file(entry.path(), std::ios::binary);
    records[entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
  }
  return records;
}

std::vector<Operation> SomeOperations(unsigned seed, int count) {
  Model model(seed, CleanInput());
  std::vector<Operation> operations(static_cast<std::size_t>(count));
  for (Operation& each : operations) each = model.Next();
  return operations;
}

// What is wrong with a second program beside the first; nothing if nothing is.
std::string LookAtSecond(const std::string& said, const std::map<std::string, std::string>& before,
                         const std::map<std::string, std::string>& after) {
  if (!said.ends_with(kDone)) return "The second program ended by itself:\n" + said;
  if (WasOffered(said)) return "The second program was offered what the first has in hand.\n";
  if (after.size() != 2) return "There aren't two records.\n";
  for (const auto& [name, bytes] : before) {
    if (!after.contains(name) || after.at(name) != bytes) return "The first record was touched.\n";
  }
  return {};
}

std::string LookAtThird(const std::string& firstSaid, const std::string& said) {
  if (!WasOffered(said)) return "The third program was offered nothing.\n" + said;
  const std::string wanted = Between(firstSaid, "AFTER", "DONE");
  const std::string there = Between(said, "BEFORE", "AFTER");
  return wanted == there ? "" : "Wanted:\n" + wanted + "There:\n" + there;
}

}  // namespace

int DriveTwoPrograms(const Plan& plan) {
  fs::remove_all(plan.work);
  BeginAnew(plan);
  SetOut(plan);
  Child first = StartProgram(plan, SomeOperations(plan.seed, plan.operations), Then::kWaits);
  const std::string firstSaid = first.Say();
  const auto before = Records(plan);
  Child second = StartProgram(plan, SomeOperations(plan.seed + 1, plan.operations), Then::kWaits);
  const std::string secondSaid = second.Say();
  std::string wrong = before.size() == 1 ? LookAtSecond(secondSaid, before, Records(plan))
                                         : "The first has no record.\n" + firstSaid;
  first.Kill();
  if (wrong.empty()) {
    wrong = LookAtThird(firstSaid, StartProgram(plan, {}, Then::kWaits).SayAndKill());
  }
  second.Kill();
  if (!wrong.empty()) return Fail(plan, wrong);
  std::cout << "Seed " << plan.seed << ": two programs kept out of each other's records.\n";
  fs::remove_all(plan.work);
  return 0;
}

}  // namespace kill_test
