#include "tests/media/strace_log.h"

#include <optional>

namespace media_tests {
namespace {

constexpr std::string_view kMark = "open /mark/";

// What stands between the first quotation marks.
std::string Quoted(std::string_view text) {
  const std::size_t from = text.find('"');
  if (from == std::string_view::npos) return {};
  return std::string(text.substr(from + 1, text.find('"', from + 1) - from - 1));
}

std::string WordAfter(std::string_view text, std::string_view before) {
  const std::size_t at = text.find(before);
  if (at == std::string_view::npos) return {};
  const std::string_view word = text.substr(at + before.size());
  return std::string(word.substr(0, word.find_first_of(",)} ")));
}

// An address of the network in full; a socket of the machine by its path.
std::string PlaceOf(std::string_view call) {
  const std::string path = Quoted(call);
  const bool isLocal = call.find("AF_UNIX") != std::string_view::npos;
  return isLocal ? path : std::string(call.substr(call.find('{')));
}

std::optional<std::string> ReachOf(std::string_view line) {
  // The number of the process comes first.
  const std::size_t name = line.find_first_not_of("0123456789 ");
  if (name == std::string_view::npos) return {};
  const std::string_view call = line.substr(name);
  for (const std::string_view open : {"open(", "openat(", "openat2(", "creat("}) {
    if (call.starts_with(open)) return "open " + Quoted(call);
  }
  if (call.starts_with("socket(")) return "socket " + WordAfter(call, "socket(");
  if (call.starts_with("execve(")) return "start " + Quoted(call);
  for (const std::string_view way : {"connect(", "bind(", "sendto(", "sendmsg("}) {
    if (call.starts_with(way) && call.find("sa_family=") != std::string_view::npos) {
      return "connect " + PlaceOf(call);
    }
  }
  return {};
}

}  // namespace

std::vector<Reach> ReadStrace(std::string_view log) {
  std::vector<Reach> all;
  std::string during = "the start";
  while (!log.empty()) {
    const std::size_t end = std::min(log.find('\n'), log.size());
    const auto call = ReachOf(log.substr(0, end));
    log.remove_prefix(std::min(end + 1, log.size()));
    if (!call) continue;
    if (call->starts_with(kMark)) {
      during = call->substr(kMark.size());
    } else {
      all.push_back({during, *call});
    }
  }
  return all;
}

}  // namespace media_tests
