// The two encodings of the tool's files, and the code pages that rich text from elsewhere names.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace platform {

// The 8-bit code page of the machines that the tool serves.
inline constexpr int kMachineCodePage = 1256;

// Windows-1256. Every byte has a character; a character that the page lacks is written as "?".
Text DecodeMachineCodePage(std::string_view bytes);
std::string EncodeMachineCodePage(TextView text);

// UTF-16 little-endian without a mark. A last odd byte is dropped.
inline constexpr std::string_view kUtf16Mark = "\xFF\xFE";
Text DecodeUtf16(std::string_view bytes);
std::string EncodeUtf16(TextView text);
void AppendUtf16(std::string& bytes, TextView text);

// The 256 characters of a single-byte Windows, DOS, Mac or ISO code page, by its Windows number;
// nullptr for a page that is unknown or has characters of several bytes. U+FFFD where a byte has
// none. The table lives as long as the process.
const std::array<char16_t, 256>* SingleByteCodePage(int codePage);
// Text in any code page, several bytes a character included (932, 936, 949, 950, 65001).
// An unknown page is read as 1252.
Text DecodeCodePage(int codePage, std::string_view bytes);

}  // namespace platform
