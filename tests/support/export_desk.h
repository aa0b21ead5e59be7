// The desk of an editor who exports a finished project.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/project_desk.h"

namespace testing_support {

// What an export script in good order holds: CR LF, and one empty line after each section.
struct ScriptSections {
  std::vector<std::string> makeFolder;
  std::vector<std::string> copyFolder;
  std::vector<std::string> copyFile;
};
std::string ScriptOf(const ScriptSections& sections);

class ExportDesk : public ProjectDesk {
 public:
  using ProjectDesk::ProjectDesk;

  // Shows the project window on a small project in "Data" of the program folder, with `script` as
  // the export script, and a viewer beside it.
  void OpenProject(const std::string& script);
  // Presses the export button and gives the texts of the boxes.
  std::vector<std::string> Export();
  // Everything below a folder of the program folder, files with their bytes and folders as "/".
  std::map<std::string, std::string> Tree(const std::string& below) const;
  // Of what the program folder holds, only what is not beneath the folder `below`, and neither
  // logs.
  std::map<std::string, std::string> TreeAround(const std::string& below) const;
};

// A page of the book's own format, in UTF-16 with its mark.
std::string PageBytes(platform::TextView page);

}  // namespace testing_support
