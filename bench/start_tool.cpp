// bench_start_tool: starts as the tool does, and ends once the project window is painted.
#include <QCoreApplication>

#include "bench/first_paint.h"
#include "core/machine.h"
#include "core/project_window.h"
#include "editor/paragraph_window.h"
#include "platform/clock.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "platform/random.h"
#include "platform/windows/application.h"
#include "support/help_window.h"

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  bench::EndAtFirstPaint watch;
  QCoreApplication::instance()->installEventFilter(&watch);
  platform::Random random;
  platform::MakeStateFolder();
  core::Machine machine{platform::HostFileSystem(), platform::HostClock(), random,
                        platform::ProgramFolder(), platform::SystemLogPath()};
  core::Form1 form1(machine);
  workbench::Form3 form3(form1);
  editor::Form6 form6(form3);
  form3.Wire(form6);
  support::Form4 form4(form1);
  core::Ports ports;
  ports.workbench = &form3;
  ports.help = &form4;
  ports.paragraph = &form6;
  form1.Wire(ports);
  return application.Run([&] { form1.Show(); });
}
