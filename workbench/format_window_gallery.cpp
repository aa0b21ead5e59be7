// The picture galleries, of the collection in this window (0) and of one entry in the paragraph
// window (any other number), and the browsers from which they are chosen.
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "gallery/browser.h"
#include "workbench/format_window.h"

namespace workbench {

using platform::Text;
using platform::TextView;

namespace {

// How much of the folder's path the two labels show, in characters.
constexpr platform::Position kLongestPath = 120;

}  // namespace

gallery::Browser Form3::BrowserOf(int which) {
  if (which != 0) return Paragraph().Browser();
  return {IMF, IMG, IMJ, IMC, IMN, VSC, ShPath, kLongestPath};
}

gallery::Slots Form3::ChosenOf(int which) {
  return which == 0 ? table.galleryPic.Slots() : table.EntryGallery(editIndex);
}

// Before a folder is shown no row names a picture.
Text Form3::PictureRoot() {
  return pictures.galleryFolder.empty() ? Text() : DoSlash(pictures.galleryFolder);
}

void Form3::ShowFolder(int which, std::ptrdiff_t first) {
  gallery::Show(BrowserOf(which), first, pictures, PictureRoot(), ChosenOf(which));
}

void Form3::SetGalFol(TextView folder, int which) {
  pictures.galleryFolder = folder;
  GetFolInfo();
  ShowFolder(which, 0);
}

void Form3::GetFolInfo() {
  report_.LogMe(u"Getting folder pics...");
  pictures.Read(FileSys());
  report_.LogMe(u"Pics got.");
}

void Form3::ShowFol(std::ptrdiff_t first) { ShowFolder(0, first); }
void Form3::ShowFol2(std::ptrdiff_t first) { ShowFolder(1, first); }
void Form3::VSC_Change() { ShowFol(VSC.Value() - 1); }
void Form3::VSCchange() { ShowFol2(Paragraph().Browser().VSC.Value() - 1); }

void Form3::Command1_Click() {
  report_.Catching(core::failure::kPickGalleryFolder,
                   [&] { form1_.RequestFolder(u"FolPath", this); });
}

void Form3::ComClick() {
  report_.Catching(core::failure::kPickGalleryFolder,
                   [&] { form1_.RequestFolder(u"FolPath2", &Paragraph().TheWindow()); });
}

// The title is frozen as long as its picture is in the gallery.
void Form3::TickChanged(int which, std::ptrdiff_t row) {
  const gallery::Browser browser = BrowserOf(which);
  const bool chosen = browser.IMC(row).Value();
  chosen ? AddPicture(which, row) : RemovePicture(which, row);
  browser.IMN(row).SetEnabled(!chosen);
}

void Form3::IMC_MouseUp(std::ptrdiff_t row) {
  report_.Catching(core::failure::kTickPicture, [&] { TickChanged(0, row); });
}

void Form3::IMCmous(std::ptrdiff_t row) {
  report_.Catching(core::failure::kTickPicture, [&] { TickChanged(1, row); });
}

void Form3::AddPicture(int which, std::ptrdiff_t row) {
  report_.Catching(core::failure::kAddPicture, [&] {
    report_.LogMe(u"Adding a pic to the gallery...");
    gallery::AddRow(BrowserOf(which), row, DoSlash(pictures.galleryFolder), ChosenOf(which));
    report_.LogMe(u"Pic added.");
  });
}

void Form3::RemovePicture(int which, std::ptrdiff_t row) {
  report_.Catching(core::failure::kRemovePicture, [&] {
    report_.LogMe(u"Removing a pic of the gallery...");
    gallery::RemoveRow(BrowserOf(which), row, PictureRoot(), ChosenOf(which));
    report_.LogMe(u"Pic removed.");
  });
}

void Form3::AddPicGal(std::int16_t row) { AddPicture(0, row); }
void Form3::AddPicGal2(std::int16_t row) { AddPicture(1, row); }
void Form3::RemPicGal(std::int16_t row) { RemovePicture(0, row); }
void Form3::RemPicGal2(std::int16_t row) { RemovePicture(1, row); }

// One step beyond the last name, which adds the folder itself or a name of an earlier folder.
void Form3::SelAll_Click() {
  report_.Catching(core::failure::kAddPicture, [&] {
    report_.LogMe(u"Adding all pic to the gallery...");
    const Text root = DoSlash(pictures.galleryFolder);
    std::vector<Text> paths;
    for (std::ptrdiff_t i = 0; i <= pictures.folderPicCount; ++i) {
      paths.push_back(root + pictures.folderPic(i));
    }
    gallery::AddAll(ChosenOf(0), std::move(paths));
    report_.LogMe(u"All Pic added.");
  });
}

void Form3::RemGalAll(int which) { gallery::Clear(ChosenOf(which)); }

void Form3::RemFol(int which) { gallery::Blank(BrowserOf(which)); }

void Form3::ShowGalleryMode(bool on) {
  Com(static_cast<int>(Mark::kGalleryMode))
      .SetCaption(on ? TextView(u"حذف گالري تصوير") : TextView(u"ايجاد گالري تصوير"));
  Frame4.SetVisible(on);
  Label1.SetVisible(!on);
  Label3.SetVisible(!on);
  galleryMode = on;
}

// Com(12).
void Form3::SwitchGalleryMode() {
  ShowGalleryMode(!galleryMode);
  if (galleryMode) {
    SetGalFol(form1_.TheMachine().programFolder, 0);
  } else {
    RemGalAll(0);
  }
}

}  // namespace workbench
