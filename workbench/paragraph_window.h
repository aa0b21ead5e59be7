// What the workbench asks of the window in which one row of the entry table is edited. The
// workbench fills that window and reads it back; main.cpp hands in the real one.
#pragma once

#include "core/entry_media.h"
#include "gallery/browser.h"
#include "platform/windows/controls.h"
#include "platform/windows/rich_text_box.h"
#include "platform/windows/window.h"

namespace workbench {

// The controls that mirror a row.
struct ParagraphFields {
  platform::TextBox& bname;
  platform::RichTextBox& matn;
  core::PerMedium<platform::TextBox*> paths;  // null for the background, which is the picture's tag
  platform::ImageBox& Image1;
  platform::Frame& Frame4;

  platform::Text Path(core::Medium medium) const {
    return paths[medium] != nullptr ? paths[medium]->Text() : Image1.Tag();
  }
  void SetPath(core::Medium medium, platform::TextView path) const {
    paths[medium] != nullptr ? paths[medium]->SetText(path) : Image1.SetTag(path);
  }
};

class ParagraphWindow {
 public:
  ParagraphWindow() = default;
  ParagraphWindow(const ParagraphWindow&) = delete;
  ParagraphWindow& operator=(const ParagraphWindow&) = delete;
  virtual ~ParagraphWindow() = default;

  virtual platform::Window& TheWindow() = 0;
  virtual ParagraphFields Fields() = 0;
  virtual gallery::Browser Browser() = 0;
  // As if its gallery button, number 5, were pressed; catches its own failures.
  virtual void ToggleGallery() = 0;
};

}  // namespace workbench
