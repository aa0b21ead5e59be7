// The reader of records: files that a crash or a bad disk left. Whatever is read is written again
// and read back the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "recovery/changes.h"
#include "recovery/piece.h"
#include "recovery/replay.h"
#include "tests/support/recovery_work.h"

namespace {

// The input's bytes as pieces whose checksums hold, each with its length in front, so that not only
// the checksums are tried.
std::string WithChecksums(std::string_view input) {
  std::string file = recovery::HeadBytes();
  while (!input.empty()) {
    const std::size_t wanted = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    const std::string_view content = input.substr(0, wanted);
    input.remove_prefix(content.size());
    recovery::AppendPiece(file, content);
  }
  return file;
}

void Try(std::string_view file) {
  std::optional<recovery::Work> work = recovery::ReadRecord(file);
  static_cast<void>(recovery::ReadCollection(file));
  if (!work) return;
  recovery::LiveWork live{.filed = work->filed,
                          .fields = work->fields,
                          .collection = work->collection,
                          .restEdit = {},
                          .rest = testing_support::PartsOf(work->rest),
                          .restLength = static_cast<platform::Position>(work->rest.size())};
  recovery::Recorded recorded;
  std::optional<recovery::Work> again =
      recovery::ReadRecord(testing_support::WholeRecord(live, recorded));
  if (!again) std::abort();
  if (testing_support::Described(*again) != testing_support::Described(*work)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  Try(input);
  Try(WithChecksums(input));
  return 0;
}
