#include "core/folder_chooser.h"

#include <utility>

#include "platform/files/paths.h"
#include "support/window_catalogue.h"

namespace core {

Form2::Form2(std::function<void()> upd) : Window(support::Form2Definition()), upd_(std::move(upd)) {
  Drive1.onChange = [this] { Drive1_Change(); };
  btn(0).onClick = [this] { btn_Click(); };
}

void Form2::PointAt(platform::TextView folder) {
  Load();
  Drive1.SetDrive(folder);
  Dir1.SetPath(folder);
}

void Form2::Drive1_Change() { Dir1.SetPath(platform::DoSlash(Drive1.Drive())); }

void Form2::btn_Click() {
  upd_();
  Hide();
}

}  // namespace core
