#include "tests/faults/program_folder.h"

#include <filesystem>
#include <map>

#include "platform/text/encoding.h"
#include "tests/support/temporary_folder.h"

namespace faults {
namespace {

namespace fs = std::filesystem;

std::string TextFile(platform::TextView text) {
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text);
}

// A picture of one dot.
constexpr const char* kImageMark =
    "{\\rtf1{\\pict\\pngblip\\picw1\\pich1\\picwgoal15\\pichgoal15 "
    "89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000000c49444154"
    "789c63606060000000040001f61738550000000049454e44ae426082}}";

const std::map<std::string, std::string>& Files() {
  static const std::map<std::string, std::string> kFiles = {
      {"Resources/One.txt", "Name Main Head Text Next Other rest"},
      {"Resources/img.bin", kImageMark},
      {"Resources/CDProperty.xml", TextFile(u"<strings></strings>")},
      {"Resources/MyBook.jpg", "the picture of a collection"},
      {"Resources/MyBack.jpg", "the background of the book"},
      {"Resources/MySound1.mp3", "the first track"},
      {"Resources/MySound2.mp3", "the second track"},
      {"media/song.mp3", "the sound of an entry"},
      {"pictures/rose.gif", "the picture in a text"},
      {"former/TXT/OLD.htm", TextFile(u"<pgTitle>Old</pgTitle>\r\n")},
      {"former/IMG/old.jpg", "an older picture"},
      {"former/_xml/cTitle9.xml", TextFile(u"<Tree>\r\n</Tree>\r\n")},
      {"former/_xml/aTitle1.xml",
       TextFile(u"<?xml version=\"1.0\"?>\r\n<Tree>\r\nold\r\n</Tree>\r\n")},
      {"former/_xml/Index.xml",
       TextFile(u"<strings>\r\n\t<aTitle0>Designed by: Kelvar Media "
                u"(www.kelvar.example)</aTitle0>\r\n\t<cTitle9 vol=\"pic1\">Ninth</cTitle9>\r\n"
                u"\t<aTitle1 vol=\"txt\">Old name</aTitle1>\r\n")}};
  return kFiles;
}

class ProgramFolder {
 public:
  ProgramFolder() {
    for (const auto& [name, bytes] : Files()) {
      fs::create_directories(fs::path(folder_.HostPath(name)).parent_path());
      folder_.Write(platform::FromUtf8(name), bytes);
    }
  }
  const std::string& HostPath() const { return folder_.HostPath(); }

 private:
  testing_support::TemporaryFolder folder_;
};

}  // namespace

void CopyProgramFolder(const std::string& hostFolder) {
  static const ProgramFolder kFolder;
  fs::copy(kFolder.HostPath(), hostFolder, fs::copy_options::recursive);
}

std::string ProgramFile(const std::string& below) { return Files().at(below); }

}  // namespace faults
