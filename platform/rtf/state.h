// What a group of a rich text inherits from the group around it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/rtf/document.h"
#include "platform/rtf/font_page.h"
#include "platform/rtf/words.h"

namespace platform::rtf {

// Where text goes.
enum class Destination : std::uint8_t {
  kBody,
  kNowhere,       // a group inside may lead back to the body
  kAlternatives,  // \upr
  kFontTable,
  kColourTable,
  kFieldInstruction,
  kPicture,
  kShapeName,
  kShapeValue,
};

inline constexpr int kUnset = -1;

struct State {
  const FontPage* page = nullptr;  // that of the font in use
  int font = kUnset;
  int complexFont = kUnset;
  int doubleFont = kUnset;
  int foreground = 0;
  int background = 0;
  int halfPoints = 0;
  int complexHalfPoints = kUnset;
  int fallbackLength = 1;
  std::uint16_t styles = 0;
  FontSlot slot = FontSlot::kPlain;
  Destination destination = Destination::kBody;
  Alignment alignment = Alignment::kLeft;
  Direction direction = Direction::kLeftToRight;
};

// The groups that stand open. A group costs nothing until something in it changes the state: that
// keeps groups cheap, and a depth of millions too.
class GroupStack {
 public:
  explicit GroupStack(State state) : state_(state) {}

  const State& Now() const { return state_; }
  State& Change() {
    if (saved_.empty() || saved_.back().depth != depth_) saved_.push_back({state_, depth_});
    return state_;
  }
  std::size_t Depth() const { return depth_; }
  void Open() { ++depth_; }
  bool ClosingRestores() const { return !saved_.empty() && saved_.back().depth == depth_; }
  void Close() {
    if (ClosingRestores()) {
      state_ = saved_.back().state;
      saved_.pop_back();
    }
    --depth_;
  }

 private:
  struct Saved {
    State state;
    std::size_t depth;
  };

  State state_;
  std::vector<Saved> saved_;
  std::size_t depth_ = 0;
};

}  // namespace platform::rtf
