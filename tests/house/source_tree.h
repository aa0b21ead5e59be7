// The sources of a tree as the house's checks see them: each file's includes and bare code.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace house {

struct Include {
  int line = 0;
  std::string name;      // as written between the quotes or angles; empty where a macro names it
  bool angled = false;   // <name>, not "name"
  std::string resolved;  // the file of the tree that is meant; empty: none
};

struct Word {
  int line = 0;
  std::string text;
};

// A function that is written out outside of any other; those inside it count with it.
struct Function {
  int firstLine = 0;
  int lastLine = 0;
};

struct SourceFile {
  int lines = 0;
  std::vector<Function> functions;
  std::vector<Include> includes;
  std::vector<Word> words;  // identifiers and keywords, outside comments, literals and includes
};

// By path under the tree's root, with '/'.
using SourceTree = std::map<std::string, SourceFile>;

// Reads every C++ file under `root`, but for build/ and hidden folders. The template NAME.in of a
// generated file counts as the file NAME.
SourceTree ReadSourceTree(const std::filesystem::path& root);

// `text` with each character of a comment or literal as a blank; line ends stay.
std::string BareCode(std::string_view text);

// One breach of a rule, printed as file:line: what.
struct Offence {
  std::string file;
  int line = 0;
  std::string what;
  bool operator==(const Offence&) const = default;
};

std::string Listing(const std::vector<Offence>& offences);

}  // namespace house
