// The settings file and the book's own media.
#include "core/book_places.h"
#include "core/joined.h"
#include "core/numbers.h"
#include "core/project_window.h"
#include "core/settings.h"
#include "platform/failure.h"

namespace core {

using platform::Ignoring;
using platform::IoMode;
using platform::Text;
using platform::TextFormat;
using platform::TextView;

Text Form1::OptionValue(std::int16_t option) {
  return OptionText(
      option,
      {.music = bMus(0).Value(), .firstPattern = Olgoo(0).Value(), .print = Pcheck.Value()});
}

Text Form1::SettingsOfFields() {
  return SettingsText({.aNumber = title.Text(),
                       .bNumber = matn.Text(),
                       .cNumber = shenas.Text(),
                       .pattern = OptionValue(1),
                       .music = OptionValue(0),
                       .print = OptionValue(2)});
}

void Form1::SaveThings() {
  LogMe(u"Saving settings...");
  // One statement: a file that could not be written whole must not be closed as if it were.
  Ignoring([&] {
    platform::TextStream file = FileSys().OpenTextFile(
        SettingsFile(BookRoot(), txtFolder), IoMode::kForWriting, true, TextFormat::kUnicode);
    file.Write(SettingsOfFields());
    file.Close();
  });
  Ignoring([&] { SaveMedium(Back.Text(), BackgroundFile(BookRoot())); });
  Ignoring([&] {
    if (bMus(0).Value()) SaveMedium(Mus1.Text(), FirstSoundFile(BookRoot()));
  });
  Ignoring([&] {
    if (bMus(0).Value()) SaveMedium(Mus2.Text(), SecondSoundFile(BookRoot()));
  });
  Ignoring([&] { machine_.files.Flush(BookRoot()); });
  LogMe(u"Settings saved.");
}

void Form1::SaveMedium(TextView source, TextView target) {
  if (!FileSys().FileExists(source)) return;
  Ignoring([&] {
    if (FileSys().FileExists(target)) machine_.files.DeleteFile(target);
  });
  Ignoring([&] { machine_.files.CopyFile(source, target); });
}

// No field takes anything from the file: the fields are what the editor sees, and a project is not
// restored by naming its folder. The log line is all the effect.
void Form1::ReadSett() {
  Catching(failure::kReadSettings, [&] {
    LogMe(u"Reading settings...");
    const Text path = SettingsFile(BookRoot(), txtFolder);
    if (FileSys().FileExists(path)) {
      ReadWhole(path);
      LogMe(Joined({u"Found in ", ProjectFolder(BookRoot(), txtFolder), u"."}));
    } else {
      ReadWhole(DefaultSettingsFile(ProgramRoot()));
      LogMe(Joined({u"Found in ", ProgramRoot(), u"Resources."}));
    }
    MakeCombo();
    LogMe(u"Settings read.");
  });
}

void Form1::ReadWhole(TextView path) {
  platform::TextStream file =
      FileSys().OpenTextFile(path, IoMode::kForReading, false, TextFormat::kUnicode);
  file.ReadAll();
  file.Close();
}

Text Form1::Wsre(TextView text, TextView tag) {
  Text found;
  Catching(failure::kReadTag, [&] { found = TaggedText(text, tag); });
  return found;
}

}  // namespace core
