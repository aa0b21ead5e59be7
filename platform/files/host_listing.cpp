#include "platform/files/host_listing.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <tuple>
#include <utility>

#include "platform/files/dead_files.h"
#include "platform/files/host_descriptor.h"
#include "platform/files/paths.h"

namespace platform {
namespace {

struct Listed {
  Text folded;
  Text name;
};

// Neither the folder itself and its parent, nor a name that no path of the tool can hold, nor what
// a crash left of a file that was about to be replaced.
bool IsNamed(std::string_view name) {
  return name != "." && name != ".." && name.find('\\') == std::string_view::npos &&
         !name.ends_with(kBesideEnding);
}

// The host is asked only where the listing itself doesn't say; links count as what they lead to.
bool IsOfKind(DIR* folder, const dirent& entry, ListedKind kind) {
  const bool files = kind == ListedKind::kFiles;
  if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) {
    return entry.d_type == (files ? DT_REG : DT_DIR);
  }
  struct stat known {};
  if (::fstatat(::dirfd(folder), entry.d_name, &known, 0) != 0) return false;
  return files ? S_ISREG(known.st_mode) : S_ISDIR(known.st_mode);
}

std::vector<Listed> ReadNames(DIR* folder, TextView path, ListedKind kind) {
  std::vector<Listed> listed;
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(folder);
    if (entry == nullptr && errno != 0) FailHost(u"list", path, HostError(errno));
    if (entry == nullptr) return listed;
    if (!IsNamed(entry->d_name) || !IsOfKind(folder, *entry, kind)) continue;
    Text name = ToolName(entry->d_name);
    Text folded = LCase(name);
    listed.push_back({std::move(folded), std::move(name)});
  }
}

}  // namespace

std::vector<Text> ListHostFolder(TextView path, ListedKind kind) {
  const HostFolder folder(::opendir(HostPath(path).c_str()));
  if (!folder) FailHost(u"list", path, HostError(errno));
  std::vector<Listed> listed = ReadNames(folder.get(), path, kind);
  std::sort(listed.begin(), listed.end(), [](const Listed& a, const Listed& b) {
    return std::tie(a.folded, a.name) < std::tie(b.folded, b.name);
  });
  std::vector<Text> names;
  names.reserve(listed.size());
  for (Listed& one : listed) names.push_back(std::move(one.name));
  return names;
}

}  // namespace platform
