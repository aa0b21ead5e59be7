#include "core/book_places.h"

#include "core/joined.h"

namespace core {

namespace {

using platform::Text;
using platform::TextView;

constexpr TextView kPictureFolder = u"IMG";
constexpr TextView kMediaFolder = u"FlashIMG";
constexpr TextView kGalleryFolder = u"_xml";

}  // namespace

Text ProjectFolder(TextView root, TextView name) { return Joined({root, name}); }

Text PictureFolder(TextView root) { return Joined({root, kPictureFolder}); }

Text MediaFolder(TextView root) { return Joined({root, kMediaFolder}); }

Text SettingsFile(TextView root, TextView txtFolder) {
  return Joined({root, txtFolder, u"\\CDProperty.xml"});
}

Text BackgroundFile(TextView root) { return Joined({root, kMediaFolder, u"\\Back.jpg"}); }

Text FirstSoundFile(TextView root) { return Joined({root, kMediaFolder, u"\\Sound1.mp3"}); }

Text SecondSoundFile(TextView root) { return Joined({root, kMediaFolder, u"\\Sound2.mp3"}); }

Text CollectionName(TextView letter, TextView digit) { return Joined({letter, u"Title", digit}); }

Text CollectionFileName(TextView letter, TextView digit) {
  return Joined({letter, u"Title", digit, u".xml"});
}

Text CollectionFile(TextView root, TextView xmlFolder, TextView letter, TextView digit) {
  return Joined({root, xmlFolder, u"\\", CollectionFileName(letter, digit)});
}

Text CollectionPicture(TextView root, TextView letter, TextView digit) {
  return Joined({root, kPictureFolder, u"\\", CollectionName(letter, digit), u".jpg"});
}

Text IndexFile(TextView root, TextView xmlFolder, TextView indexFile) {
  return Joined({root, xmlFolder, u"\\", indexFile});
}

Text PageFile(TextView root, TextView txtFolder, TextView stem, TextView pageExt) {
  return Joined({root, txtFolder, u"\\", stem, u".", pageExt});
}

Text EntryMedium(TextView root, TextView txtFolder, TextView stem, TextView extension) {
  return Joined({root, txtFolder, u"\\", stem, extension});
}

Text EntryGalleryFile(TextView root, TextView stem) {
  return Joined({root, kGalleryFolder, u"\\", stem, u".xml"});
}

Text GalleryPicture(TextView root, TextView stem) {
  return Joined({root, kPictureFolder, u"\\", stem, u".jpg"});
}

Text InlineImage(TextView root, TextView fileName) {
  return Joined({root, kPictureFolder, u"\\", fileName});
}

bool IsAbsolute(TextView path) { return path.size() > 1 && path[1] == u':'; }

Text Absolute(TextView programRoot, TextView path) {
  return IsAbsolute(path) ? Text(path) : Joined({programRoot, path});
}

Text LogFile(TextView programRoot) { return Joined({programRoot, u"ZVL.txt"}); }

Text ResourceFile(TextView programRoot, TextView name) {
  return Joined({programRoot, u"Resources\\", name});
}

Text DefaultSettingsFile(TextView programRoot) {
  return ResourceFile(programRoot, u"CDProperty.xml");
}

Text ImageMarkFile(TextView programRoot) { return ResourceFile(programRoot, u"img.bin"); }

Text HelpFile(TextView programRoot) { return ResourceFile(programRoot, u"Help.rtf"); }

Text ExportScriptFile(TextView programRoot) { return ResourceFile(programRoot, u"Export.inf"); }

Text PrintTemplateFile(TextView programRoot) { return ResourceFile(programRoot, u"Default.html"); }

}  // namespace core
