// Kills the tool after each of many random operations and looks at what comes back:
//
//   kill_test WORK OPERATIONS [SEED]
//
// Each operation is done by a process of its own, which first brings back what the killed one
// before it left and compares that with the model; then it is killed. The book that the last one
// builds is compared with that of one process that did all of them.
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/windows/application.h"
#include "tests/book/book_files.h"
#include "tests/book/expected_book.h"
#include "tools/kill_test/editor.h"
#include "tools/kill_test/model.h"

namespace kill_test {
namespace {

namespace fs = std::filesystem;

struct Plan {
  std::string work;
  int operations = 300;
  unsigned seed = 1;
};

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
  Model model(plan.seed, Editor::InputText());
  for (int i = 0; i < index; ++i) model.Next();
  const std::string listPath = plan.work + "/list";
  Editor editor(plan.work);
  editor.Open();
  if (index > 0) {
    const std::string number = " before operation " + std::to_string(index);
    const bool left = editor.BringBack();
    ExpectSame("the model" + number, model.Described(), editor.Described());
    if (left) ExpectSame("the list" + number, ReadWhole(listPath), editor.ListAndCaption());
  }
  if (index == plan.operations) {
    BuildBook(editor);
    std::_Exit(0);
  }
  const Operation operation = model.Next();
  editor.Do(operation);
  ExpectSame("deed " + std::to_string(static_cast<int>(operation.deed)), model.Described(),
             editor.Described());
  std::ofstream(listPath, std::ios::binary) << editor.ListAndCaption();
  std::cout << "DONE" << std::endl;
  for (;;) ::pause();
}

[[noreturn]] void DoAll(const Plan& plan) {
  Model model(plan.seed, Editor::InputText());
  Editor editor(plan.work);
  editor.Open();
  for (int i = 0; i < plan.operations; ++i) editor.Do(model.Next());
  ExpectSame("the unbroken run", model.Described(), editor.Described());
  BuildBook(editor);
  std::_Exit(0);
}

struct Child {
  pid_t process = 0;
  int output = -1;
};

Child Start(const Plan& plan, const std::string& role) {
  int ends[2];
  if (::pipe(ends) != 0) std::abort();
  const pid_t process = ::fork();
  if (process == 0) {
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[0]);
    ::setenv("TMPDIR", (plan.work + "/tmp").c_str(), 1);
    const std::string operations = std::to_string(plan.operations);
    const std::string seed = std::to_string(plan.seed);
    ::execl("/proc/self/exe", "kill_test", plan.work.c_str(), operations.c_str(), seed.c_str(),
            role.c_str(), nullptr);
    ::_exit(127);
  }
  ::close(ends[1]);
  return {process, ends[0]};
}

// What it says up to its end, or until it says that it is done; then it is killed.
std::string RunAndKill(const Child& child) {
  std::string said;
  char byte = 0;
  while (!said.ends_with("DONE\n") && ::read(child.output, &byte, 1) == 1) said += byte;
  ::kill(child.process, SIGKILL);
  ::waitpid(child.process, nullptr, 0);
  ::close(child.output);
  return said;
}

std::string RunToTheEnd(const Child& child) {
  std::string said;
  char byte = 0;
  while (::read(child.output, &byte, 1) == 1) said += byte;
  int status = 0;
  ::waitpid(child.process, &status, 0);
  ::close(child.output);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) said += "FAILED\n";
  return said;
}

book::BookFiles BookIn(const std::string& folder) {
  const book::BookFiles files = book::ReadBook(folder);
  book::RandomNames names;
  names.Learn(files, "_xml/aTitle1.xml");
  return names.Renamed(files);
}

int Fail(const Plan& plan, const std::string& said) {
  std::cout << said << "Seed " << plan.seed << ", " << plan.operations << " operations: FAILED\n";
  return 1;
}

void BeginAnew(const Plan& plan) {
  for (const char* folder : {"/Data", "/state", "/tmp"}) {
    fs::remove_all(plan.work + folder);
    fs::create_directories(plan.work + folder);
  }
}

int Drive(const Plan& plan) {
  fs::remove_all(plan.work);
  BeginAnew(plan);
  for (int index = 0; index < plan.operations; ++index) {
    const std::string said = RunAndKill(Start(plan, std::to_string(index)));
    if (said != "DONE\n") return Fail(plan, said + "operation " + std::to_string(index) + "\n");
    fs::remove_all(plan.work + "/tmp");
    fs::create_directories(plan.work + "/tmp");
  }
  std::string said = RunToTheEnd(Start(plan, std::to_string(plan.operations)));
  if (!said.empty()) return Fail(plan, said);
  const book::BookFiles broken = BookIn(plan.work + "/Data");
  const bool recordIsGone = fs::is_empty(plan.work + "/state/recovery");
  BeginAnew(plan);
  said = RunToTheEnd(Start(plan, "all"));
  if (!said.empty()) return Fail(plan, said);
  const std::string difference = book::Difference(BookIn(plan.work + "/Data"), broken);
  if (!difference.empty()) return Fail(plan, "The books differ:\n" + difference);
  if (!recordIsGone) return Fail(plan, "The record is there still.\n");
  std::cout << "Seed " << plan.seed << ": killed after each of " << plan.operations
            << " operations; everything came back, and the book is the same.\n";
  fs::remove_all(plan.work);
  return 0;
}

}  // namespace
}  // namespace kill_test

// The platform without a screen says at each showing of a window what it can't do.
static void DropWords(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg || type == QtCriticalMsg) std::cerr << text.toStdString() << '\n';
}

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cout << "kill_test WORK OPERATIONS [SEED]\n";
    return 2;
  }
  kill_test::Plan plan{.work = argv[1], .operations = std::atoi(argv[2])};
  plan.seed = argc > 3 ? static_cast<unsigned>(std::strtoul(argv[3], nullptr, 10)) : 1;
  if (argc < 5) return kill_test::Drive(plan);
  const std::string role = argv[4];
  qInstallMessageHandler(DropWords);
  platform::Application application(argc, argv);
  if (role == "all") kill_test::DoAll(plan);
  kill_test::DoOne(plan, std::atoi(role.c_str()));
}
