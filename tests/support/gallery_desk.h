// The desk of an editor who chooses pictures for galleries.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "tests/support/format_desk.h"

namespace testing_support {

class GalleryDesk : public FormatDesk {
 public:
  using FormatDesk::FormatDesk;

  // A JPEG that can be shown, in the folder "Pictures" of the program folder or one of its own.
  void AddPicture(const std::string& name, const std::string& place = "Pictures", int width = 40,
                  int height = 30) const;
  void AddPictures(int count) const;  // p1.jpg, p2.jpg ...; at most 9
  // The bytes of a grey one of 20,000 by 20,000, in 5 MB.
  static std::string HugeJpeg();
  void AddHugePicture(const std::string& name, const std::string& place = "Pictures") const;

  // Opens a folder of the program folder in the window's browser, through the folder chooser.
  void OpenFolder(const QString& window, const QString& place = "Pictures");
  // Types a title, if there is one, and clicks the tick of a row.
  static void Tick(const QString& window, int row, const QString& title = {});
  // The file names that the browser's rows show; of a hidden row nothing.
  static std::vector<std::string> Names(const QString& window);
  // The rows that are ticked.
  static std::vector<int> Ticked(const QString& window);
  static std::string TitleOf(const QString& window, int row);
  static bool TitleIsOpen(const QString& window, int row);

  // The gallery files that builds made of entries, random names written as "S".
  std::vector<std::string> BuiltGalleries() const;

  // The path of a picture as the galleries hold it.
  platform::Text Picture(platform::TextView name, platform::TextView place = u"Pictures") const;
};

}  // namespace testing_support
