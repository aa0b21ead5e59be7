#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/machine.h"
#include "core/project_window.h"
#include "editor/paragraph_window.h"
#include "export/export_pass.h"
#include "platform/files/file_system.h"
#include "platform/files/record_folder.h"
#include "platform/random.h"
#include "platform/text/text.h"
#include "support/help_window.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/faulty_records.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/recorded_launcher.h"
#include "tests/support/robot.h"
#include "tests/support/temporary_folder.h"
#include "workbench/format_window.h"

namespace testing_support {

// One editor's desk for one test: a program folder of its own with the delivered files, and the
// real windows, wired as in the program. All is gone when the test ends. The process's current
// folder is another one, so that what belongs beside the program can't be found by luck.
class Desk {
 public:
  // Records lie in a folder of the test's own unless it names another.
  explicit Desk(bool withResources = true, const platform::Text& recordsPath = {});
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // Shows the project window.
  void Start();
  // Presses Next, with boxes answered by the robot.
  void PressNext();

  // The path of something in the program folder, as the tool writes it.
  platform::Text Path(platform::TextView below = {}) const;
  // In the program folder ("Data/TXT/x.htm"), made and read without the file system under test.
  std::string HostPath(const std::string& below) const;
  std::string Read(const std::string& below) const;
  void Write(const std::string& below, std::string_view bytes) const;
  void MakeFolders(const std::string& below) const;
  bool Has(const std::string& below) const;
  // The names in a folder, sorted.
  std::vector<std::string> Names(const std::string& below) const;

  // The first log so far, whole and as its entries without their date.
  std::string Log() const;
  std::vector<std::string> LogLines() const;
  // How often the log holds the line of this failure number.
  int LoggedFailures(int number) const;

  TemporaryFolder folder;
  FaultyFileSystem files;
  std::unique_ptr<platform::RecordFolder> hostRecords;
  FaultyRecords records;
  FixedClock clock;
  platform::Random random;
  core::Machine machine;
  core::Form1 form1;
  workbench::Form3 form3;
  editor::Form6 form6;
  support::Form4 form4;
  RecordedLauncher launcher;
  exporting::ExportPass exportPass;
  Robot robot;

 private:
  std::filesystem::path currentBefore_;
};

}  // namespace testing_support
