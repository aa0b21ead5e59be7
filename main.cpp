// Makes the windows, wires them, runs.
#include "core/machine.h"
#include "core/project_window.h"
#include "editor/paragraph_window.h"
#include "export/export_pass.h"
#include "platform/clock.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "platform/files/record_folder.h"
#include "platform/launcher.h"
#include "platform/random.h"
#include "platform/windows/application.h"
#include "support/help_window.h"
#include "workbench/format_window.h"

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  platform::Random random;
  platform::MakeStateFolder();
  const auto records = platform::HostRecordFolder(platform::RecordsPath());
  core::Machine machine{platform::HostFileSystem(), platform::HostClock(),     random,
                        platform::ProgramFolder(),  platform::SystemLogPath(), records.get()};
  core::Form1 form1(machine);
  workbench::Form3 form3(form1);
  editor::Form6 form6(form3);
  form3.Wire(form6);
  support::Form4 form4(form1);
  exporting::ExportPass exportPass(form1, platform::HostLauncher());
  core::Ports ports;
  ports.workbench = &form3;
  ports.paragraph = &form6;
  ports.help = &form4;
  ports.exporting = &exportPass;
  form1.Wire(ports);
  return application.Run([&] { form1.Show(); });
}
