// Every path of a project's folder, of the book in it and of the files beside the program: made
// here and nowhere else, one function a kind of file.
//
// `root` is the project folder and `programRoot` the program folder, both with their final "\":
// the two windows add it by rules that differ for an empty text, so the caller does it. An empty
// root leaves a path that starts at the process's current folder. Folder and file names that the
// vocabulary record gives are handed in; arguments stand in the order in which the path shows them.
// None of these functions looks at the disk, and none fails.
#pragma once

#include "platform/text/text.h"

namespace core {

// Folders of the project. `name` is one that the vocabulary record gives.
platform::Text ProjectFolder(platform::TextView root, platform::TextView name);
platform::Text PictureFolder(platform::TextView root);  // IMG
platform::Text MediaFolder(platform::TextView root);    // FlashIMG

// What the settings are kept in.
platform::Text SettingsFile(platform::TextView root, platform::TextView txtFolder);
platform::Text BackgroundFile(platform::TextView root);
platform::Text FirstSoundFile(platform::TextView root);
platform::Text SecondSoundFile(platform::TextView root);

// "aTitle1" for row a, collection 1: names a collection's files and its element in the index file.
platform::Text CollectionName(platform::TextView letter, platform::TextView digit);
// "aTitle1.xml".
platform::Text CollectionFileName(platform::TextView letter, platform::TextView digit);
// The collection file, whose presence tells that the collection is built.
platform::Text CollectionFile(platform::TextView root, platform::TextView xmlFolder,
                              platform::TextView letter, platform::TextView digit);
platform::Text CollectionPicture(platform::TextView root, platform::TextView letter,
                                 platform::TextView digit);
platform::Text IndexFile(platform::TextView root, platform::TextView xmlFolder,
                         platform::TextView indexFile);

// What an entry is made of. `stem` is its random name, `extension` has its dot, `pageExt` has none.
platform::Text PageFile(platform::TextView root, platform::TextView txtFolder,
                        platform::TextView stem, platform::TextView pageExt);
platform::Text EntryMedium(platform::TextView root, platform::TextView txtFolder,
                           platform::TextView stem, platform::TextView extension);
// In "_xml" whatever the vocabulary record says.
platform::Text EntryGalleryFile(platform::TextView root, platform::TextView stem);
platform::Text GalleryPicture(platform::TextView root, platform::TextView stem);
platform::Text InlineImage(platform::TextView root, platform::TextView fileName);

// A path as the fields hold it, which may be relative to the program folder. Absolute is what has
// ":" as its second character, nothing else.
bool IsAbsolute(platform::TextView path);
platform::Text Absolute(platform::TextView programRoot, platform::TextView path);

// Files beside the program.
platform::Text LogFile(platform::TextView programRoot);
platform::Text ResourceFile(platform::TextView programRoot, platform::TextView name);
platform::Text DefaultSettingsFile(platform::TextView programRoot);
platform::Text ImageMarkFile(platform::TextView programRoot);  // the rich text of a picture's mark
platform::Text HelpFile(platform::TextView programRoot);
platform::Text ExportScriptFile(platform::TextView programRoot);
platform::Text PrintTemplateFile(platform::TextView programRoot);

}  // namespace core
