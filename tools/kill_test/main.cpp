// Kills the tool after each of many random operations and looks at what comes back:
//
//   kill_test WORK OPERATIONS [SEED]
//
// Each operation is done by a process of its own, which first brings back what the killed one
// before it left and compares that with the model; then it is killed. The book that the last one
// builds is compared with that of one process that did all of them.
//
//   kill_test --program FOLDER PLUGINS WORK OPERATIONS [SEED]
//
// The same at the program in FOLDER, with a robot out of PLUGINS in it. With --two-programs in
// place of that, two of them at once, after so many operations each.
#include <unistd.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/windows/application.h"
#include "tools/kill_test/editor.h"
#include "tools/kill_test/model.h"
#include "tools/kill_test/plan.h"
#include "tools/kill_test/process.h"
#include "tools/kill_test/program_chain.h"
#include "tools/kill_test/two_programs.h"

namespace kill_test {
namespace {

namespace fs = std::filesystem;

std::string ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Says what was wanted and what was there, and ends the process.
[[noreturn]] void Differ(const std::string& what, const std::string& wanted,
                         const std::string& there) {
  std::cout << "DIFFERS: " << what << "\n---- wanted\n"
            << wanted << "\n---- there\n"
            << there << "\n";
  std::cout.flush();
  std::_Exit(1);
}

void ExpectSame(const std::string& what, const std::string& wanted, const std::string& there) {
  if (wanted != there) Differ(what, wanted, there);
}

void BuildBook(Editor& editor) {
  if (!editor.Build()) Differ("the build", "a book", "none");
}

// One process of the chain: number `index` does that operation, the one after them all builds.
// Whoever started it kills it once it has said so.
[[noreturn]] void DoOne(const Plan& plan, int index) {
  Model model(plan.seed, CleanInput());
  for (int i = 0; i < index; ++i) model.Next();
  const std::string listPath = plan.work + "/list";
  Editor editor(plan.work);
  editor.Open();
  if (index > 0) {
    const std::string number = " before operation " + std::to_string(index);
    const bool left = Editor::BringBack();
    ExpectSame("the model" + number, model.Described(), editor.Described());
    if (left) ExpectSame("the list" + number, ReadWhole(listPath), Editor::ListAndCaptions());
  }
  if (index == plan.operations) {
    BuildBook(editor);
    std::_Exit(0);
  }
  const Operation operation = model.Next();
  editor.Do(operation);
  ExpectSame("deed " + std::to_string(static_cast<int>(operation.deed)), model.Described(),
             editor.Described());
  std::ofstream(listPath, std::ios::binary) << Editor::ListAndCaptions();
  std::cout << kDone << std::flush;
  for (;;) ::pause();
}

[[noreturn]] void DoAll(const Plan& plan) {
  Model model(plan.seed, CleanInput());
  Editor editor(plan.work);
  editor.Open();
  for (int i = 0; i < plan.operations; ++i) editor.Do(model.Next());
  ExpectSame("the unbroken run", model.Described(), editor.Described());
  BuildBook(editor);
  std::_Exit(0);
}

Child StartPart(const Plan& plan, const std::string& role) {
  return Child("/proc/self/exe",
               {plan.work, std::to_string(plan.operations), std::to_string(plan.seed), role},
               {{"TMPDIR", plan.work + "/tmp"}});
}

int Drive(const Plan& plan) {
  fs::remove_all(plan.work);
  BeginAnew(plan);
  for (int index = 0; index < plan.operations; ++index) {
    const std::string said = StartPart(plan, std::to_string(index)).SayAndKill();
    if (said != kDone) return Fail(plan, said + "operation " + std::to_string(index) + "\n");
    fs::remove_all(plan.work + "/tmp");
    fs::create_directories(plan.work + "/tmp");
  }
  std::string said = StartPart(plan, std::to_string(plan.operations)).SayToTheEnd();
  if (!said.empty()) return Fail(plan, said);
  const book::BookFiles broken = BuiltBook(plan);
  const bool recordIsGone = fs::is_empty(plan.work + "/state/recovery");
  BeginAnew(plan);
  said = StartPart(plan, "all").SayToTheEnd();
  if (!said.empty()) return Fail(plan, said);
  return Compare(plan, BuiltBook(plan), broken, recordIsGone);
}

}  // namespace
}  // namespace kill_test

// The platform without a screen says at each showing of a window what it can't do.
static void DropWords(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg || type == QtCriticalMsg) std::cerr << text.toStdString() << '\n';
}

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  const bool isTwo = !words.empty() && words.front() == "--two-programs";
  const bool isProgram = isTwo || (!words.empty() && words.front() == "--program");
  const std::size_t first = isProgram ? 3 : 0;
  if (words.size() < first + 2) {
    std::cout << "kill_test [--program|--two-programs FOLDER PLUGINS] WORK OPERATIONS [SEED]\n";
    return 2;
  }
  kill_test::Plan plan{.work = words[first], .operations = std::stoi(words[first + 1])};
  if (words.size() > first + 2) plan.seed = static_cast<unsigned>(std::stoul(words[first + 2]));
  if (isProgram) {
    plan.program = words[1];
    plan.plugIns = words[2];
    return isTwo ? kill_test::DriveTwoPrograms(plan) : kill_test::DriveProgram(plan);
  }
  if (words.size() == 2 || words.size() == 3) return kill_test::Drive(plan);
  const std::string& role = words.back();
  qInstallMessageHandler(DropWords);
  platform::Application application(argc, argv);
  if (role == "all") kill_test::DoAll(plan);
  kill_test::DoOne(plan, std::stoi(role));
}
