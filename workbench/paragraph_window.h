// What the workbench asks of the window in which one row of the entry table is edited. The
// workbench fills that window and reads it back; main.cpp hands in the real one.
#pragma once

#include "gallery/browser.h"
#include "platform/controls.h"
#include "platform/rich_text_box.h"
#include "platform/window.h"

namespace workbench {

// The controls that mirror a row.
struct ParagraphFields {
  platform::TextBox& bname;
  platform::RichTextBox& matn;
  platform::TextBox& picB;
  platform::TextBox& soutB;
  platform::TextBox& filmB;
  platform::ImageBox& Image1;
  platform::Frame& Frame4;
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
