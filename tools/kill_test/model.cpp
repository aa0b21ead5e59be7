#include "tools/kill_test/model.h"

#include <algorithm>
#include <array>

#include "platform/text/text.h"
#include "tools/kill_test/screen.h"
#include "workbench/clean_up.h"
#include "workbench/paragraphs.h"

namespace kill_test {

using platform::Text;

namespace {

constexpr const char* kMainMark = ">>> تيتر اصلي";
constexpr const char* kMainEndMark = ">>> پايان تيتر";
constexpr const char* kIdentity = "شناسنامه";
constexpr const char* kRemoved = "Removed";

std::string WithBreaks(const Text& text) {
  return platform::ToUtf8(platform::Replace(text, u"\n", platform::kCrLf));
}

// Takes a picture out, or puts it into the first place that holds none.
void Tick(std::vector<std::string>& pictures, int number) {
  const std::string picture = "p" + std::to_string(number + 1) + ".jpg";
  const auto found = std::ranges::find(pictures, picture);
  const auto free = std::ranges::find(pictures, kRemoved);
  if (found != pictures.end()) {
    *found = kRemoved;
  } else if (free != pictures.end()) {
    *free = picture;
  } else {
    pictures.push_back(picture);
  }
}

// Whether it takes the passage that is selected out of the text.
bool IsOfPassage(Deed deed) {
  constexpr std::array kDeedsOfPassages = {Deed::kTitle,   Deed::kTitleInBrackets, Deed::kIdentity,
                                           Deed::kHeading, Deed::kHeadingText,     Deed::kMainTitle,
                                           Deed::kDelete};
  return std::ranges::find(kDeedsOfPassages, deed) != kDeedsOfPassages.end();
}

}  // namespace

std::string Describe(const Shown& shown) {
  std::string all = "title " + shown.title + "\ncount " + std::to_string(shown.count) + ", open " +
                    std::to_string(shown.mainOpen) + ", images " + std::to_string(shown.images) +
                    (shown.galleryMode ? ", gallery" : "") + "\n";
  for (const ModelRow& row : shown.rows) {
    all +=
        "row " + Bare(row.title) + " => " + Bare(row.text) + (row.attached ? " +file" : "") + "\n";
  }
  for (const auto& [row, is] : shown.isGallery) {
    if (is) all += "is a gallery: " + std::to_string(row) + "\n";
  }
  for (const auto& [row, pictures] : shown.gallery) {
    for (const std::string& slot : pictures)
      all += "of " + std::to_string(row) + ": " + slot + "\n";
  }
  for (const std::string& slot : shown.chosen) all += "chosen: " + slot + "\n";
  return all + "rest " + shown.rest;
}

Model::Model(unsigned seed, Text inputText) : random_(seed), input_(std::move(inputText)) {}

std::string Model::Described() const {
  return Describe({.rows = rows_,
                   .count = count_,
                   .mainOpen = mainOpen_,
                   .images = images_,
                   .galleryMode = galleryMode_,
                   .title = title_,
                   .rest = platform::ToUtf8(rest_),
                   .isGallery = isGallery_,
                   .gallery = gallery_,
                   .chosen = chosen_});
}

std::string Model::OnScreen() const {
  ScreenState state{.title = title_,
                    .mainOpen = mainOpen_,
                    .isGallery = galleryMode_,
                    .rest = platform::ToUtf8(rest_)};
  state.titles = lines_;
  return Describe(state);
}

Operation Model::Next() {
  Operation operation = Choose();
  while (!IsPossible(operation)) operation = Choose();
  CarryOut(operation);
  return operation;
}

Operation Model::Choose() {
  // A text that was only opened would be nobody's work.
  if (!isOpened_) return {.deed = Deed::kOpenText, .word = "first"};
  Operation operation{.deed = static_cast<Deed>(Below(kDeeds))};
  // Headings and their texts are what an editor files most.
  if (Below(3) == 0) operation.deed = IsPending() ? Deed::kHeadingText : Deed::kHeading;
  if (IsOfPassage(operation.deed)) Select(operation);
  if (operation.deed != Deed::kOpenText) operation.word = "w" + std::to_string(Below(1000));
  operation.row = Below(std::max(static_cast<int>(rows_.size()), 1));
  if (operation.deed == Deed::kEntryPicture || operation.deed == Deed::kGalleryPicture) {
    operation.length = Below(kPictures);
  }
  if (operation.deed == Deed::kTypeText) {
    operation.from = Below(static_cast<int>(std::min<std::size_t>(rest_.size(), 200)) + 1);
  }
  return operation;
}

// The first paragraph that isn't empty, with its end.
void Model::Select(Operation& operation) const {
  const std::size_t text = rest_.find_first_not_of(u"\n ");
  if (text == Text::npos) return;
  const std::size_t end = rest_.find(u'\n', text);
  operation.length = static_cast<int>(end == Text::npos ? rest_.size() : end + 1);
}

bool Model::IsPossible(const Operation& operation) const {
  if (IsOfPassage(operation.deed) && operation.length == 0) return false;
  switch (operation.deed) {
    // A text that was only opened is nobody's work, and takes the place of what was.
    case Deed::kOpenText:
      return !isOpened_ || !title_.empty();
    case Deed::kHeadingText:
      return IsPending();
    case Deed::kMainTitleEnd:
      return mainOpen_ > 0;
    case Deed::kRebuild:
      return !rest_.empty();
    case Deed::kEditTitle:
    case Deed::kPictureInText:
    case Deed::kAttach:
    case Deed::kDeleteRow:
    case Deed::kEntryPicture:
      return CanBeOpened(operation);
    case Deed::kGalleryPicture:
      return galleryMode_;
    default:
      return true;
  }
}

// Main titles' texts are plain, and their titles and those of identities are locked.
bool Model::CanBeOpened(const Operation& operation) const {
  if (operation.row >= static_cast<int>(rows_.size())) return false;
  // A heading that goes before it has its text takes one off the count, and below 0 nothing is left
  // to be filed.
  if (operation.deed == Deed::kDeleteRow && count_ == 0) return false;
  const std::string& title = rows_[static_cast<std::size_t>(operation.row)].title;
  if (title == kMainEndMark) return false;
  if (operation.deed == Deed::kEditTitle) return title != kMainMark && title != kIdentity;
  return operation.deed != Deed::kPictureInText || title != kMainMark;
}

std::string Model::Passage(const Operation& operation) const {
  return WithBreaks(rest_.substr(0, static_cast<std::size_t>(operation.length)));
}

void Model::CarryOut(const Operation& operation) {
  switch (operation.deed) {
    case Deed::kOpenText:
      rest_ = platform::FromUtf8(operation.word) + input_;
      isOpened_ = true;
      return;
    case Deed::kTypeTitle:
      title_ = operation.word;
      return;
    case Deed::kTypeText:
      rest_.insert(static_cast<std::size_t>(operation.from), platform::FromUtf8(operation.word));
      return;
    case Deed::kRebuild: {
      const Text plain = platform::Replace(rest_, u"\n", platform::kCrLf);
      rest_ = platform::Replace(workbench::RebuildParagraphs(plain, {}), platform::kCrLf, u"\n");
      return;
    }
    case Deed::kMainTitleEnd:
      AddLine(kMainEndMark);
      RowInHand().text = lastMain_;
      ++count_;
      --mainOpen_;
      return;
    case Deed::kGalleryMode:
      galleryMode_ = !galleryMode_;
      if (!galleryMode_) chosen_.clear();
      return;
    case Deed::kGalleryPicture:
      return Tick(chosen_, operation.length);
    default:
      return IsOfPassage(operation.deed) ? FilePassage(operation) : CarryOutOnRow(operation);
  }
}

// Row `count_`: that of a heading without its text, whatever else it holds, or a new one.
ModelRow& Model::RowInHand() {
  if (!IsPending()) rows_.emplace_back();
  return rows_[static_cast<std::size_t>(count_)];
}

void Model::AddLine(const std::string& title) {
  RowInHand().title = title;
  lines_.insert(lines_.begin() + count_, title);
}

void Model::FilePassage(const Operation& operation) {
  const std::string passage = Passage(operation);
  rest_.erase(0, static_cast<std::size_t>(operation.length));
  switch (operation.deed) {
    case Deed::kTitle:
      title_ += (title_.empty() ? "" : " ") + passage;
      return;
    case Deed::kTitleInBrackets:
      title_ += " (" + passage + ")";
      return;
    case Deed::kHeading:
      return AddLine(passage);
    case Deed::kHeadingText:
      RowInHand().text = passage;
      ++count_;
      return;
    case Deed::kIdentity:
      AddLine(kIdentity);
      RowInHand().text = passage;
      ++count_;
      return;
    case Deed::kMainTitle:
      AddLine(kMainMark);
      RowInHand().text = passage;
      lastMain_ = passage;
      ++count_;
      ++mainOpen_;
      return;
    default:
      return;
  }
}

void Model::CarryOutOnRow(const Operation& operation) {
  const auto index = static_cast<std::size_t>(operation.row);
  ModelRow& row = rows_[index];
  if (operation.deed == Deed::kEditTitle) row.title = operation.word;
  // What is kept writes the row's line anew.
  lines_[index] = row.title;
  switch (operation.deed) {
    case Deed::kAttach:
      row.attached = true;
      return;
    case Deed::kPictureInText:
      row.text = "{" + std::to_string(images_++) + "}" + row.text;
      return;
    case Deed::kEntryPicture:
      isGallery_[operation.row] = true;
      return Tick(gallery_[operation.row], operation.length);
    // Galleries stay at their row numbers, and the paragraph window, shown once more before it
    // closes, empties the one that it has in view.
    case Deed::kDeleteRow:
      rows_.erase(rows_.begin() + operation.row);
      lines_.erase(lines_.begin() + operation.row);
      --count_;
      if (isGallery_[operation.row]) gallery_[operation.row].clear();
      return;
    default:
      return;
  }
}

}  // namespace kill_test
