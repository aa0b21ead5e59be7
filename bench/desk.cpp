#include "bench/desk.h"

#include <filesystem>
#include <stdexcept>

#include "platform/clock.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"

namespace bench {

using testing_support::Robot;
namespace fs = std::filesystem;

Desk::Desk(const std::string& hostFolder, bool keepsRecords)
    : folder_(hostFolder),
      records_(platform::HostRecordFolder(platform::ToolPath(hostFolder + "/recovery"))),
      machine_{platform::HostFileSystem(),
               platform::HostClock(),
               random_,
               platform::ToolPath(hostFolder),
               platform::ToolPath(hostFolder + "/ZVL.log"),
               keepsRecords ? records_.get() : nullptr},
      form1(machine_),
      form3(form1),
      form6(form3) {
  fs::copy(ZORVAND_SOURCE_DIR "/Resources", folder_ + "/Resources", fs::copy_options::recursive);
  form3.Wire(form6);
  form1.Wire({.workbench = &form3, .paragraph = &form6});
  form1.Show();
  Robot::Settle();
}

void Desk::OpenWorkbench(const std::string& projectFolder, const std::string& inputFolder) {
  form1.idir.SetText(platform::ToolPath(projectFolder));
  if (!inputFolder.empty()) form1.Text1.SetText(platform::ToolPath(inputFolder));
  Robot::Click("Form1", "Command3");
  if (!robot.TakeBoxes().empty()) throw std::runtime_error("Next doesn't open the workbench");
}

void Desk::OpenText(const std::string& fileName) {
  Robot::ClickLine("Form3", "books", QString::fromStdString(fileName));
  if (form3.matn.TextLength() == 0) throw std::runtime_error(fileName + " wasn't opened");
}

}  // namespace bench
