// The real windows at work in a program folder of their own, on the host's own file system.
#pragma once

#include <memory>
#include <string>

#include "core/machine.h"
#include "core/project_window.h"
#include "editor/paragraph_window.h"
#include "platform/files/record_folder.h"
#include "platform/random.h"
#include "tests/support/robot.h"
#include "workbench/format_window.h"

namespace bench {

class Desk {
 public:
  // In an existing empty folder of the host: the delivered files are copied into it, and the
  // project window is shown.
  // A record of what is filed is kept, as in the program, unless `keepsRecords` says no.
  explicit Desk(const std::string& hostFolder, bool keepsRecords = true);

  // Opens the workbench on the first collection of a project in a folder that exists. Its input
  // texts are those of `inputFolder`; empty: the field stays as it is.
  void OpenWorkbench(const std::string& projectFolder, const std::string& inputFolder = {});
  // Clicks the input text in the list and lets the windows settle.
  void OpenText(const std::string& fileName);

 private:
  std::string folder_;
  platform::Random random_;
  std::unique_ptr<platform::RecordFolder> records_;
  core::Machine machine_;

 public:
  core::Form1 form1;
  workbench::Form3 form3;
  editor::Form6 form6;
  testing_support::Robot robot;
};

}  // namespace bench
