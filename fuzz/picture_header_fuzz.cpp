// Headers of pictures from anywhere: read, and what decoding them takes reckoned, without leaving
// the bytes and without a number that overflows.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "media/picture_header.h"
#include "media/picture_plan.h"

namespace {

void Expect(bool holds) {
  if (!holds) std::abort();
}

void CheckPlan(const media::PictureHeader& header, media::PictureSize shown) {
  const media::PictureNeed need = media::NeedOf(header, shown);
  const std::string whyNot = media::WhyNotDecoded(header, shown);
  const bool fits = header.problem.empty() && need.bytes <= media::kDecodingMemory &&
                    need.nanoseconds <= media::kLongestDecoding;
  Expect(whyNot.empty() == fits);
  // More to show never takes less.
  const media::PictureNeed least = media::NeedOf(header, {1, 1});
  Expect(least.bytes <= need.bytes || header.scaling == media::Scaling::kLines);
  Expect(least.nanoseconds <= need.nanoseconds);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const media::PictureHeader header = media::ReadPictureHeader(bytes);
  const bool isKnown = header.kind != media::PictureKind::kUnknown;
  Expect(isKnown != media::FormatName(header.kind).empty());
  Expect(header.problem.empty() == (header.size.width > 0 && header.size.height > 0));
  Expect(header.fixedBytes >= size);
  CheckPlan(header, {150, 100});
  CheckPlan(header, header.size);
  CheckPlan(header, {0xFFFFFFFF, 0xFFFFFFFF});
  const media::PictureSize within = media::WithinMemory(header.size, 4'000'000);
  Expect(within.width <= header.size.width && within.height <= header.size.height);
  return 0;
}
