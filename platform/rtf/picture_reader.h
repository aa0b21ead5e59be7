// One \pict at a time: its kind, its size, its bytes.
#pragma once

#include "platform/rtf/document.h"
#include "platform/rtf/words.h"

namespace platform::rtf {

class PictureReader {
 public:
  // `picture` has to stay where it is up to Finish.
  void Begin(Picture& picture);
  bool IsOpen() const { return picture_ != nullptr; }
  void Obey(PictureWord word, int number);
  // The next digit of the data; whatever is no digit is stepped over.
  void AddDigit(char16_t code);
  void AddByte(char byte);
  // A picture of a kind that can't be shown keeps its place and its size, and has no bytes.
  void Finish();

 private:
  void SetKind(PictureKind kind);

  Picture* picture_ = nullptr;
  bool kindIsKnown_ = false;
  int percentX_ = 0;
  int percentY_ = 0;
  unsigned halfByte_ = 0;
};

}  // namespace platform::rtf
