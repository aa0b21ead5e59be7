// The pictures of the folder that the browsers show, both the same one.
#pragma once

#include <cstddef>

#include "platform/column.h"
#include "platform/files/file_system_object.h"
#include "platform/text/text.h"

namespace gallery {

struct FolderPictures {
  platform::Text galleryFolder;                // with or without a final "\"
  platform::Column<platform::Text> folderPic;  // file names, sorted without regard to case
  // How many names of folderPic belong to the folder. Those after them are an earlier folder's.
  std::ptrdiff_t folderPicCount = 0;

  // Lists the folder's files whose names end in "jpg", in whatever letters. Failure if the folder
  // can't be read.
  void Read(platform::FileSystemObject& fileSys);
};

// Whether a file's name, not its content, says that it is a picture for a gallery.
bool IsGalleryPicture(platform::TextView name);

// What a label shows of the folder's path: a longer one than `longest` characters by its drive,
// "..." and its end, one character more than that.
platform::Text ShownPath(platform::TextView path, platform::Position longest);

}  // namespace gallery
