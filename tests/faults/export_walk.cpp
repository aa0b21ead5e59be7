#include "tests/faults/export_walk.h"

#include <stdexcept>

#include "tests/faults/places.h"
#include "tests/faults/program_folder.h"

namespace faults {

using testing_support::PageBytes;
using testing_support::Robot;

namespace {

const std::string kScript = testing_support::ScriptOf(
    {{"Data", "Data\\More"},
     {"TXT => Data\\TXT", "_xml => Data\\_xml", "IMG => Data\\IMG", "FlashIMG => Data\\FlashIMG"},
     {"main.exe => root", "img.bin => root\\Data"}});

ExportCourse Walk(ExportWalk::Found found) {
  ExportWalk walk(found);
  ExportCourse course;
  const std::string root = walk.NextRoot();
  walk.desk.files.onOperation = [&](const std::string& name) {
    const auto entries = walk.desk.LogLines();
    course.places.push_back(
        {WithoutFolder(name, walk.desk), entries.empty() ? "" : entries.back(), walk.TreeOf(root)});
  };
  if (walk.desk.Export() != std::vector{testing_support::BoxText(29)}) {
    throw std::runtime_error("The export fails where nothing else does");
  }
  course.whole = walk.TreeOf(root);
  return course;
}

bool IsBelow(const std::string& path, const std::string& folder) {
  return path == folder || path.starts_with(folder + "/");
}

}  // namespace

ExportWalk::ExportWalk(Found found) {
  CopyProgramFolder(desk.HostPath(""));
  desk.OpenProject(kScript);
  desk.Write("Data/TXT/B.htm", PageBytes(u"<pgTitle>b</pgTitle>\r\n\r\n<pgMain>text</pgMain>"));
  desk.Write("Resources/Default.html", PageBytes(u"<h1>%Title%</h1>%Matn%"));
  if (found == Found::kOlderExports) {
    for (const char* older : {"Export/Export 1", "Export/Export 3"}) {
      desk.MakeFolders(older);
      desk.Write(std::string(older) + "/main.exe", "an older viewer");
    }
  }
  desk.Write("Data/FlashIMG/Back.jpg", "an older background");
  desk.FillWithPath("Back", u"Resources\\MyBack.jpg");
  desk.FillWithPath("Mus1", u"Resources\\MySound1.mp3");
  desk.FillWithPath("Mus2", u"Resources\\MySound2.mp3");
  Robot::Click("Form1", "Pcheck");
}

std::string ExportWalk::NextRoot() const {
  int number = 1;
  while (desk.Has("Export/Export " + std::to_string(number))) ++number;
  return "Export/Export " + std::to_string(number);
}

Tree ExportWalk::TreeOf(const std::string& below) const {
  return desk.Has(below) ? desk.Tree(below) : Tree();
}

Tree ExportWalk::Around(const std::string& root) const {
  Tree tree = desk.Tree("..");
  std::erase_if(tree, [&](const auto& entry) {
    const std::string& path = entry.first;
    return IsBelow(path, "program/" + root) || path == "program/Export" ||
           path.ends_with("/ZVL.txt") || path.ends_with("/ZVL.log") ||
           (path.starts_with("program/Data/") && IsOfSettings(path));
  });
  return tree;
}

const ExportCourse& CourseOf(ExportWalk::Found found) {
  static std::map<ExportWalk::Found, ExportCourse> courses;
  const auto known = courses.find(found);
  return known != courses.end() ? known->second : courses.emplace(found, Walk(found)).first->second;
}

bool IsOfSettings(const std::string& path) {
  return path.ends_with("/CDProperty.xml") || path.find("FlashIMG/") != std::string::npos;
}

}  // namespace faults
