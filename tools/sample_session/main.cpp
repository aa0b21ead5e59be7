// sample_session [--dark] RESOURCES OUTPUT: makes the sample book in the real windows, as an editor
// would; with --dark in the colours of a dark desktop. Where ZORVAND_AT_BOX names a program, that
// runs while a message box stands, with the box's text as its argument.
// sample_session --compare KNOWN DIFFERENCES RESOURCES OUTPUT: fails if a picture isn't as in
// KNOWN. sample_session --keep KNOWN RESOURCES OUTPUT: its pictures are those of KNOWN from now on.
#include <QApplication>
#include <QPalette>
#include <QProcess>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "platform/windows/application.h"
#include "tests/support/known_pictures.h"
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

struct Wish {
  bool dark = false;
  std::string compareWith;  // a folder of known pictures
  std::string differences;
  std::string keepIn;
  std::string resources;
  std::string output;
};

// Throws std::invalid_argument where the arguments aren't those of a session.
Wish WishOf(std::vector<std::string> arguments) {
  Wish wish;
  const auto next = [&] {
    if (arguments.empty()) throw std::invalid_argument("an argument is missing");
    std::string first = arguments.front();
    arguments.erase(arguments.begin());
    return first;
  };
  while (!arguments.empty() && arguments.front().starts_with("--")) {
    const std::string option = next();
    if (option == "--dark") {
      wish.dark = true;
    } else if (option == "--compare") {
      wish.compareWith = next();
      wish.differences = next();
    } else if (option == "--keep") {
      wish.keepIn = next();
    } else {
      throw std::invalid_argument("there is no option " + option);
    }
  }
  wish.resources = next();
  wish.output = next();
  if (!arguments.empty()) throw std::invalid_argument("too many arguments");
  return wish;
}

void Work(const Wish& wish) {
  sample::Session session(wish.resources, wish.output);
  if (const char* const program = std::getenv("ZORVAND_AT_BOX")) {
    session.atBox = [program](const std::string& text) { RunAtBox(program, text); };
  }
  session.Run();
  std::cout << "The sample book is in " << wish.output << "/program/Data and exported to "
            << wish.output << "/program/Export, " << session.PicturesTaken()
            << " pictures of the windows are in " << wish.output << "/pictures\n";
}

void LookAtPictures(const Wish& wish) {
  const std::string made = wish.output + "/pictures";
  if (!wish.keepIn.empty()) testing_support::KeepPictures(made, wish.keepIn);
  if (wish.compareWith.empty()) return;
  const auto lines = testing_support::ComparePictures(wish.compareWith, made, wish.differences);
  for (const std::string& line : lines) std::cerr << line << '\n';
  if (!lines.empty()) throw std::runtime_error("Pictures aren't those that are known.");
}

int Run(int argc, char** argv) {
  int status = 0;
  platform::CatchingFailure(
      [&] {
        const Wish wish = WishOf({argv + 1, argv + argc});
        if (wish.dark) QApplication::setPalette(DarkDesktop());
        Work(wish);
        LookAtPictures(wish);
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
  QApplication::setCursorFlashTime(0);  // a caret that blinks makes every picture two
  return Run(argc, argv);
}
