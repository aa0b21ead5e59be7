#include "tests/support/export_desk.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/text/encoding.h"

namespace testing_support {
namespace {

namespace fs = std::filesystem;

std::string SectionOf(const std::string& header, const std::vector<std::string>& lines) {
  std::string section = "[ " + header + " ]\r\n";
  for (const std::string& line : lines) section += line + "\r\n";
  return section + "\r\n";
}

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

std::string ScriptOf(const ScriptSections& sections) {
  return SectionOf("Make Folder", sections.makeFolder) +
         SectionOf("Copy Folder", sections.copyFolder) + SectionOf("Copy File", sections.copyFile) +
         "[ End ]\r\n";
}

void ExportDesk::OpenProject(const std::string& script) {
  for (const char* name : {"TXT", "_xml", "IMG", "FlashIMG"}) {
    MakeFolders(std::string("Data/") + name);
  }
  Write("Data/TXT/A.htm", PageBytes(u"<pgTitle>الف</pgTitle>\r\n\r\n<pgMain>متن</pgMain>"));
  Write("Data/_xml/Index.xml", "an index");
  Write("Data/IMG/picture.jpg", "a picture");
  Write("Resources/Export.inf", script);
  Write("Resources/main.exe", "the viewer");
  Start();
  NewLines();
}

std::vector<std::string> ExportDesk::Export() {
  Robot::Click("Form1", "Command10");
  return BoxTexts();
}

std::map<std::string, std::string> ExportDesk::Tree(const std::string& below) const {
  std::map<std::string, std::string> tree;
  const fs::path top = HostPath(below);
  for (const auto& entry : fs::recursive_directory_iterator(top)) {
    const std::string name = entry.path().lexically_relative(top).string();
    tree[name] = entry.is_directory() ? "/" : BytesOf(entry.path());
  }
  return tree;
}

std::map<std::string, std::string> ExportDesk::TreeAround(const std::string& below) const {
  std::map<std::string, std::string> tree = Tree("");
  std::erase_if(tree, [&](const auto& entry) {
    return entry.first == "ZVL.txt" || entry.first == below || entry.first.starts_with(below + "/");
  });
  return tree;
}

std::string PageBytes(platform::TextView page) {
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(page);
}

}  // namespace testing_support
