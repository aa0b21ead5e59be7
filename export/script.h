// The export script: which folders and files an export is made of, as its text says.
#pragma once

#include <vector>

#include "platform/text/text.h"

namespace exporting {

// The lines of the three sections, as they stand in the file. Their order in the file doesn't
// matter; they are always carried out in the order shown here.
struct ExportScript {
  std::vector<platform::Text> makeFolder;
  std::vector<platform::Text> copyFolder;
  std::vector<platform::Text> copyFile;
};

// Cuts the sections out of the script's text. A section runs from the first occurrence of its
// header to the first "[" after it; the header's own line and the last piece before that "[" are
// no lines of it, so a section has to end with one empty line. Failure if a header or the "["
// after a section is missing.
ExportScript CutScript(platform::TextView text);

// The two sides of a line "source => target", without the blanks around them.
struct CopyLine {
  platform::Text source;
  platform::Text target;
};

// Failure if there is no "=>".
CopyLine SplitCopyLine(platform::TextView line);

// The target of a file without the word "root", which stands for the export's own folder.
platform::Text WithoutRootWord(platform::TextView target);

}  // namespace exporting
