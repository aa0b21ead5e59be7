#include "tests/house/functions.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace house {
namespace {

bool IsBlank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool IsAccess(std::string_view word) {
  return word == "public" || word == "protected" || word == "private";
}

// Goes from brace to brace. What stands in front of one, since the statement before, says what it
// opens.
class FunctionFinder {
 public:
  explicit FunctionFinder(std::string_view code) : code_(code) {}

  std::vector<Function> Run() {
    for (; at_ < code_.size(); ++at_) {
      switch (code_[at_]) {
        case '#':
          SkipDirective();
          break;
        case '{':
          Open();
          break;
        case '}':
          Close();
          break;
        case ';':
          head_ = at_ + 1;
          break;
        case ':':
          if (IsAccess(Head())) head_ = at_ + 1;
          break;
        default:
          break;
      }
    }
    return std::move(functions_);
  }

 private:
  enum class Scope : std::uint8_t { kNames, kFunction, kValues };

  bool IsAmongNames() const {
    return std::ranges::all_of(scopes_, [](Scope scope) { return scope == Scope::kNames; });
  }

  void SkipDirective() {
    if (!Trimmed(code_.substr(LineStart(), at_ - LineStart())).empty()) return;
    at_ = std::min(code_.find('\n', at_), code_.size() - 1);
    while (code_[at_ - 1] == '\\' && at_ + 1 < code_.size()) {
      at_ = std::min(code_.find('\n', at_ + 1), code_.size() - 1);
    }
    head_ = at_ + 1;
  }
  std::size_t LineStart() const { return at_ == 0 ? 0 : code_.rfind('\n', at_ - 1) + 1; }

  std::string_view Head() const { return Trimmed(code_.substr(head_, at_ - head_)); }

  Scope WhatOpens() const {
    if (!IsAmongNames()) return Scope::kValues;
    const std::string_view head = Head();
    // A table may stand in the brackets of what makes it one.
    const auto open = std::ranges::count(head, '(');
    if (head.ends_with('=') || open != std::ranges::count(head, ')')) return Scope::kValues;
    if (head.find('(') != std::string_view::npos) return Scope::kFunction;
    for (const std::string_view word : {"namespace", "class ", "struct ", "union ", "extern"}) {
      if (head.find(word) != std::string_view::npos && !head.starts_with("enum")) {
        return Scope::kNames;
      }
    }
    return Scope::kValues;
  }

  void Open() {
    scopes_.push_back(WhatOpens());
    if (scopes_.back() == Scope::kFunction) functions_.push_back({LineOfHead(), 0});
    if (scopes_.back() == Scope::kNames) head_ = at_ + 1;
  }

  void Close() {
    if (scopes_.empty()) return;
    const Scope closed = scopes_.back();
    scopes_.pop_back();
    if (closed == Scope::kFunction) functions_.back().lastLine = Line(at_);
    if (!IsAmongNames()) return;
    // The values that a constructor gives its members: its own brace is still to come.
    const std::size_t next = code_.find_first_not_of(" \n", at_ + 1);
    const bool goesOn = closed != Scope::kNames && next != std::string_view::npos &&
                        (code_[next] == ',' || code_[next] == '{');
    if (!goesOn) {
      head_ = at_ + 1;
    } else if (closed == Scope::kFunction) {
      functions_.pop_back();
    }
  }

  int LineOfHead() const {
    std::size_t first = head_;
    while (first < at_ && IsBlank(code_[first])) ++first;
    return Line(first);
  }
  int Line(std::size_t at) const {
    return 1 + static_cast<int>(std::count(code_.begin(),
                                           code_.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
  }

  std::string_view code_;
  std::size_t at_ = 0;
  std::size_t head_ = 0;  // where the statement in hand begins
  std::vector<Scope> scopes_;
  std::vector<Function> functions_;
};

}  // namespace

std::vector<Function> FunctionsOf(std::string_view bareCode) {
  return FunctionFinder(bareCode).Run();
}

std::vector<Offence> LengthOffences(const SourceTree& tree) {
  std::vector<Offence> offences;
  for (const auto& [path, source] : tree) {
    for (const Function& function : source.functions) {
      const int lines = function.lastLine - function.firstLine + 1;
      if (lines > kLongestFunction) {
        offences.push_back(
            {path, function.firstLine, "a function of " + std::to_string(lines) + " lines"});
      }
    }
    if (source.lines > kLongestFile) {
      offences.push_back({path, 1, "a file of " + std::to_string(source.lines) + " lines"});
    }
  }
  return offences;
}

}  // namespace house
