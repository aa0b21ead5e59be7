#include "tests/support/desk.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/files/paths.h"

namespace testing_support {
namespace {

namespace fs = std::filesystem;

// Where the delivered files lie in the source tree.
const fs::path kResources = ZORVAND_SOURCE_DIR "/Resources";

core::Machine MachineOf(Desk& desk) {
  return {desk.files,
          desk.clock,
          desk.random,
          desk.folder.Path(u"program"),
          desk.folder.Path(u"state\\ZVL.log"),
          &desk.records};
}

}  // namespace

Desk::Desk(bool withResources, const platform::Text& recordsPath)
    : files(platform::HostFileSystem()),
      hostRecords(platform::HostRecordFolder(recordsPath.empty() ? folder.Path(u"state\\recovery")
                                                                 : recordsPath)),
      records(*hostRecords),
      machine(MachineOf(*this)),
      form1(machine),
      form3(form1),
      form6(form3),
      form4(form1),
      exportPass(form1, launcher),
      currentBefore_(fs::current_path()) {
  for (const char16_t* name : {u"program", u"state", u"current"}) folder.MakeFolder(name);
  fs::current_path(folder.HostPath("current"));
  if (withResources) fs::copy(kResources, HostPath("Resources"), fs::copy_options::recursive);
  form3.Wire(form6);
  form1.Wire({.workbench = &form3, .paragraph = &form6, .help = &form4, .exporting = &exportPass});
}

Desk::~Desk() { fs::current_path(currentBefore_); }

void Desk::Start() {
  form1.Show();
  Robot::Settle();
}

void Desk::PressNext() { Robot::Click("Form1", "Command3"); }

platform::Text Desk::Path(platform::TextView below) const {
  const platform::Text program = folder.Path(u"program");
  return below.empty() ? program : (program + u"\\").append(below);
}

std::string Desk::HostPath(const std::string& below) const {
  return folder.HostPath("program/" + below);
}

std::string Desk::Read(const std::string& below) const {
  std::ifstream file(HostPath(below), std::ios::binary);
  if (!file) throw std::runtime_error("no file " + below);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Desk::Write(const std::string& below, std::string_view bytes) const {
  std::ofstream file(HostPath(below), std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("can't write " + below);
}

void Desk::MakeFolders(const std::string& below) const { fs::create_directories(HostPath(below)); }

bool Desk::Has(const std::string& below) const { return fs::exists(HostPath(below)); }

std::vector<std::string> Desk::Names(const std::string& below) const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(HostPath(below))) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

std::string Desk::Log() const { return Has("ZVL.txt") ? Read("ZVL.txt") : std::string(); }

std::vector<std::string> Desk::LogLines() const {
  const std::string date = platform::ToUtf8(clock.Date()) + ": ";
  const std::string log = Log();
  std::vector<std::string> lines;
  for (std::size_t at = log.find(date); at != std::string::npos;) {
    const std::size_t next = log.find(date, at + 1);
    const std::size_t from = at + date.size();
    std::string line = log.substr(from, next == std::string::npos ? next : next - from);
    if (line.ends_with("\r\n")) line.resize(line.size() - 2);
    lines.push_back(std::move(line));
    at = next;
  }
  return lines;
}

int Desk::LoggedFailures(int number) const {
  const std::string start = "Error occurred => Error number is " + std::to_string(number) + " (";
  const auto lines = LogLines();
  return static_cast<int>(std::ranges::count_if(
      lines, [&](const std::string& line) { return line.starts_with(start); }));
}

}  // namespace testing_support
