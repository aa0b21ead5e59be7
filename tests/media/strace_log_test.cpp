#include "tests/media/strace_log.h"

#include <gtest/gtest.h>

namespace media_tests {
namespace {

std::string Listed(std::string_view log) {
  std::string all;
  for (const Reach& reach : ReadStrace(log)) all += reach.during + ": " + reach.call + "\n";
  return all;
}

TEST(StraceLog, ListsWhatWasAskedFor) {
  EXPECT_EQ(Listed("12 openat(AT_FDCWD, \"/etc/a b\", O_RDONLY|O_CLOEXEC) = 3\n"
                   "12 openat(AT_FDCWD, \"/mark/one\", O_RDONLY) = -1 ENOENT (No such file)\n"
                   "13 open(\"x.ts\", O_RDONLY <unfinished ...>\n"
                   "13 <... open resumed>) = 3\n"
                   "13 socket(AF_INET, SOCK_STREAM|SOCK_CLOEXEC, IPPROTO_IP) = 35\n"
                   "13 connect(35, {sa_family=AF_INET, sin_port=htons(9), "
                   "sin_addr=inet_addr(\"127.0.0.1\")}, 16) = -1 EINPROGRESS\n"
                   "13 connect(35, {sa_family=AF_UNIX, sun_path=\"/run/sound\"}, 110) = 0\n"
                   "13 execve(\"/usr/bin/x\", [\"x\"], 0x7ffe /* 9 vars */) = 0\n"
                   "13 sendmsg(35, {msg_name=NULL}, 0) = 3\n"
                   "13 +++ exited with 0 +++\n"),
            "the start: open /etc/a b\n"
            "one: open x.ts\n"
            "one: socket AF_INET\n"
            "one: connect {sa_family=AF_INET, sin_port=htons(9), "
            "sin_addr=inet_addr(\"127.0.0.1\")}, 16) = -1 EINPROGRESS\n"
            "one: connect /run/sound\n"
            "one: start /usr/bin/x\n");
}

}  // namespace
}  // namespace media_tests
