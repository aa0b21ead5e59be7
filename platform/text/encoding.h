// The two encodings of the tool's files.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/text/text.h"

namespace platform {

// The 8-bit code page of the machines that the tool serves.
inline constexpr int kMachineCodePage = 1256;

// Windows-1256. Every byte has a character; a character that the page lacks is written as "?".
Text DecodeMachineCodePage(std::string_view bytes);
std::string EncodeMachineCodePage(TextView text);
// The byte of each unit in that page, NUL for those that it lacks. The table lives as long as the
// process.
using MachineByteTable = std::array<char, 65536>;
const MachineByteTable& MachineBytes();

// UTF-16 little-endian without a mark. A last odd byte is dropped.
inline constexpr std::string_view kUtf16Mark = "\xFF\xFE";
Text DecodeUtf16(std::string_view bytes);
Text DecodeUnicode(std::string_view bytes);  // the same after a mark, if there is one
std::string EncodeUtf16(TextView text);
void AppendUtf16(std::string& bytes, TextView text);

}  // namespace platform
