// The desk of an editor who works in the project window.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "platform/text/text.h"
#include "tests/support/desk.h"
#include "tests/support/known_texts.h"

namespace testing_support {

class ProjectDesk : public Desk {
 public:
  using Desk::Desk;

  // Shows the project window on a project folder that is there and empty, named in full.
  void OpenProject();
  // Shows it and presses Next, so that the folders are made and the workbench is open.
  void OpenWorkbench();
  // A collection file in the project's folder Data, as a build leaves it.
  void MarkBuilt(const std::string& key) const;

  // In the process's current folder.
  std::string CurrentHostPath(const std::string& below) const;
  void WriteCurrent(const std::string& below, std::string_view bytes) const;
  // A path of the program folder as the log quotes it.
  std::string ToolPath(platform::TextView below = {}) const;
  std::string SecondLog() const;
  // The log's entries since the last call.
  std::vector<std::string> NewLines();
  // How many entries of the log are this line.
  int LoggedTimes(const std::string& line) const;
  // Texts of the boxes since the last call.
  std::vector<std::string> BoxTexts();

  // What a text field of the project window shows.
  static std::string Field(const QString& field);
  // Types into a field and goes on to the next one with the Tab key.
  static void Fill(const QString& field, const QString& text);
  void FillWithPath(const QString& field, platform::TextView below) const;
  // What the list of waiting collections shows: its entries, their keys, and the selected line.
  static std::vector<std::string> Waiting();
  static std::string WaitingKeys();
  static int SelectedWaiting();

  // Opens a folder inside the one that is open in a chooser.
  static void OpenFolder(const QString& chooser, const QString& name);
  // Presses a button of the project window and, in the folder chooser that comes up, opens the
  // folders one by one and confirms.
  void ChooseFolder(const QString& button, const std::vector<QString>& folders);
  // The same with the file chooser; no file is selected where `file` is empty.
  void ChooseFile(const QString& button, const std::vector<QString>& folders, const QString& file);
  // What a file chooser offers.
  static std::vector<std::string> OfferedFiles();

 private:
  std::size_t linesTaken_ = 0;
};

}  // namespace testing_support
