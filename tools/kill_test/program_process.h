// The program as a process of its own, with the robot in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/kill_test/operation.h"
#include "tools/kill_test/plan.h"
#include "tools/kill_test/process.h"

namespace kill_test {

// The program writes beside itself, so it gets a folder of its own, with texts and pictures.
void SetOut(const Plan& plan);

enum class Then : std::uint8_t { kWaits, kBuilds };
Child StartProgram(const Plan& plan, const std::vector<Operation>& operations, Then then);

// What the robot said between two of its words.
std::string Between(const std::string& said, const std::string& from, const std::string& to);
// Whether something was offered to it, which it then brought back.
bool WasOffered(const std::string& said);

// Where the program keeps its records.
std::string RecordFolder(const Plan& plan);

}  // namespace kill_test
