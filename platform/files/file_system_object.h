// The file service that each window owns one of: whole-file text in one of two encodings.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/text/text.h"

namespace platform {

enum class IoMode : std::uint8_t { kForReading = 1, kForWriting = 2, kForAppending = 8 };
// kUnicode is UTF-16 little-endian; a file made or replaced starts with its mark FF FE, an append
// adds none. kCodePage is Windows-1256.
enum class TextFormat : std::uint8_t { kCodePage, kUnicode };

class TextStream {
 public:
  TextStream(std::unique_ptr<OpenedFile> file, IoMode mode, TextFormat format);

  void Write(TextView text);
  // The whole text, without its mark. Failure if there is nothing to read.
  Text ReadAll();
  void Close();

 private:
  std::unique_ptr<OpenedFile> file_;
  TextFormat format_;
  bool markPending_;
};

class FileSystemObject {
 public:
  explicit FileSystemObject(FileSystem& files) : files_(files) {}

  bool FileExists(TextView path) { return files_.FileExists(path); }
  bool FolderExists(TextView path) { return files_.FolderExists(path); }
  // Makes the file, or empties the one that is there. 8-bit.
  TextStream CreateTextFile(TextView path);
  TextStream OpenTextFile(TextView path, IoMode mode, bool create = false,
                          TextFormat format = TextFormat::kCodePage);
  std::vector<Text> FileNames(TextView folder) { return files_.FileNames(folder); }
  FileSystem& Files() { return files_; }

 private:
  FileSystem& files_;
};

}  // namespace platform
