// What the tests of rich text share.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

#include "platform/rtf/rtf.h"

namespace platform::rtf {

// The plain text of a document by the rules of PlainText, from the model alone.
inline Text TextOf(const Run& run) {
  if (std::holds_alternative<Picture>(run.content)) return u" ";
  return Replace(std::get<Text>(run.content), u"\u2028", kCrLf);
}

inline Text TextOf(const Paragraph& paragraph) {
  Text text;
  for (const Run& run : paragraph.runs) text += TextOf(run);
  return text;
}

inline Text TextOf(const Document& document) {
  Text text;
  for (const Paragraph& paragraph : document.paragraphs) {
    if (&paragraph != &document.paragraphs.front()) text += kCrLf;
    text += TextOf(paragraph);
  }
  return text;
}

inline Text Widen(std::string_view bytes) {
  Text text;
  for (const char byte : bytes) text += static_cast<unsigned char>(byte);
  return text;
}

// `body` as a rich text of the usual kind: f0 Arabic, f1 western, f2 signs, f3 Japanese.
inline std::string Rich(const std::string& body) {
  return "{\\rtf1\\ansi\\ansicpg1256\\deff0{\\fonttbl{\\f0\\fnil\\fcharset178 Tahoma;}"
         "{\\f1\\fswiss\\fcharset0 Arial;}{\\f2\\ftech\\fcharset2 Symbol;}"
         "{\\f3\\fcharset128 MS Mincho;}}"
         "{\\colortbl;\\red255\\green0\\blue0;\\red1\\green2\\blue3;}" +
         body + "}";
}

inline std::filesystem::path SampleFolder() {
  return std::filesystem::path(__FILE__).parent_path() / "data" / "rtf";
}

inline std::string ReadSample(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline std::vector<std::filesystem::path> SamplePaths() {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(SampleFolder())) {
    if (entry.path().extension() == ".rtf") paths.push_back(entry.path());
  }
  return paths;
}

}  // namespace platform::rtf
