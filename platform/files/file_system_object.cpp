#include "platform/files/file_system_object.h"

#include <bit>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/text/encoding.h"

namespace platform {
namespace {

OpenMode ModeFor(IoMode mode) {
  if (mode == IoMode::kForReading) return OpenMode::kRead;
  return mode == IoMode::kForWriting ? OpenMode::kReplace : OpenMode::kAppend;
}

// A page is written as it lies in memory, if the host's own order is the file's.
void WriteUtf16(OpenedFile& file, TextView text) {
  if constexpr (std::endian::native == std::endian::little) {
    file.Write({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
  } else {
    file.Write(EncodeUtf16(text));
  }
}

}  // namespace

TextStream::TextStream(std::unique_ptr<OpenedFile> file, IoMode mode, TextFormat format)
    : file_(std::move(file)),
      format_(format),
      markPending_(mode == IoMode::kForWriting && format == TextFormat::kUnicode) {}

// The mark goes out together with the first text: one write a file.
void TextStream::Write(TextView text) {
  if (format_ == TextFormat::kCodePage) return file_->Write(EncodeMachineCodePage(text));
  if (!markPending_) return WriteUtf16(*file_, text);
  std::string bytes;
  bytes.reserve(kUtf16Mark.size() + text.size() * sizeof(char16_t));
  bytes = kUtf16Mark;
  AppendUtf16(bytes, text);
  file_->Write(bytes);
  markPending_ = false;
}

Text TextStream::ReadAll() {
  const std::string bytes = file_->ReadAll();
  Text text =
      format_ == TextFormat::kCodePage ? DecodeMachineCodePage(bytes) : DecodeUnicode(bytes);
  if (text.empty()) throw Failure(u"Input past end of file");
  return text;
}

void TextStream::Close() {
  if (std::exchange(markPending_, false)) file_->Write(kUtf16Mark);
  file_->Close();
}

TextStream FileSystemObject::CreateTextFile(TextView path) {
  return OpenTextFile(path, IoMode::kForWriting, true);
}

TextStream FileSystemObject::OpenTextFile(TextView path, IoMode mode, bool create,
                                          TextFormat format) {
  // An append that makes its file begins it with a mark, as any new file.
  const bool mayMake = mode == IoMode::kForAppending && create && format == TextFormat::kUnicode;
  if (mayMake && !files_.FileExists(path)) mode = IoMode::kForWriting;
  return TextStream(files_.Open(path, ModeFor(mode), create), mode, format);
}

}  // namespace platform
