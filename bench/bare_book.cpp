#include "bench/bare_book.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "bench/work_folder.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMark = "\xFF\xFE";
constexpr std::string_view kLineEnd{"\r\0\n\0", 4};
constexpr mode_t kMode = 0666;

[[noreturn]] void Complain(const std::string& path) {
  throw std::runtime_error("the bare loop fails at " + path);
}

// Reading back.

std::string WithoutMark(const std::string& path) {
  const std::string bytes = ReadFile(path);
  if (!bytes.starts_with(kMark)) Complain(path);
  return bytes.substr(kMark.size());
}

// The lines with their ends.
std::vector<std::string> Lines(const std::string& bytes) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = bytes.find(kLineEnd, at);
    if (end == std::string::npos) throw std::runtime_error("a line without an end");
    lines.push_back(bytes.substr(at, end + kLineEnd.size() - at));
    at = end + kLineEnd.size();
  }
  return lines;
}

// The page's name in a line of the collection file, without its ending; empty where there is none.
std::string StemIn(const std::string& line) {
  std::string narrow;
  for (std::size_t i = 0; i < line.size(); i += 2) narrow += line[i];
  constexpr std::string_view kBefore = "src=\"DATA/TXT/";
  const std::size_t at = narrow.find(kBefore);
  if (at == std::string::npos) return {};
  const std::size_t start = at + kBefore.size();
  return narrow.substr(start, narrow.find('.', start) - start);
}

std::string PagePath(const std::string& folder, const std::string& stem) {
  return folder + "/TXT/" + stem + ".htm";
}
std::string IndexPath(const std::string& folder) { return folder + "/_xml/Index.xml"; }
std::string CollectionPath(const std::string& folder) { return folder + "/_xml/aTitle1.xml"; }

// Making.

bool Exists(const std::string& path) {
  struct stat known {};
  return ::stat(path.c_str(), &known) == 0;
}

void WriteAndClose(int file, std::string_view bytes, const std::string& path) {
  if (file < 0) Complain(path);
  const ssize_t written = ::write(file, bytes.data(), bytes.size());
  if (written != static_cast<ssize_t>(bytes.size())) Complain(path);
  if (::close(file) != 0) Complain(path);
}

void Make(const std::string& path, std::string_view bytes) {
  WriteAndClose(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode), bytes, path);
}

void Add(const std::string& path, std::string_view bytes) {
  WriteAndClose(::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC), bytes, path);
}

void Copy(const std::string& source, const std::string& target) {
  const int from = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
  const int to = ::open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode);
  struct stat known {};
  if (from < 0 || to < 0 || ::fstat(from, &known) != 0) Complain(target);
  for (off_t left = known.st_size; left > 0;) {
    const ssize_t count =
        ::copy_file_range(from, nullptr, to, nullptr, static_cast<std::size_t>(left), 0);
    if (count <= 0) Complain(target);
    left -= count;
  }
  ::close(from);
  if (::close(to) != 0) Complain(target);
}

void FlushFile(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0 || ::fsync(file) != 0 || ::close(file) != 0) Complain(path);
}

// With its name.
void FlushOfXml(const std::string& path, const std::string& folder) {
  FlushFile(path);
  FlushFile(folder + "/_xml");
}

void FlushDisk(const std::string& folder) {
  const int opened = ::open(folder.c_str(), O_RDONLY | O_CLOEXEC);
  if (opened < 0 || ::syncfs(opened) != 0 || ::close(opened) != 0) Complain(folder);
}

void MakeEntry(const BareStep& step, const std::string& folder) {
  const std::string page = PagePath(folder, step.stem);
  if (Exists(page)) Complain(page);
  Make(page, kMark);
  Add(page, step.page);
}

void CopyMedia(const BareStep& step, const std::string& folder) {
  for (const BareMedium& medium : step.media) {
    Copy(medium.source, folder + "/TXT/" + step.stem + medium.extension);
  }
}

void MakeIndex(const BareBook& book, const std::string& folder) {
  const std::string index = IndexPath(folder);
  if (!Exists(folder + "/_xml") || Exists(index)) Complain(index);
  Make(index, std::string(kMark) + book.indexHead);
  Add(index, book.indexLine);
  FlushOfXml(index, folder);
}

}  // namespace

BareBook ReadBook(const std::string& projectFolder,
                  const std::vector<std::vector<BareMedium>>& media) {
  BareBook book;
  const std::vector<std::string> index = Lines(WithoutMark(IndexPath(projectFolder)));
  book.indexLine = index.back();
  for (std::size_t i = 0; i + 1 < index.size(); ++i) book.indexHead += index[i];
  const std::vector<std::string> lines = Lines(WithoutMark(CollectionPath(projectFolder)));
  book.collectionHead = lines.at(0) + lines.at(1);
  book.collectionEnd = lines.back();
  std::size_t entries = 0;
  for (std::size_t i = 2; i + 1 < lines.size(); ++i) {
    BareStep step{lines[i], StemIn(lines[i]), {}, {}};
    if (!step.stem.empty()) {
      step.page = WithoutMark(PagePath(projectFolder, step.stem));
      if (entries < media.size()) step.media = media[entries];
      ++entries;
    }
    book.steps.push_back(std::move(step));
  }
  return book;
}

void MakeBook(const BareBook& book, const std::string& projectFolder) {
  MakeIndex(book, projectFolder);
  const std::string collection = CollectionPath(projectFolder);
  if (Exists(collection)) Complain(collection);
  Make(collection, std::string(kMark) + book.collectionHead);
  FlushOfXml(collection, projectFolder);
  for (const BareStep& step : book.steps) {
    if (!step.stem.empty()) MakeEntry(step, projectFolder);
    Add(collection, step.line);
    CopyMedia(step, projectFolder);
  }
  Add(collection, book.collectionEnd);
  FlushDisk(projectFolder);
}

Extent ExtentOf(const std::string& projectFolder) {
  Extent extent;
  for (const char* name : {"/TXT", "/_xml"}) {
    for (const fs::directory_entry& entry : fs::directory_iterator(projectFolder + name)) {
      if (entry.path().filename() == "CDProperty.xml") continue;
      ++extent.files;
      extent.bytes += entry.file_size();
    }
  }
  return extent;
}

}  // namespace bench
