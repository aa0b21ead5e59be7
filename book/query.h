// What a reader looks for, and where it stands in a text.
#pragma once

#include <QString>
#include <QStringView>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "book/fold.h"

namespace book {

struct Wish {
  QString words;            // between blanks; a phrase between quotes ("…", «…», “…”)
  bool wholeWords = false;  // «باغ» isn't found in «باغبان»
  VowelSigns vowelSigns = VowelSigns::kPassedOver;

  bool operator==(const Wish&) const = default;
};

// A stretch of a folded text.
struct Stretch {
  std::size_t start = 0;
  std::size_t length = 0;
};

// A word or a phrase, folded. Of its letters a yeh with hamza stands for the carriers of a hamza,
// too, and the other way round; a blank for any number of them.
class Term {
 public:
  // Not empty, with single blanks within it alone.
  Term(QString folded, bool isWhole);

  const QString& Folded() const { return folded_; }
  // The first from `from` on in a folded text. Linear in it.
  std::optional<Stretch> In(std::u16string_view text, std::size_t from = 0) const;

 private:
  std::optional<Stretch> At(std::u16string_view text, std::size_t anchor) const;
  std::u16string_view Anchor() const;

  QString folded_;
  bool isWhole_;
  // The longest part of it that has one spelling alone: it is looked for first.
  std::size_t anchor_ = 0;
  std::size_t anchorLength_ = 0;
};

class Query {
 public:
  Query() = default;
  explicit Query(const Wish& wish);

  // Each of them is wanted; the longest first: it is the rarest. What is nothing but marks is none.
  const std::vector<Term>& Terms() const { return terms_; }
  bool IsEmpty() const { return terms_.empty(); }
  VowelSigns Signs() const { return signs_; }

 private:
  std::vector<Term> terms_;
  VowelSigns signs_ = VowelSigns::kPassedOver;
};

std::u16string_view UnitsOf(const QString& text);

}  // namespace book
