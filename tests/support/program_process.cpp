#include "tests/support/program_process.h"

#include <QMessageBox>
#include <filesystem>
#include <iostream>

namespace testing_support {
namespace {

Desk* deskOfThisProcess = nullptr;

// Runs at the process's end, however that came about.
void ReportAndTidyUp() {
  std::cerr << deskOfThisProcess->Log() << "END OF LOG\n";
  std::filesystem::remove_all(deskOfThisProcess->folder.HostPath());
}

void ReportBox(QWidget& box) {
  const auto& shown = dynamic_cast<const QMessageBox&>(box);
  std::cerr << "BOX " << shown.windowTitle().toStdString() << ": " << shown.text().toStdString()
            << ".\n";
}

}  // namespace

void ReportEndOf(Desk& desk) {
  deskOfThisProcess = &desk;
  std::at_quick_exit(ReportAndTidyUp);
  desk.robot.onBox = ReportBox;
}

void ReportLoopEnd(int status) {
  std::cerr << "The loop has ended.\n";
  for (const char* window : {"Form1", "Form3"}) {
    const QWidget* found = Robot::FindWindow(window);
    if (found != nullptr && found->isVisible()) std::cerr << window << " is still there.\n";
  }
  std::quick_exit(status);
}

int BoxesIn(const std::string& report) {
  int boxes = 0;
  for (std::size_t at = report.find("BOX "); at != std::string::npos;
       at = report.find("BOX ", at + 1)) {
    ++boxes;
  }
  return boxes;
}

}  // namespace testing_support
