// Paths as the tool writes them, "C:\folder\name", against paths as the host takes them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text/text.h"

namespace platform {

// The host's own bytes for a path. Without drive letters "C:" is the root of the file system, "\"
// and "/" both separate, a path without a drive starts at the process's current folder and one with
// a leading "\" at the root. Failure for another drive, an embedded NUL, a lone surrogate that
// stands for no byte (see ToolPath) and an empty path.
std::string HostPath(TextView path);
// The other way: absolute, with backslashes. Bytes that are no UTF-8 come back as they were through
// HostPath (each stands as U+DC80 + its low seven bits meanwhile).
Text ToolPath(std::string_view hostPath);
// The same for a single name of a folder's listing.
Text ToolName(std::string_view hostName);

// A path as it is typed on this host or pasted from a file manager ("/home/ali", "~/texts",
// "file:///home/ali"), as the tool writes it; any other text stays as it is. On a host with drive
// letters every text does.
Text TypedPath(TextView typed);

// A final "\" for a text of `shortest` or more characters that has none; shorter texts stay as they
// are.
Text DoSlash(TextView path, std::size_t shortest = 2);

// The folder that a path leads to, by its own name: without links, "." and "..", and without a
// final
// "\". Nothing where no folder is.
std::optional<Text> RealFolder(TextView path);

// The folder of the running program, without a final "\".
Text ProgramFolder();
// The second log: "C:\ZVL.log" on a host with drive letters, else ZVL.log in
// ~/.local/state/zorvand.
Text SystemLogPath();
// Makes the folders in which that log lies, for their user alone. Whether it worked shows when
// something is written there.
void MakeStateFolder();
// The folder of the records of unfinished work, beside that log.
Text RecordsPath();

}  // namespace platform
