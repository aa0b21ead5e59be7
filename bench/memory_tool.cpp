// bench_memory_tool FOLDER INPUT FILE: opens the file of the input folder in the workbench, with
// the program in the empty folder, and prints the highest memory once all of it is laid out.
#include <filesystem>
#include <string>

#include "bench/bare_edit.h"
#include "bench/desk.h"
#include "bench/peak_memory.h"
#include "bench/reported.h"
#include "platform/windows/application.h"

int main(int argc, char** argv) {
  const platform::Application application(argc, argv);
  if (argc != 4) return 2;
  return bench::Reported([&] {
    const std::string folder = argv[1];
    std::filesystem::create_directories(folder + "/program");
    std::filesystem::create_directories(folder + "/project");
    bench::Desk desk(folder + "/program");
    desk.OpenWorkbench(folder + "/project", argv[2]);
    desk.OpenText(argv[3]);
    bench::LayOut(testing_support::Robot::FindAs<QTextEdit>("Form3", "matn"));
    return bench::PrintPeakMemory();
  });
}
