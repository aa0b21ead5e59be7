// One editor's very long day in the real windows, in one process.
#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/machine.h"
#include "core/project_window.h"
#include "editor/paragraph_window.h"
#include "platform/random.h"
#include "support/help_window.h"
#include "tests/support/robot.h"
#include "tools/soak/figures.h"
#include "workbench/format_window.h"

namespace soak {

struct Plan {
  int collections = 30;  // a multiple of three, at most 30
  int entries = 1000;    // of each
  int openings = 200;    // of each window
};

class Soak {
 public:
  // Works in `output`, an empty folder, with the delivered files copied into it.
  Soak(const std::filesystem::path& resources, std::filesystem::path output, Plan plan);

  // Prints a line for each step and a verdict; true if nothing grows. Throws std::runtime_error at
  // the first thing that is not as it should be.
  bool Run();

 private:
  void SetUpProject();
  void OpenWorkbench();
  void FileEntries(int count);
  void Build();
  void MakeCollections(int count);
  // In ten parts, a figure for each.
  void OpenOften(const std::string& window, const std::function<void()>& open);
  void OpenWindowsOfProject();
  void OpenEntries();
  std::vector<Figure> Measured(const std::string& step, int parts,
                               const std::function<void(int part)>& work);
  void Judge(const std::vector<Figure>& figures, std::size_t warm);

  std::filesystem::path output_;
  Plan plan_;
  std::string grew_;
  testing_support::Robot robot_;
  platform::Random random_;
  core::Machine machine_;
  core::Form1 form1_;
  workbench::Form3 form3_;
  editor::Form6 form6_;
  support::Form4 form4_;
};

}  // namespace soak
