// sample_session [--dark] RESOURCES OUTPUT: makes the sample book in the real windows, as an editor
// would; with --dark in the colours of a dark desktop. Where ZORVAND_AT_BOX names a program, that
// runs while a message box stands, with the box's text as its argument.
#include <QApplication>
#include <QPalette>
#include <QProcess>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "platform/windows/application.h"
#include "tools/sample_session/session.h"

namespace {

// As dark desktops hand it to the toolkit.
QPalette DarkDesktop() {
  const QColor window(0x2d, 0x2d, 0x2d);
  const QColor field(0x1e, 0x1e, 0x1e);
  const QColor words(0xee, 0xee, 0xee);
  QPalette palette(words, window, window.lighter(150), window.darker(160), window.darker(120),
                   words, Qt::white, field, window);
  palette.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xa8));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::ToolTipText, words);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x82, 0x82, 0x82));
  }
  return palette;
}

void RunAtBox(const char* program, const std::string& text) {
  const int status = QProcess::execute(QString::fromUtf8(program), {QString::fromStdString(text)});
  if (status != 0) throw std::runtime_error("the program that runs at a box has failed");
}

int Run(const char* resources, const char* output) {
  int status = 0;
  platform::CatchingFailure(
      [&] {
        sample::Session session(resources, output);
        if (const char* const program = std::getenv("ZORVAND_AT_BOX")) {
          session.atBox = [program](const std::string& text) { RunAtBox(program, text); };
        }
        session.Run();
        std::cout << "The sample book is in " << output << "/program/Data and exported to "
                  << output << "/program/Export, " << session.PicturesTaken()
                  << " pictures of the windows are in " << output << "/pictures\n";
      },
      [&](const platform::Text& description) {
        std::cerr << platform::ToUtf8(description) << '\n';
        status = 1;
      });
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const platform::Application application(argc, argv);
  const bool dark = argc > 1 && std::string_view(argv[1]) == "--dark";
  const int first = dark ? 2 : 1;
  if (argc != first + 2) {
    std::cerr << "usage: sample_session [--dark] RESOURCES OUTPUT\n";
    return 2;
  }
  if (dark) QApplication::setPalette(DarkDesktop());
  return Run(argv[first], argv[first + 1]);
}
