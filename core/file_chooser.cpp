#include "core/file_chooser.h"

#include <utility>

#include "platform/files/paths.h"
#include "support/window_catalogue.h"

namespace core {

Form5::Form5(std::function<void()> upd) : Window(support::Form5Definition()), upd_(std::move(upd)) {
  Drive1.onChange = [this] { Drive1_Change(); };
  Dir1.onChange = [this] { Dir1_Change(); };
  File1.onDoubleClick = [this] { btn_Click(); };
  btn(0).onClick = [this] { btn_Click(); };
}

void Form5::PointAt(platform::TextView folder, platform::TextView pattern) {
  Load();
  Drive1.SetDrive(folder);
  Dir1.SetPath(folder);
  File1.SetPath(folder);
  File1.SetPattern(pattern);
}

platform::Text Form5::File() const { return platform::DoSlash(File1.Path()) + File1.FileName(); }

void Form5::Drive1_Change() { Dir1.SetPath(platform::DoSlash(Drive1.Drive())); }

void Form5::Dir1_Change() { File1.SetPath(Dir1.Path()); }

void Form5::btn_Click() {
  upd_();
  Hide();
}

}  // namespace core
