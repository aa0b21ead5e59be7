#include "gallery/browser.h"

#include "support/window_catalogue.h"

namespace gallery {

using platform::Text;
using platform::TextView;

namespace {

// One picture less than this fits without scrolling.
constexpr std::ptrdiff_t kScrolls = support::kPictureCells + 1;

void SetScrollRange(platform::ScrollBar& bar, std::ptrdiff_t pictures) {
  if (pictures < kScrolls) {
    bar.SetMax(1);
    bar.SetSmallChange(1);
    bar.SetLargeChange(1);
    bar.SetValue(1);
  } else {
    // The last stop shows three pictures, with two rows free.
    bar.SetMax(static_cast<int>(pictures) - 2);
    bar.SetSmallChange(1);
    bar.SetLargeChange(support::kPictureCells);
  }
}

void ClearRow(const Browser& browser, int row) {
  browser.IMN(row).SetText(u"");
  browser.IMN(row).SetEnabled(true);
  browser.IMJ(row).SetCaption(u"");
  browser.IMC(row).SetValue(false);
}

Text PathOfRow(const Browser& browser, std::ptrdiff_t row, TextView root) {
  return Text(root) + browser.IMJ(row).Caption();
}

void ShowRow(const Browser& browser, int row, const Text& name, TextView root,
             const Slots& chosen) {
  browser.IMF(row).SetVisible(true);
  browser.IMJ(row).SetCaption(name);
  const Text path = Text(root) + name;
  browser.IMG(row).LoadPicture(path);
  const std::ptrdiff_t slot = Find(chosen, path);
  if (slot == kNoSlot) return;
  browser.IMC(row).SetValue(true);
  if (!chosen.titles(slot).empty()) browser.IMN(row).SetText(chosen.titles(slot));
  browser.IMN(row).SetEnabled(false);
}

}  // namespace

void Show(const Browser& browser, std::ptrdiff_t first, const FolderPictures& folder, TextView root,
          const Slots& chosen) {
  SetScrollRange(browser.VSC, folder.folderPicCount);
  for (int row = 0; row < support::kPictureCells; ++row) ClearRow(browser, row);
  browser.ShPath.SetCaption(ShownPath(folder.galleryFolder, browser.longestPath));
  for (int row = 0; row < support::kPictureCells; ++row) {
    const std::ptrdiff_t index = first + row;
    if (index >= folder.folderPicCount) {
      browser.IMF(row).SetVisible(false);
    } else {
      ShowRow(browser, row, folder.folderPic(index), root, chosen);
    }
  }
}

void Blank(const Browser& browser) {
  for (int row = 0; row < support::kPictureCells; ++row) {
    browser.IMG(row).ClearPicture();
    browser.IMC(row).SetValue(false);
    browser.IMN(row).SetText(u"");
    browser.IMJ(row).SetCaption(u"");
  }
  browser.VSC.SetValue(1);
}

void AddRow(const Browser& browser, std::ptrdiff_t row, TextView root, const Slots& chosen) {
  Add(chosen, PathOfRow(browser, row, root), browser.IMN(row).Text());
}

void RemoveRow(const Browser& browser, std::ptrdiff_t row, TextView root, const Slots& chosen) {
  if (!Remove(chosen, PathOfRow(browser, row, root))) return;
  browser.IMN(row).SetText(u"");
  browser.IMN(row).SetEnabled(true);
}

}  // namespace gallery
