#include "recovery/piece.h"

#include <algorithm>
#include <limits>

#include "platform/checksum.h"
#include "platform/failure.h"

namespace recovery {

namespace {

constexpr std::string_view kMark = "ZVRECORD";
constexpr std::size_t kWord = 4;
constexpr unsigned kBitsAByte = 8;

void AppendWord(std::string& bytes, std::uint32_t word) {
  for (std::size_t i = 0; i < kWord; ++i, word >>= kBitsAByte) {
    bytes += static_cast<char>(word & 0xFF);
  }
}

std::uint32_t WordAt(std::string_view bytes, std::size_t at) {
  std::uint32_t word = 0;
  for (std::size_t i = kWord; i-- > 0;) {
    word = word << kBitsAByte | static_cast<unsigned char>(bytes[at + i]);
  }
  return word;
}

std::uint32_t ChecksumOf(std::string_view length, std::string_view content) {
  return platform::Crc32(content) ^ platform::Crc32(length);
}

}  // namespace

std::string HeadBytes() {
  std::string bytes(kMark);
  AppendWord(bytes, kVersion);
  return bytes;
}

Head HeadOf(std::string_view file) {
  if (file.size() < kHeadLength || !file.starts_with(kMark)) return Head::kNone;
  const std::uint32_t version = WordAt(file, kMark.size());
  if (version == 0) return Head::kNone;
  return version > kVersion ? Head::kNewer : Head::kReadable;
}

void AppendPiece(std::string& file, std::string_view content) {
  if (content.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw platform::Failure(u"Too much for a record");
  }
  std::string length;
  AppendWord(length, static_cast<std::uint32_t>(content.size()));
  file += length;
  AppendWord(file, ChecksumOf(length, content));
  file += content;
}

std::optional<std::string_view> TakePiece(std::string_view& file) {
  if (file.size() < kPieceFrame) return std::nullopt;
  const std::size_t length = WordAt(file, 0);
  if (length > file.size() - kPieceFrame) return std::nullopt;
  const std::string_view content = file.substr(kPieceFrame, length);
  if (WordAt(file, kWord) != ChecksumOf(file.substr(0, kWord), content)) return std::nullopt;
  file.remove_prefix(kPieceFrame + length);
  return content;
}

bool IsStillborn(std::string_view file) {
  const auto isZero = [](char byte) { return byte == 0; };
  if (file.size() < kHeadLength || std::ranges::all_of(file, isZero)) return true;
  if (HeadOf(file) != Head::kReadable) return false;
  file.remove_prefix(kHeadLength);
  if (file.size() < kPieceFrame || std::ranges::all_of(file, isZero)) return true;
  const bool endsInIt = WordAt(file, 0) >= file.size() - kPieceFrame;
  return endsInIt && !TakePiece(file);
}

bool IsWhole(std::string_view file) {
  if (HeadOf(file) != Head::kReadable) return false;
  file.remove_prefix(kHeadLength);
  while (TakePiece(file)) {
  }
  return file.empty();
}

}  // namespace recovery
