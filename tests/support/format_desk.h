// The desk of an editor who works in the format window, with input texts of the test's own.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "platform/text/text.h"
#include "tests/support/desk.h"

namespace testing_support {

class FormatDesk : public Desk {
 public:
  using Desk::Desk;

  // An input text in the folder Texts of the program folder, in the machine's code page.
  void AddText(const std::string& name, platform::TextView text) const;
  void AddBytes(const std::string& name, std::string_view bytes) const;
  // Shows the project window, names Texts as the input folder and presses Next. Boxes that come up
  // stay with the robot.
  void Open();
  // The same with one input text, which is then on the screen.
  void OpenOn(platform::TextView text);
  // The same with five rows filed: 0 identity, 1 "Head" with "Text", 2 opens the main title "Main",
  // 3 "Other" with `text`, 4 closes it.
  void OpenOnFiveRows(const QString& text);
  // A click on an input text.
  static void OpenBook(const QString& name) { Robot::ClickLine("Form3", "books", name); }

  // Selects a passage of the text and presses a function key of the text box.
  static void Mark(int functionKey, const QString& passage);
  // Selects a passage (nothing: an empty one) and clicks Com(command).
  static void Command(int command, const QString& passage = {});
  // A heading with its text, by the keys F2 and F3.
  static void FileHeading(const QString& title, const QString& text);

  // Opens row `row` of the entry list, does `act` with the paragraph window, and closes that by its
  // own button if it is still there.
  void InEntry(int row, const std::function<void()>& act);
  // The same, and keeps the changes.
  void Edit(int row, const std::function<void()>& act);

  // What a control of the format window shows, in UTF-8; of a text box of many paragraphs its plain
  // text with "\n" between them.
  static std::string Shown(const QString& control);
  static std::vector<std::string> Lines(const QString& list);
  // What is selected in the text, and where the caret stands.
  static std::string Selected();
  static int Caret();
  static void Repaint();

  // A file of the book in UTF-8, without the mark that it must begin with.
  std::string Book(const std::string& below) const;
  // The names in a folder of the book that end so.
  std::vector<std::string> BookNames(const std::string& place, const std::string& end) const;
  // The page whose title is `title`; an error if there isn't exactly one.
  std::string Page(const std::string& title) const;
  // The lines of the collection file, random names written as "S".
  std::string Collection(const std::string& key) const;
  // The same for one gallery or other file of the book.
  std::string Unnamed(const std::string& below) const;

  // Lines "Error occurred ..." of the log, whatever their number.
  int AllLoggedFailures() const;
  int LoggedTimes(const std::string& wanted) const;
};

// A text in UTF-8, to be compared with what is shown.
std::string Utf8(platform::TextView text);

}  // namespace testing_support
