// What a tool that was killed left beside the files that it was about to replace.
#pragma once

#include <dirent.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/files/host_descriptor.h"

namespace platform {

// What the names of files that are to replace others end in; none of them is a file of anybody's.
inline constexpr std::string_view kBesideEnding = ".zorvand-new";

struct CloseHostFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using HostFolder = std::unique_ptr<DIR, CloseHostFolder>;

// Marks a file just made as that of a living tool. False if it isn't at its path any more.
[[nodiscard]] bool LockAsAlive(const Descriptor& made, const std::string& hostPath);
// The same for a file that is only to be used under its lock: no error where it is locked and at
// its path, EWOULDBLOCK where a living tool has it or it isn't there any more.
HostError LockAsOwner(const Descriptor& file, const std::string& hostPath);
// Takes such a file away, whatever stands there, unless its tool is seen to live. False if it is
// still there; errno says why.
[[nodiscard]] bool TakeDead(const std::string& hostPath);
// Takes away all of them in a folder (a path with its final "/") whose tools are seen to be dead. A
// host without locks shows neither, and there they stay. A folder is listed again only when there
// were as many calls for it as it has thousands of names, so that replacing many files in a large
// one isn't dearer than the replacing.
void SweepDead(const std::string& hostFolder);

}  // namespace platform
