// What may stand before a sound of MPEG audio: the rest of a frame where a broadcast was cut, or of
// a tag that is longer than it says.
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

bool IsControl(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  const bool isSpace = code >= '\t' && code <= '\r';
  return (code < ' ' && !isSpace) || code == 0x7F;
}

bool HasWordInAnyCase(std::string_view bytes, std::string_view word) {
  const auto lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
  };
  return bytes.size() >= word.size() && std::equal(word.begin(), word.end(), bytes.begin(),
                                                   [&](char a, char b) { return a == lower(b); });
}

// Where a list, a page or a description of a broadcast begins so, players read it as one whatever
// comes after it.
bool BeginsAsAText(std::string_view text) {
  constexpr std::array<std::string_view, 8> kWords = {"#ext",     "<?",  "<!",   "[playlist",
                                                      "ffconcat", "v=0", "rtsp", "[reference"};
  const bool isElement = text.size() > 1 && text[0] == '<' &&
                         ((text[1] >= 'a' && text[1] <= 'z') || (text[1] >= 'A' && text[1] <= 'Z'));
  return isElement || std::ranges::any_of(kWords, [text](std::string_view word) {
           return HasWordInAnyCase(text, word);
         });
}

// As far as it goes.
bool IsUtf8(std::string_view text) {
  std::size_t more = 0;  // bytes of a character that has begun
  for (const char byte : text) {
    const auto code = static_cast<unsigned char>(byte);
    const bool isNext = (code & 0xC0U) == 0x80U;
    if (isNext != (more > 0)) return false;
    if (isNext) {
      --more;
    } else {
      more = code < 0x80U ? 0 : code < 0xE0U ? 1 : code < 0xF0U ? 2 : 3;
    }
  }
  return true;
}

// Of any encoding: other bytes have a control among so many.
bool IsText(std::string_view junk) {
  constexpr std::size_t kEnough = 64;
  constexpr std::array<std::string_view, 3> kMarks = {"\xFF\xFE", "\xFE\xFF", "\xEF\xBB\xBF"};
  for (const std::string_view mark : kMarks) {
    if (junk.starts_with(mark)) return true;
  }
  std::string text(junk);
  std::erase(text, '\0');  // every other byte of a text in UTF-16
  const std::size_t begin = std::min(text.find_first_not_of("\t\n\v\f\r "), text.size());
  if (BeginsAsAText(std::string_view(text).substr(begin))) return true;
  const std::string_view first = std::string_view(text).substr(0, kEnough);
  if (first.empty() || std::ranges::any_of(first, IsControl)) return false;
  return first.size() == kEnough || IsUtf8(first);
}

// What has been asked already, pictures and archives: a sound that lies in one isn't the file.
bool BeginsAsAnotherKind(std::string_view junk) {
  constexpr std::array<std::string_view, 20> kWords = {"RIFF",
                                                       "RIFX",
                                                       "OggS",
                                                       "fLaC",
                                                       "FLV",
                                                       "\x1A\x45\xDF\xA3",
                                                       "MThd",
                                                       "FWS",
                                                       "CWS",
                                                       "ZWS",
                                                       ".ra",
                                                       ".RMF",
                                                       "PK\x03\x04",
                                                       "BM",
                                                       "\x30\x26\xB2\x75",
                                                       "GIF8",
                                                       "%PDF",
                                                       "\x89PNG",
                                                       "\xFF\xD8",
                                                       "\xD0\xCF\x11\xE0"};
  constexpr std::array<std::string_view, 8> kBoxes = {"ftyp", "moov", "mdat", "wide",
                                                      "free", "skip", "pnot", "moof"};
  const bool isStream = junk.starts_with(std::string_view("\0\0\1", 3));
  const auto begins = [junk](std::string_view word) { return junk.starts_with(word); };
  const auto isBox = [junk](std::string_view name) { return HasWord(junk, 4, name); };
  return isStream || std::ranges::any_of(kWords, begins) || std::ranges::any_of(kBoxes, isBox);
}

}  // namespace

bool IsJunk(std::string_view bytes) { return !IsText(bytes) && !BeginsAsAnotherKind(bytes); }

}  // namespace media
