#include "recovery/rest_text.h"

#include <cstddef>

#include "platform/failure.h"

namespace recovery {

using platform::Position;
using platform::Text;
using platform::TextView;

namespace {

// Moves the last `count` characters of one text to the end of the other, turned round.
void Turn(Text& from, Text& to, std::size_t count) {
  to.append(from.rbegin(), from.rbegin() + static_cast<std::ptrdiff_t>(count));
  from.resize(from.size() - count);
}

}  // namespace

Position RestText::Length() const { return static_cast<Position>(before_.size() + after_.size()); }

void RestText::Change(Position start, Position removed, TextView added) {
  if (start < 0 || removed < 0 || start > Length() || removed > Length() - start) {
    throw platform::Failure(u"A change of what isn't there");
  }
  const auto place = static_cast<std::size_t>(start);
  if (place < before_.size()) {
    Turn(before_, after_, before_.size() - place);
  } else {
    Turn(after_, before_, place - before_.size());
  }
  after_.resize(after_.size() - static_cast<std::size_t>(removed));
  before_ += added;
}

Text RestText::Whole() const {
  Text whole;
  whole.reserve(before_.size() + after_.size());
  whole += before_;
  return whole.append(after_.rbegin(), after_.rend());
}

}  // namespace recovery
