#include "workbench/build_pass.h"

#include <optional>
#include <string>

#include "core/book_places.h"
#include "core/numbers.h"
#include "platform/failure.h"
#include "platform/files/paths.h"
#include "platform/text/encoding.h"
#include "workbench/clean_up.h"
#include "workbench/stems.h"
#include "workbench/torn_index.h"

namespace workbench {

using platform::IoMode;
using platform::kCrLf;
using platform::Text;
using platform::TextFormat;
using platform::TextView;

BuildPass::BuildPass(BuildDesk& desk, const BuildOrder& order, platform::FileSystemObject& files,
                     platform::Clock& clock, platform::Random& random)
    : desk_(desk), order_(order), files_(files), clock_(clock), random_(random) {}

BuildPass::~BuildPass() {
  for (const Text& path : drawn_) {
    platform::Ignoring([&] { files_.Files().GiveUp(path); });
  }
}

void BuildPass::Run() {
  desk_.LogMe(u"Making Title...");
  if (!FoldersExist()) return;
  AddToIndex();
  if (!MakeRoom()) return;
  MakeCollection();
  WalkRows();
  AddToCollection(EndLine(order_.work.galleryMode));
  for (const Text& root : roots_) files_.Files().Flush(root);
  drawn_.clear();
  FinishInWindow();
  desk_.LogMe(u"Title is made.");
}

void BuildPass::FinishInWindow() {
  desk_.CollectionIsBuilt();
  desk_.MakeCombo();
  desk_.NameNevis();
  desk_.HideWorkbench();
  desk_.bepayam(core::message::kFileMade);
  desk_.FocusSelector();
  desk_.ResetA();
}

// One of the two is enough to go on.
bool BuildPass::FoldersExist() {
  const Vocabulary& words = order_.words;
  if (files_.FolderExists(core::ProjectFolder(Root(), words.xmlFolder)) ||
      files_.FolderExists(core::ProjectFolder(Root(), words.txtFolder))) {
    return true;
  }
  desk_.ShowNotice(u"Folder " + words.xmlFolder + u" or " + words.txtFolder + u" doesn't exist!");
  return false;
}

void BuildPass::AddToIndex() {
  const Text name = core::CollectionName(order_.rowLetter, order_.rowDigit);
  openTag_ = OpenTag(name, order_.work.galleryMode);
  closeTag_ = CloseTag(name);
  if (!files_.FileExists(IndexPath())) {
    WriteAnew(IndexPath(), IndexHead(order_.words.creditLine));
  } else {
    MendIndex();
  }
  NameCollection();
  AddToFile(IndexPath(), IndexLine(openTag_, RemCrLf(desk_.CollectionTitle()), closeTag_));
  // On the disk before the collection's file is made: after a power cut there is none of them
  // without its line.
  files_.Files().Flush(IndexPath());
}

// A power cut may have torn the index. Where an earlier build's lines are lost, one more at the end
// wouldn't bring them back.
void BuildPass::MendIndex() {
  const std::string bytes = ReadIndex();
  const std::optional<Text> mended =
      MendedIndex(bytes, IndexHead(order_.words.creditLine),
                  core::CollectionName(order_.rowLetter, order_.rowDigit));
  indexWasTorn_ = mended.has_value();
  if (mended) {
    WriteAnew(IndexPath(), *mended);
  } else if (files_.Files().IsLost(IndexPath())) {
    const auto file = files_.Files().Open(IndexPath(), platform::OpenMode::kReplace, false);
    file->Write(bytes);
    file->Close();
  }
}

// Its bytes, as the text service takes an empty file for a failure.
std::string BuildPass::ReadIndex() {
  const auto file = files_.Files().Open(IndexPath(), platform::OpenMode::kRead, false);
  std::string bytes = file->ReadAll();
  file->Close();
  return bytes;
}

void BuildPass::NameCollection() {
  if (!desk_.CollectionTitle().empty()) return;
  const Text name = platform::Replace(desk_.BookLabelCaption(), u"عنوان ", u"");
  desk_.SetCollectionTitle(platform::Replace(name, u":", u""));
}

bool BuildPass::MakeRoom() {
  if (!files_.FileExists(CollectionPath())) return true;
  Text question(u"فايلي با نام ");
  question.append(kCrLf)
      .append(core::CollectionFileName(order_.rowLetter, order_.rowDigit))
      .append(kCrLf)
      .append(u" در حال حاضر موجود است.\u200F")
      .append(kCrLf)
      .append(kCrLf)
      .append(u" آيا حذف شود؟");
  if (!desk_.AskYesNo(question)) return false;
  files_.Files().DeleteFile(CollectionPath());
  TakeOldLineOut();
  return true;
}

// The new line stands after the old one already, so the first line found is the old one.
void BuildPass::TakeOldLineOut() {
  const Text index = platform::DecodeUnicode(ReadIndex());
  // Of a line that was torn off there is nothing to take out.
  if (indexWasTorn_ && !HasTwoLines(index, openTag_)) return;
  WriteAnew(IndexPath(), WithoutOldLine(index, openTag_, closeTag_));
}

// Added to as soon as it is made: where the disk has no room for its head it stays all the same,
// unlike one written anew, so that the next build asks about it and takes this one's line out.
void BuildPass::MakeCollection() {
  const auto file = files_.Files().Open(CollectionPath(), platform::OpenMode::kAppend, true);
  std::string bytes(platform::kUtf16Mark);
  platform::AppendUtf16(bytes, HeadLines(order_.work.galleryMode));
  file->Write(bytes);
  file->Close();
  // At once: after a power cut the line without its file would be an old one of nobody's.
  files_.Files().Flush(CollectionPath());
}

void BuildPass::WalkRows() {
  for (std::ptrdiff_t row = 0; !RowEndsWalk(row); ++row) BuildRow(row);
}

bool BuildPass::RowEndsWalk(std::ptrdiff_t row) const {
  return order_.work.galleryMode ? order_.work.table.galleryPic(row, 0).empty()
                                 : order_.work.table.entryTitle(row).empty();
}

// Titles decide before the mode does: a marker row counts in a gallery, too.
void BuildPass::BuildRow(std::ptrdiff_t row) {
  const Text& title = order_.work.table.entryTitle(row);
  if (title == order_.mainMark) {
    BuildMainTitle(row);
  } else if (title == order_.mainEndMark) {
    BuildMainEnd();
  } else if (order_.work.galleryMode) {
    BuildGalleryPicture(row);
  } else if (order_.work.table.entryGallery(row)) {
    BuildGalleryEntry(row);
  } else {
    BuildTextEntry(row);
  }
}

void BuildPass::BuildMainTitle(std::ptrdiff_t row) {
  AddToCollection(MainTitleLine(depth_, RemCrLf(order_.work.table.entryText(row))));
  ++depth_;
}

void BuildPass::BuildMainEnd() {
  --depth_;
  AddToCollection(MainEndLine(depth_));
}

void BuildPass::BuildGalleryPicture(std::ptrdiff_t slot) {
  const Text& source = order_.work.table.galleryPic(slot, 0);
  if (source == gallery::kRemoved) return;
  const Text target = DrawStem([&] { return core::GalleryPicture(Root(), stem_); });
  AddToCollection(PictureLine(depth_, order_.work.table.galleryPic(slot, 1), stem_));
  files_.Files().CopyFile(source, target);
}

void BuildPass::BuildTextEntry(std::ptrdiff_t row) {
  const Vocabulary& words = order_.words;
  const EntryTable& table = order_.work.table;
  const Text page =
      DrawStem([&] { return core::PageFile(Root(), words.txtFolder, stem_, words.pageExt); });
  WriteAnew(page, {});
  AddToFile(page, PageText(row));
  AddNode(row, stem_ + u"." + words.pageExt, false);
  for (const core::MediumRow& each : core::kMedia) CopyMedium(table.Media(each.medium)(row));
}

Text BuildPass::PageText(std::ptrdiff_t row) {
  const Text& title = order_.work.table.entryTitle(row);
  const Text plain = desk_.ToTXT(order_.work.table.entryText(row));
  Text body = desk_.ToIMG(title == order_.identityWord ? SetShenas(plain, order_.words.identTag)
                                                       : SetMatn(plain, order_.words.mainTag));
  return body.insert(0, PageTitleLine(title, order_.words.pageTag));
}

void BuildPass::BuildGalleryEntry(std::ptrdiff_t row) {
  constexpr bool kGallery = true;
  const EntryTable& table = order_.work.table;
  const Text gallery = DrawStem([&] { return core::EntryGalleryFile(Root(), stem_); });
  const Text fileName = stem_ + u".xml";
  WriteAnew(gallery, HeadLines(kGallery));
  for (std::ptrdiff_t slot = 0;; ++slot) {
    const Text& source = table.entryGalPath(row, slot);
    // A picture that was taken out ends the list here, unlike in a collection's gallery.
    if (source.empty() || source == gallery::kRemoved) break;
    const Text target = DrawStem([&] { return core::GalleryPicture(Root(), stem_); });
    AddToFile(gallery, PictureLine(depth_, table.entryGalTitle(row, slot), stem_));
    files_.Files().CopyFile(source, target);
  }
  AddToFile(gallery, EndLine(kGallery));
  AddNode(row, fileName, kGallery);
}

// The background is named after the stem drawn last, which for a gallery is its last picture's.
void BuildPass::AddNode(std::ptrdiff_t row, TextView file, bool gallery) {
  const EntryTable& table = order_.work.table;
  const Text label = RemCrLf(table.entryTitle(row));
  const Text attachment = desk_.sndBin(table.entryAttach(row));
  const Text background = desk_.PasBin(table.entryBack(row), stem_);
  AddToCollection(NodeLine(depth_, {.title = label,
                                    .file = file,
                                    .gallery = gallery,
                                    .has = table.Attached(row),
                                    .attachment = attachment,
                                    .background = background}));
}

void BuildPass::CopyMedium(const Text& source) {
  if (source.empty()) return;
  const TextView extension = platform::DotExtension(source);
  drawn_.push_back(core::EntryMedium(Root(), order_.words.txtFolder, stem_, extension));
  files_.Files().CopyFile(source, drawn_.back());
}

template <typename Place>
Text BuildPass::DrawStem(Place place) {
  for (;;) {
    stem_ = NewN(clock_, random_);
    Text path = place();
    if (files_.FileExists(path)) continue;
    drawn_.push_back(path);
    return path;
  }
}

// Anew or in place of what is there; an empty text leaves a file with its mark alone.
void BuildPass::WriteAnew(TextView path, TextView text) {
  auto stream = files_.OpenTextFile(path, IoMode::kForWriting, true, TextFormat::kUnicode);
  if (!text.empty()) stream.Write(text);
  stream.Close();
}

void BuildPass::AddToFile(TextView path, TextView text) {
  auto stream = files_.OpenTextFile(path, IoMode::kForAppending, false, TextFormat::kUnicode);
  stream.Write(text);
  stream.Close();
}

void BuildPass::AddToCollection(TextView text) { AddToFile(CollectionPath(), text); }

Text BuildPass::Root() { return *roots_.insert(platform::DoSlash(desk_.ProjectFolder())).first; }

Text BuildPass::IndexPath() {
  return core::IndexFile(Root(), order_.words.xmlFolder, order_.words.indexFile);
}

Text BuildPass::CollectionPath() {
  return core::CollectionFile(Root(), order_.words.xmlFolder, order_.rowLetter, order_.rowDigit);
}

}  // namespace workbench
