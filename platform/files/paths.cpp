#include "platform/files/paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/failure.h"
#include "platform/text/utf8.h"

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

// The path after its drive, from the root on.
TextView WithoutDrive(TextView path) {
  if (path[0] != u'C' && path[0] != u'c') FailPath(u"There is no such drive", path);
  return path.substr(kDrive.size());
}

void AppendHostCharacter(std::string& host, char32_t character, TextView path) {
  if (character == u'\0') FailPath(u"Bad file name", path);
  if (IsRawByte(character)) {
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

constexpr std::array<std::string_view, 3> kStateLevels = {"/.local", "/state", "/zorvand"};

Text StateFolder() {
  std::string folder = HomeFolder();
  for (const std::string_view level : kStateLevels) folder += level;
  return ToolPath(folder);
}

constexpr TextView kFileUri = u"file:";
constexpr TextView kThisHost = u"//localhost/";

Text Backslashed(Text path) {
  std::replace(path.begin(), path.end(), u'/', u'\\');
  return path;
}

// Without the blanks in front and the line breaks around that come along with what is pasted.
TextView WithoutBreaks(TextView typed) {
  typed.remove_prefix(std::min(typed.find_first_not_of(u" \t\r\n"), typed.size()));
  return typed.substr(0, typed.find_last_not_of(u"\r\n") + 1);
}

int HexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

// The bytes after "%D8%A8" (RFC 3986, 2.1); what is no such triplet stays.
std::string PercentDecoded(std::string_view uri) {
  std::string bytes;
  bytes.reserve(uri.size());
  for (std::size_t at = 0; at < uri.size(); ++at) {
    const int high = uri[at] == '%' && at + 2 < uri.size() ? HexDigit(uri[at + 1]) : -1;
    const int low = high < 0 ? -1 : HexDigit(uri[at + 2]);
    bytes += low < 0 ? uri[at] : static_cast<char>(16 * high + low);
    if (low >= 0) at += 2;
  }
  return bytes;
}

// The path of what follows "file:" (RFC 8089, 2); nothing for that of another host.
std::optional<Text> PathOfUri(TextView rest) {
  if (rest.starts_with(kThisHost)) {
    rest.remove_prefix(kThisHost.size() - 1);
  } else if (rest.starts_with(u"///")) {
    rest.remove_prefix(2);
  }
  if (!rest.starts_with(u'/') || rest.starts_with(u"//")) return std::nullopt;
  const std::string bytes = PercentDecoded(ToUtf8(rest));
  if (bytes.find('\0') != std::string::npos) return std::nullopt;
  return ToolPath(bytes);
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
    if (const char16_t unit = rest.front(); unit != u'\0' && unit < 0x80) {
      host += unit == u'\\' ? '/' : static_cast<char>(unit);
      rest.remove_prefix(1);
      continue;
    }
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
  return Backslashed(std::move(path));
}

Text TypedPath(TextView typed) {
  const TextView path = WithoutBreaks(typed);
  if (path.starts_with(u'/')) return Backslashed(Text(kDrive).append(path));
  if (path.starts_with(kFileUri))
    return PathOfUri(path.substr(kFileUri.size())).value_or(Text(typed));
  const bool inHome = path == u"~" || path.starts_with(u"~/");
  const std::string home = inHome ? HomeFolder() : "";
  return home.empty() ? Text(typed) : Backslashed(ToolPath(home).append(path.substr(1)));
}

Text DoSlash(TextView path, std::size_t shortest) {
  Text result(path);
  if (path.size() >= shortest && !path.ends_with(u'\\')) result += u'\\';
  return result;
}

std::optional<Text> RealFolder(TextView path) {
  std::optional<Text> found;
  Ignoring([&] {
    char real[PATH_MAX];
    struct stat known {};
    if (::realpath(HostPath(path).c_str(), real) == nullptr) return;
    if (::stat(real, &known) == 0 && S_ISDIR(known.st_mode)) found = ToolPath(real);
  });
  return found;
}

Text ProgramFolder() {
  Text folder = ToolPath(ProgramFile());
  folder.erase(folder.rfind(u'\\'));
  return folder;
}

Text SystemLogPath() { return StateFolder() + u"\\ZVL.log"; }

void MakeStateFolder() {
  std::string folder = HomeFolder();
  for (const std::string_view level : kStateLevels) {
    folder += level;
    ::mkdir(folder.c_str(), S_IRWXU);
  }
}

Text RecordsPath() { return StateFolder() + u"\\recovery"; }

}  // namespace platform
