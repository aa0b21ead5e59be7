// A file's new content put over the old one, where its folder takes no new names.
#pragma once

#include "platform/files/host_descriptor.h"
#include "platform/text/text.h"

namespace platform {

// Whether the host says by this error that a folder's names can't be changed. It needn't say
// anything of its files.
[[nodiscard]] bool IsShut(int error);

// A file without a name, in the folder for such; gone when it is closed. Failure "Can't write
// <path>: ..." where there is no room for one.
Descriptor MakeUnnamed(TextView path);

// Copies the whole content of one open file into another one, each from where it is at.
HostError CopyContent(const Descriptor& from, const Descriptor& to);

// Gives the file at `hostPath` the whole of another one's content, and puts that on the disk
// itself. Room for it is taken first. Failure where that doesn't work out; the file then has its
// old content again, or the description says that it hasn't. A power cut meanwhile can leave some
// of both.
void ReplaceInPlace(const Descriptor& content, const std::string& hostPath, TextView path);

}  // namespace platform
