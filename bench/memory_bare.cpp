// bench_memory_bare FILE: opens the file in a bare QTextEdit and prints the highest memory once all
// of it is laid out.
#include <QApplication>
#include <QString>
#include <exception>
#include <iostream>

#include "bench/bare_edit.h"
#include "bench/peak_memory.h"
#include "bench/work_folder.h"
#include "platform/encoding.h"
#include "platform/qt/conversions.h"

namespace {

QString TextOf(const char* path) {
  return platform::ToQString(platform::DecodeMachineCodePage(bench::ReadFile(path)));
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 2) return 2;
  try {
    bench::BareEdit edit;
    edit.setPlainText(TextOf(argv[1]));
    bench::LayOut(edit);
    return bench::PrintPeakMemory();
  } catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
}
