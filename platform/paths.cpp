#include "platform/paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "platform/failure.h"
#include "platform/utf8.h"

namespace platform {
namespace {

constexpr TextView kDrive = u"C:";
// A byte that is no UTF-8, as a lone low surrogate.
constexpr char32_t kRawByte = 0xDC00;

bool IsRawByte(char32_t character) { return character >= 0xDC80 && character <= 0xDCFF; }

bool NamesDrive(TextView path) { return path.size() >= 2 && path[1] == u':'; }

[[noreturn]] void FailPath(TextView reason, TextView path) {
  throw Failure(Text(reason).append(u": ").append(path));
}

// The path behind its drive, from the root on.
TextView WithoutDrive(TextView path) {
  if (path[0] != u'C' && path[0] != u'c') FailPath(u"There is no such drive", path);
  return path.substr(kDrive.size());
}

void AppendHostCharacter(std::string& host, char32_t character, TextView path) {
  if (character == u'\0') FailPath(u"Bad file name", path);
  if (character == u'\\') {
    host += '/';
  } else if (IsRawByte(character)) {
    host += static_cast<char>(character - kRawByte);
  } else if (IsSurrogate(character)) {
    FailPath(u"Bad file name", path);
  } else {
    AppendCharacter(host, character);
  }
}

std::string CurrentFolder() {
  char buffer[PATH_MAX];
  return getcwd(buffer, sizeof buffer) != nullptr ? buffer : "/";
}

std::string ProgramFile() {
  char buffer[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer);
  if (length <= 0) return CurrentFolder() + "/";
  return {buffer, static_cast<std::size_t>(length)};
}

std::string HomeFolder() {
  const char* const named = std::getenv("HOME");
  if (named != nullptr && *named != '\0') return named;
  const passwd* const user = getpwuid(getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

}  // namespace

std::string HostPath(TextView path) {
  if (path.empty()) throw Failure(u"A path is empty");
  std::string host;
  host.reserve(path.size() + 1);
  TextView rest = path;
  if (NamesDrive(path)) {
    rest = WithoutDrive(path);
    if (rest.empty() || (rest[0] != u'\\' && rest[0] != u'/')) host += '/';
  }
  while (!rest.empty()) {
    const Utf16Step step = FirstOfUtf16(rest);
    AppendHostCharacter(host, step.character, path);
    rest.remove_prefix(step.length);
  }
  return host;
}

Text ToolName(std::string_view hostName) {
  Text name;
  name.reserve(hostName.size());
  while (!hostName.empty()) {
    const Utf8Step step = FirstOfUtf8(hostName);
    const char32_t raw = kRawByte + static_cast<unsigned char>(hostName.front());
    AppendCharacter(name, step.length == 0 ? raw : step.character);
    hostName.remove_prefix(std::max<std::size_t>(step.length, 1));
  }
  return name;
}

Text ToolPath(std::string_view hostPath) {
  std::string absolute(hostPath);
  if (!absolute.starts_with('/')) {
    const std::string current = CurrentFolder();
    absolute.insert(0, current.ends_with('/') ? current : current + "/");
  }
  Text path(kDrive);
  path += ToolName(absolute);
  std::replace(path.begin(), path.end(), u'/', u'\\');
  return path;
}

Text DoSlash(TextView path) {
  Text result(path);
  if (path.size() >= 2 && !path.ends_with(u'\\')) result += u'\\';
  return result;
}

Text ProgramFolder() {
  Text folder = ToolPath(ProgramFile());
  folder.erase(folder.rfind(u'\\'));
  return folder;
}

Text SystemLogPath() {
  std::string folder = HomeFolder();
  for (const char* const level : {"/.local", "/state", "/zorvand"}) {
    folder += level;
    // Whether it worked shows when the log is written.
    mkdir(folder.c_str(), S_IRWXU);
  }
  return ToolPath(folder) + u"\\ZVL.log";
}

}  // namespace platform
