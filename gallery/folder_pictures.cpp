#include "gallery/folder_pictures.h"

#include <utility>

namespace gallery {

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
  return platform::LCase(platform::Behind(name, u".")) == platform::LCase(u"JPG");
}

}  // namespace gallery
