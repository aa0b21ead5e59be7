#include "tests/house/source_tree.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <utility>

#include "tests/house/functions.h"

namespace house {
namespace {

namespace fs = std::filesystem;

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// Under what path a file counts: a generated file's template as the file itself.
fs::path CountedAs(const fs::path& path) {
  return path.extension() == ".in" ? path.parent_path() / path.stem() : path;
}

bool IsSource(const fs::path& path) {
  static const std::set<std::string> kEndings = {".cpp", ".cc",  ".cxx", ".c",   ".h",
                                                 ".hh",  ".hpp", ".hxx", ".inl", ".inc"};
  return kEndings.contains(path.extension().string());
}

// Blanks out one comment or literal after another, keeping what lies between.
class Blanker {
 public:
  explicit Blanker(std::string_view text) : text_(text), code_(text) {}

  std::string Run() {
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (Follows("//")) {
        BlankTo(text_.find('\n', at_));
      } else if (Follows("/*")) {
        BlankAfter(text_.find("*/", at_ + 2), 2);
      } else if (c == '"' && IsRaw()) {
        BlankRaw();
      } else if (c == '"' || (c == '\'' && !InsideNumber())) {
        BlankQuoted(c);
      } else {
        ++at_;
      }
    }
    return std::move(code_);
  }

 private:
  bool Follows(std::string_view what) const { return text_.substr(at_, what.size()) == what; }

  // The identifier, prefix or number that ends right before the current character.
  std::string_view WordBefore() const {
    std::size_t start = at_;
    while (start > 0 && (IsWordCharacter(text_[start - 1]) || text_[start - 1] == '\'')) --start;
    return text_.substr(start, at_ - start);
  }

  bool IsRaw() const {
    static constexpr std::array<std::string_view, 5> kPrefixes = {"R", "uR", "UR", "LR", "u8R"};
    return std::ranges::find(kPrefixes, WordBefore()) != kPrefixes.end();
  }

  bool InsideNumber() const {
    const std::string_view word = WordBefore();
    return !word.empty() && std::isdigit(static_cast<unsigned char>(word.front())) != 0;
  }

  void BlankTo(std::size_t end) {
    for (end = std::min(end, text_.size()); at_ < end; ++at_) {
      if (code_[at_] != '\n') code_[at_] = ' ';
    }
  }

  void BlankAfter(std::size_t found, std::size_t length) {
    BlankTo(found == std::string_view::npos ? found : found + length);
  }

  void BlankRaw() {
    const std::size_t open = text_.find('(', at_);
    if (open == std::string_view::npos) return BlankTo(open);
    const std::string close = ")" + std::string(text_.substr(at_ + 1, open - at_ - 1)) + "\"";
    BlankAfter(text_.find(close, open), close.size());
  }

  void BlankQuoted(char quote) {
    std::size_t end = at_ + 1;
    while (end < text_.size() && text_[end] != quote && text_[end] != '\n') {
      end += text_[end] == '\\' ? 2U : 1U;
    }
    BlankTo(end < text_.size() && text_[end] == quote ? end + 1 : end);
  }

  std::string_view text_;
  std::string code_;
  std::size_t at_ = 0;
};

// What stands after "#include" (or "#import") on a line; false where the line is no include.
bool IncludeOperand(std::string_view line, std::string_view& operand) {
  const auto skipBlanks = [&line] {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  };
  skipBlanks();
  if (!line.starts_with('#')) return false;
  line.remove_prefix(1);
  skipBlanks();
  for (const std::string_view keyword : {"include_next", "include", "import"}) {
    if (!line.starts_with(keyword)) continue;
    line.remove_prefix(keyword.size());
    if (!line.empty() && IsWordCharacter(line.front())) return false;
    skipBlanks();
    operand = line;
    return true;
  }
  return false;
}

Include ReadInclude(int line, std::string_view operand) {
  Include include{.line = line, .name = {}, .angled = operand.starts_with('<'), .resolved = {}};
  if (!include.angled && !operand.starts_with('"')) return include;
  const std::size_t end = operand.find(include.angled ? '>' : '"', 1);
  if (end != std::string_view::npos) include.name = operand.substr(1, end - 1);
  return include;
}

void ReadWords(int line, std::string_view code, std::vector<Word>& words) {
  std::size_t at = 0;
  while (at < code.size()) {
    std::size_t end = at;
    while (end < code.size() && IsWordCharacter(code[end])) ++end;
    if (end > at) words.push_back({line, std::string(code.substr(at, end - at))});
    at = std::max(end, at + 1);
  }
}

SourceFile ReadSource(const std::string& text) {
  SourceFile source;
  std::istringstream written(text);
  const std::string code = BareCode(text);
  std::istringstream bare(code);
  std::string writtenLine;
  std::string bareLine;
  for (int line = 1; std::getline(written, writtenLine) && std::getline(bare, bareLine); ++line) {
    std::string_view operand;
    // The bare line says whether it is code at all, the written one holds the name.
    if (IncludeOperand(bareLine, operand) && IncludeOperand(writtenLine, operand)) {
      source.includes.push_back(ReadInclude(line, operand));
    } else {
      ReadWords(line, bareLine, source.words);
    }
    source.lines = line;
  }
  source.functions = FunctionsOf(code);
  return source;
}

void Resolve(SourceTree& tree) {
  for (auto& [path, source] : tree) {
    for (Include& include : source.includes) {
      const std::string fromRoot = fs::path(include.name).lexically_normal().generic_string();
      const std::string beside =
          (fs::path(path).parent_path() / include.name).lexically_normal().generic_string();
      if (!include.angled && tree.contains(beside)) {
        include.resolved = beside;
      } else if (tree.contains(fromRoot)) {
        include.resolved = fromRoot;
      }
    }
  }
}

std::string ReadWhole(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::string BareCode(std::string_view text) { return Blanker(text).Run(); }

SourceTree ReadSourceTree(const fs::path& root) {
  SourceTree tree;
  for (auto entry = fs::recursive_directory_iterator(root); entry != fs::end(entry); ++entry) {
    const std::string name = entry->path().filename().string();
    const fs::path path = CountedAs(entry->path());
    if (entry->is_directory()) {
      if (name.starts_with('.') || name == "build") entry.disable_recursion_pending();
    } else if (IsSource(path)) {
      tree.emplace(path.lexically_relative(root).generic_string(),
                   ReadSource(ReadWhole(entry->path())));
    }
  }
  Resolve(tree);
  return tree;
}

std::string Listing(const std::vector<Offence>& offences) {
  std::ostringstream listing;
  for (const Offence& offence : offences) {
    listing << offence.file << ':' << offence.line << ": " << offence.what << '\n';
  }
  return listing.str();
}

}  // namespace house
