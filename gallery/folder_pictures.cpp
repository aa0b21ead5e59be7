#include "gallery/folder_pictures.h"

#include <utility>

namespace gallery {

using platform::Position;
using platform::Text;
using platform::TextView;

void FolderPictures::Read(platform::FileSystemObject& fileSys) {
  std::vector<Text> names = fileSys.FileNames(galleryFolder);
  folderPicCount = 0;
  for (Text& name : names) {
    if (IsGalleryPicture(name)) folderPic.Set(folderPicCount++, std::move(name));
  }
}

bool IsGalleryPicture(TextView name) {
  return platform::LCase(platform::After(name, u".")) == platform::LCase(u"JPG");
}

Text ShownPath(TextView path, Position longest) {
  constexpr Position kHead = 3;
  constexpr TextView kGap = u"...";
  const auto length = static_cast<Position>(path.size());
  if (length <= longest) return Text(path);
  const Position tail = length - longest + kHead + static_cast<Position>(kGap.size());
  return Text(platform::Left(path, kHead)).append(kGap).append(platform::Mid(path, tail));
}

}  // namespace gallery
