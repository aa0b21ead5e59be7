// bench_memory_bare FILE: opens the file in a bare QTextEdit and prints the highest memory once all
// of it is laid out.
#include <QApplication>
#include <QString>

#include "bench/bare_edit.h"
#include "bench/peak_memory.h"
#include "bench/reported.h"
#include "bench/work_folder.h"
#include "platform/text/code_page.h"
#include "platform/text/encoding.h"

namespace {

// Straight from the bytes, so that nothing but them and the text is there.
QString TextOf(const char* path) {
  const auto& letters = platform::FindCodePage(platform::kMachineCodePage)->Characters();
  const std::string bytes = bench::ReadFile(path);
  QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
  QChar* to = text.data();
  for (const char byte : bytes) *to++ = letters[static_cast<unsigned char>(byte)];
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 2) return 2;
  return bench::Reported([&] {
    bench::BareEdit edit;
    edit.setPlainText(TextOf(argv[1]));
    bench::LayOut(edit);
    return bench::PrintPeakMemory();
  });
}
