#include "support/help_window.h"

#include "core/book_places.h"
#include "core/numbers.h"
#include "platform/files/paths.h"
#include "support/window_catalogue.h"

namespace support {

Form4::Form4(core::Form1& form1)
    : Window(Form4Definition()), machine_(form1.TheMachine()), report_(form1) {}

void Form4::Form_Load() {
  report_.Catching(core::failure::kLoadHelp, [&] {
    Box1.SetLocked(true);
    fileSys = std::make_unique<platform::FileSystemObject>(machine_.files);
    const platform::Text guide = core::HelpFile(platform::DoSlash(machine_.programFolder));
    if (fileSys->FileExists(guide)) Box1.LoadFile(guide);
  });
}

void Form4::Form_Unload() { fileSys.reset(); }

}  // namespace support
