#include "workbench/inline_images.h"

#include <optional>
#include <unordered_map>

#include "platform/failure.h"

namespace workbench {

using platform::Column;
using platform::Failure;
using platform::Text;
using platform::TextView;

namespace {

// Literals, whatever the paragraphs' tag is.
constexpr TextView kOpens = u"<pgMain> {";
constexpr TextView kCloses = u"}</pgMain>";

// By what stands between the two ends of a mark: "1" and "01" are two marks of one picture. The
// keys are parts of the text.
using Tags = std::unordered_map<TextView, Text>;

// The first `what` at or after `from`, counted from 0; npos where there is none.
std::size_t Find(TextView text, TextView what, std::size_t from) {
  const platform::Position at =
      platform::InStr(text, what, static_cast<platform::Position>(from) + 1);
  return at == 0 ? TextView::npos : static_cast<std::size_t>(at) - 1;
}

// Goes through a text from one mark's beginning to the next. No end of a mark overlaps itself or
// another, so nothing is looked at twice.
class MarkWalk {
 public:
  explicit MarkWalk(TextView text) : text_(text) {
    next_ = Find(text_, kOpens, 0);
    Next();
  }

  bool AtMark() const { return start_ != TextView::npos; }
  void Next() {
    start_ = next_;
    if (!AtMark()) return;
    number_ = start_ + kOpens.size();
    next_ = Find(text_, kOpens, number_);
    if (close_ < number_) close_ = Find(text_, kCloses, number_);
  }

  std::size_t Start() const { return start_; }
  std::size_t End() const { return close_ + kCloses.size(); }
  bool IsClosed() const { return close_ != TextView::npos; }
  // Another mark begins before this one ends: what lies between can't be a number.
  bool HoldsAnother() const { return next_ < close_; }
  TextView Number() const { return text_.substr(number_, close_ - number_); }

 private:
  TextView text_;
  std::size_t start_ = 0;
  std::size_t number_ = 0;
  std::size_t close_ = 0;
  std::size_t next_ = 0;
};

// Fills `tags` as far as nothing fails.
void LearnTags(TextView text, const Column<Text>& inlineImage, const BringImage& bring,
               Tags& tags) {
  for (MarkWalk mark(text); mark.AtMark(); mark.Next()) {
    if (!mark.IsClosed()) throw Failure(u"Invalid procedure call: an image mark isn't closed");
    const TextView number = mark.Number();
    if (tags.contains(number)) continue;
    const Text& source = inlineImage(platform::ToInt16(number));
    const TextView name = platform::After(source, u"\\");
    bring(source, name);
    tags.emplace(number, Text(u"<IMG src=\"Data/IMG/").append(name).append(u"\">"));
    // Such a name would be read as the next mark, one without a number.
    if (name.find(kOpens) != TextView::npos) throw Failure(u"Type mismatch: an image's name");
  }
}

Text WithTags(TextView text, const Tags& tags) {
  Text result;
  result.reserve(text.size());
  std::size_t done = 0;
  for (MarkWalk mark(text); mark.AtMark(); mark.Next()) {
    if (!mark.IsClosed() || mark.HoldsAnother()) continue;
    const auto tag = tags.find(mark.Number());
    if (tag == tags.end()) continue;
    result.append(text.substr(done, mark.Start() - done)).append(tag->second);
    done = mark.End();
  }
  return result.append(text.substr(done));
}

}  // namespace

bool PutImageTags(Text& text, const Column<Text>& inlineImage, const BringImage& bring) {
  Tags tags;
  // A tag that is known takes the place of its mark everywhere, also after a mark that fails.
  std::optional<Text> failed;
  platform::CatchingFailure([&] { LearnTags(text, inlineImage, bring, tags); },
                            [&](const Text& description) { failed = description; });
  if (!tags.empty()) text = WithTags(text, tags);
  if (failed) throw Failure(*failed);
  return !tags.empty();
}

std::optional<platform::Position> EndOfParagraphBefore(TextView text, platform::Position caret) {
  std::optional<platform::Position> end;
  platform::Position at = 0;
  for (std::size_t i = 0; i < text.size() && at < caret; ++at) {
    const bool paragraphEnds = text.substr(i, platform::kCrLf.size()) == platform::kCrLf;
    if (paragraphEnds) end = at;
    i += paragraphEnds ? platform::kCrLf.size() : 1;
  }
  return end;
}

void CopyIfMissing(platform::FileSystem& files, TextView source, TextView target) {
  const bool isThere = files.FileExists(target) && !files.IsLost(target);
  if (!isThere && files.FileExists(source)) files.CopyFile(source, target);
}

}  // namespace workbench
