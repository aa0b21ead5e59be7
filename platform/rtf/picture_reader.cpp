#include "platform/rtf/picture_reader.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "platform/rtf/scanner.h"

namespace platform::rtf {
namespace {

constexpr int kWholeSize = 100;  // percent

int Scaled(int twips, int percent) {
  const std::int64_t scaled = std::int64_t{twips} * percent / kWholeSize;
  return static_cast<int>(std::min<std::int64_t>(scaled, std::numeric_limits<int>::max()));
}

}  // namespace

void PictureReader::Begin(Picture& picture) {
  picture_ = &picture;
  kindIsKnown_ = false;
  percentX_ = percentY_ = kWholeSize;
  halfByte_ = kNoDigit;
}

void PictureReader::Obey(PictureWord word, int number) {
  const int size = std::max(number, 0);
  if (word == PictureWord::kPng) SetKind(PictureKind::kPng);
  if (word == PictureWord::kJpeg) SetKind(PictureKind::kJpeg);
  if (word == PictureWord::kBitmap) SetKind(PictureKind::kBitmap);
  if (word == PictureWord::kWidth) picture_->widthTwips = size;
  if (word == PictureWord::kHeight) picture_->heightTwips = size;
  if (word == PictureWord::kScaleX) percentX_ = size;
  if (word == PictureWord::kScaleY) percentY_ = size;
}

void PictureReader::SetKind(PictureKind kind) {
  picture_->kind = kind;
  kindIsKnown_ = true;
}

void PictureReader::AddDigit(char16_t code) {
  const unsigned digit = code < kLowDigits.size() ? kLowDigits[code] : kNoDigit;
  if (digit == kNoDigit) return;
  if (halfByte_ == kNoDigit) {
    halfByte_ = digit;
  } else {
    AddByte(static_cast<char>(halfByte_ << 4 | digit));
    halfByte_ = kNoDigit;
  }
}

void PictureReader::AddByte(char byte) { picture_->bytes += byte; }

void PictureReader::Finish() {
  if (!IsOpen()) return;
  Picture& picture = *std::exchange(picture_, nullptr);
  if (!kindIsKnown_) picture.bytes.clear();
  picture.widthTwips = Scaled(picture.widthTwips, percentX_);
  picture.heightTwips = Scaled(picture.heightTwips, percentY_);
}

}  // namespace platform::rtf
