#include "book/reading_text.h"

#include <QChar>
#include <algorithm>

namespace book {
namespace {

constexpr QChar kMark(0x200F);
constexpr QChar kHalfSpace(0x200C);
constexpr char16_t kPersianZero = u'\u06F0';
constexpr char16_t kArabicZero = u'\u0660';

bool IsAsciiLetter(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

bool IsLatinOrDigit(QChar c) {
  if (c < QChar(0x80)) return IsAsciiLetter(c) || (c >= u'0' && c <= u'9');
  if (c >= QChar(0x0600) && c <= QChar(0x06FF)) return c.isDigit();  // most of a page
  return c.isDigit() || (c.script() == QChar::Script_Latin && c.isLetter());
}

// A sign behind which the author's tool writes a mark.
bool IsMarkedSign(QChar c) { return c == u'.' || c == u':' || c == u'!'; }

// What may stand beside it within an address.
bool IsWithinAddress(QChar c) { return c == kMark || IsMarkedSign(c) || c == u'/' || c == u'\\'; }

bool IsJoining(QChar c) {
  const QChar::JoiningType type = c.joiningType();
  return c.isLetter() && type != QChar::Joining_None && type != QChar::Joining_Transparent;
}

bool IsVowelSign(QChar c) { return c.joiningType() == QChar::Joining_Transparent && c.isMark(); }

QChar PersianLetter(QChar c) {
  if (c == QChar(0x064A)) return QChar(0x06CC);
  if (c == QChar(0x0643)) return QChar(0x06A9);
  return c;
}

class Reader {
 public:
  explicit Reader(QStringView text) : text_(text) { read_.reserve(text.size()); }

  QString Read() {
    while (at_ < text_.size()) IsLatinOrDigit(text_[at_]) ? TakeLatin() : TakeOther();
    return std::move(read_);
  }

 private:
  // A letter or a digit, and what stands between it and the next one.
  void TakeLatin() {
    read_ += text_[at_++];
    qsizetype end = at_;
    bool isSigned = false;
    for (; end < text_.size() && IsWithinAddress(text_[end]); ++end) {
      isSigned = isSigned || IsMarkedSign(text_[end]);
    }
    const bool isAmid = isSigned && end < text_.size() && IsLatinOrDigit(text_[end]);
    for (; at_ < end; ++at_) {
      if (!isAmid || text_[at_] != kMark) read_ += text_[at_];
    }
  }

  void TakeOther() {
    if (text_[at_] == kMark) return TakeMarks();
    read_ += PersianLetter(text_[at_++]);
  }

  void TakeMarks() {
    const qsizetype start = at_;
    while (at_ < text_.size() && text_[at_] == kMark) ++at_;
    if (at_ < text_.size() && IsJoining(text_[at_]) && EndsInJoining()) {
      read_ += kHalfSpace;
    } else {
      read_ += text_.sliced(start, at_ - start);
    }
  }

  // What has been read ends in such a letter, whatever vowel signs it has.
  bool EndsInJoining() const {
    const auto last = std::find_if_not(read_.crbegin(), read_.crend(), IsVowelSign);
    return last != read_.crend() && IsJoining(*last);
  }

  QStringView text_;
  qsizetype at_ = 0;
  QString read_;
};

bool IsAscii(QChar c) { return c > u' ' && c < QChar(0x7F); }

QChar PersianDigit(QChar c) {
  if (c >= u'0' && c <= u'9') return QChar(kPersianZero + (c.unicode() - u'0'));
  if (c >= QChar(kArabicZero) && c <= QChar(kArabicZero + 9)) {
    return QChar(kPersianZero + (c.unicode() - kArabicZero));
  }
  return c;
}

// A run of signs of ASCII with a letter among them is a word or an address.
void MakeDigitsPersian(QString& text) {
  for (auto from = text.begin(); from != text.end();) {
    const auto end = std::find_if_not(from, text.end(), IsAscii);
    if (std::none_of(from, end, IsAsciiLetter)) std::transform(from, end, from, PersianDigit);
    from = end;
    if (from != text.end()) {
      *from = PersianDigit(*from);
      ++from;
    }
  }
}

}  // namespace

QString ReadingText(QStringView text, Digits digits) {
  QString read = Reader(text).Read();
  if (digits == Digits::kPersian) MakeDigitsPersian(read);
  return read;
}

}  // namespace book
