#include "tests/support/project_desk.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace testing_support {
namespace {

namespace fs = std::filesystem;

QComboBox& Selector() { return Robot::FindAs<QComboBox>("Form1", "dataName"); }

}  // namespace

void ProjectDesk::OpenProject() {
  MakeFolders("Data");
  Start();
  FillWithPath("idir", u"Data");
}

void ProjectDesk::OpenWorkbench() {
  Start();
  PressNext();
}

void ProjectDesk::MarkBuilt(const std::string& key) const {
  MakeFolders("Data/_xml");
  Write("Data/_xml/" + key.substr(0, 1) + "Title" + key.substr(1) + ".xml", "built");
}

std::string ProjectDesk::CurrentHostPath(const std::string& below) const {
  return folder.HostPath("current/" + below);
}

void ProjectDesk::WriteCurrent(const std::string& below, std::string_view bytes) const {
  const fs::path path = CurrentHostPath(below);
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("can't write " + below);
}

std::string ProjectDesk::ToolPath(platform::TextView below) const {
  return platform::ToUtf8(Path(below));
}

std::string ProjectDesk::SecondLog() const { return folder.Read(u"state\\ZVL.log"); }

std::vector<std::string> ProjectDesk::NewLines() {
  std::vector<std::string> lines = LogLines();
  const std::size_t taken = std::min(std::exchange(linesTaken_, lines.size()), lines.size());
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(taken));
  return lines;
}

int ProjectDesk::LoggedTimes(const std::string& line) const {
  const auto lines = LogLines();
  return static_cast<int>(std::ranges::count(lines, line));
}

std::vector<std::string> ProjectDesk::BoxTexts() {
  std::vector<std::string> texts;
  for (const Robot::Box& box : robot.TakeBoxes()) texts.push_back(box.text.toStdString());
  return texts;
}

std::string ProjectDesk::Field(const QString& field) {
  return Robot::FindAs<QLineEdit>("Form1", field).text().toStdString();
}

void ProjectDesk::Fill(const QString& field, const QString& text) {
  Robot::Type("Form1", field, text);
  Robot::PressKey("Form1", field, Qt::Key_Tab);
}

void ProjectDesk::FillWithPath(const QString& field, platform::TextView below) const {
  Fill(field, QString::fromStdU16String(Path(below)));
}

std::vector<std::string> ProjectDesk::Waiting() {
  const QComboBox& selector = Selector();
  std::vector<std::string> entries(static_cast<std::size_t>(selector.count()));
  for (int i = 0; i < selector.count(); ++i) {
    entries[static_cast<std::size_t>(i)] = selector.itemText(i).toStdString();
  }
  return entries;
}

std::string ProjectDesk::WaitingKeys() {
  std::string keys;
  for (const std::string& entry : Waiting()) {
    const std::size_t open = entry.find('(') + 1;
    keys += (keys.empty() ? "" : " ") + entry.substr(open, entry.find(')') - open);
  }
  return keys;
}

int ProjectDesk::SelectedWaiting() { return Selector().currentIndex(); }

void ProjectDesk::OpenFolder(const QString& chooser, const QString& name) {
  Robot::DoubleClickLine(chooser, "Dir1", name);
}

void ProjectDesk::ChooseFolder(const QString& button, const std::vector<QString>& folders) {
  robot.WhenShown("Form2", [folders] {
    for (const QString& name : folders) OpenFolder("Form2", name);
    Robot::Click("Form2", "btn(0)");
  });
  Robot::Click("Form1", button);
}

void ProjectDesk::ChooseFile(const QString& button, const std::vector<QString>& folders,
                             const QString& file) {
  robot.WhenShown("Form5", [folders, file] {
    for (const QString& name : folders) OpenFolder("Form5", name);
    if (!file.isEmpty()) Robot::ClickLine("Form5", "File1", file);
    Robot::Click("Form5", "btn(0)");
  });
  Robot::Click("Form1", button);
}

std::vector<std::string> ProjectDesk::OfferedFiles() { return Robot::Lines("Form5", "File1"); }

}  // namespace testing_support
