#include "bench/export_rows.h"

#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/print_watch.h"
#include "bench/process.h"
#include "bench/texts.h"
#include "core/machine.h"
#include "core/project_window.h"
#include "export/export_pass.h"
#include "platform/clock.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "platform/launcher.h"
#include "platform/random.h"
#include "platform/text/encoding.h"
#include "tests/support/robot.h"
#include "workbench/book_formats.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

using platform::Text;
using platform::TextView;

constexpr int kPages = 5'000;
constexpr int kLargeFiles = 200;
constexpr std::size_t kLargeFileBytes = std::size_t{2} * 1024 * 1024;
constexpr std::size_t kCharactersOfPage = 1'950;  // with its tags 4 KB
constexpr std::uint32_t kDifferentPages = 97;

constexpr const char* kScript =
    "[ Make Folder ]\r\nData\r\n\r\n"
    "[ Copy Folder ]\r\nTXT => Data\\TXT\r\nIMG => Data\\IMG\r\n\r\n"
    "[ Copy File ]\r\n\r\n[";

class NoLauncher : public platform::Launcher {
 public:
  void Open(TextView, TextView) override {}
};

// The project window in a program folder of its own, with one export after the other, each under a
// new folder.
class Exporter {
 public:
  explicit Exporter(WorkFolder& work) : work_(work), program_(work.NewFolder("program")) {
    fs::copy(ZORVAND_SOURCE_DIR "/Resources", program_ + "/Resources", fs::copy_options::recursive);
    WriteFile(program_ + "/Resources/Export.inf", kScript);
    form1_.Show();
    testing_support::Robot::Settle();
  }

  std::string TemplatePath() const { return program_ + "/Resources/Default.html"; }

  // Exports the project, and gives the export's own folder.
  std::string Export(const std::string& project, bool withPrintPages) {
    const std::string target = work_.NewFolder("export");
    form1_.idir.SetText(platform::ToolPath(project));
    form1_.ExBox.SetText(platform::ToolPath(target));
    form1_.Pcheck.SetValue(withPrintPages);
    ::sync();
    seconds_ = SecondsOf([&] { pass_.Export(); });
    std::string root = target + "/Export 1";
    if (robot_.TakeBoxes().size() != 1 || !fs::exists(root + "/Data/IMG")) {
      throw std::runtime_error("the project wasn't exported");
    }
    return root;
  }

  // Of the last export, whole and its print pages alone.
  double Seconds() const { return seconds_; }
  double SecondsOfPrintPages() const { return files_.Seconds(); }
  PrintWatch& Files() { return files_; }

 private:
  WorkFolder& work_;
  std::string program_;
  PrintWatch files_;
  platform::Random random_;
  NoLauncher launcher_;
  core::Machine machine_{files_, platform::HostClock(), random_, platform::ToolPath(program_),
                         platform::ToolPath(program_ + "/ZVL.log")};
  core::Form1 form1_{machine_};
  exporting::ExportPass pass_{form1_, launcher_};
  testing_support::Robot robot_;
  double seconds_ = 0;
};

std::string PageBytes(std::uint32_t seed) {
  const Text text = CleanText(kCharactersOfPage, seed);
  return std::string(platform::kUtf16Mark) +
         platform::EncodeUtf16(u"<pgTitle>" + Heading(seed) + u"</pgTitle>\r\n" +
                               workbench::SetMatn(text, u"pgMain"));
}

std::vector<std::string> DifferentPages() {
  std::vector<std::string> pages;
  for (std::uint32_t seed = 1; seed <= kDifferentPages; ++seed) pages.push_back(PageBytes(seed));
  return pages;
}

std::string MakeProject(WorkFolder& work, int pages, int largeFiles) {
  std::string folder = work.NewFolder("project");
  for (const char* name : {"/TXT", "/IMG"}) fs::create_directory(folder + name);
  const std::vector<std::string> texts = DifferentPages();
  for (int i = 0; i < pages; ++i) {
    WriteFile(folder + "/TXT/PAGE" + std::to_string(100'000 + i) + ".htm",
              texts[static_cast<std::size_t>(i) % texts.size()]);
  }
  for (int i = 0; i < largeFiles; ++i) {
    WriteFile(folder + "/IMG/large" + std::to_string(i) + ".avi",
              std::string(kLargeFileBytes, static_cast<char>('a' + i % 26)));
  }
  return folder;
}

// The same folders at the same place.
double SecondsOfCp(WorkFolder& work, const std::string& project) {
  const std::string data = work.NewFolder("cp") + "/Data";
  fs::create_directory(data);
  ::sync();
  return SecondsOfRun({"cp", "-r", project + "/TXT", project + "/IMG", data}) +
         SecondsOfRun({"sync", "-f", data});
}

double SecondsOfPython(Dialogue& python, const std::string& root) {
  ::sync();
  return std::stod(python.Ask("disk\t" + root + "/Data/TXT"));
}

// One side after the other, each on pages that were just copied.
void MeasurePrintRound(Exporter& exporter, Dialogue& python, const std::string& project,
                       Times& tool, Times& beside) {
  exporter.Export(project, true);
  tool.push_back(exporter.SecondsOfPrintPages());
  beside.push_back(SecondsOfPython(python, exporter.Export(project, false)));
}

Command PythonFor(const Exporter& exporter) {
  return {"python3", ZORVAND_SOURCE_DIR "/bench/print_pages.py", exporter.TemplatePath()};
}

void RequireTheSamePages(Exporter& exporter, Dialogue& python, const std::string& project) {
  const std::string ours = exporter.Export(project, true) + "/Data/TXT";
  const std::string theirs = exporter.Export(project, false) + "/Data/TXT";
  python.Ask("disk\t" + theirs);
  for (const auto& entry : fs::directory_iterator(theirs)) {
    const std::string name = "/" + entry.path().filename().string();
    if (!name.ends_with(".html")) continue;
    if (ReadFile(ours + name) != ReadFile(theirs + name)) {
      throw std::runtime_error("the two print pages differ: " + name);
    }
  }
}

Measured MeasurePrintFiles(const Plan& plan) {
  Exporter exporter(plan.work);
  Dialogue python(PythonFor(exporter));
  python.ReadLine();
  const std::string project = MakeProject(plan.work, kPages, 0);
  RequireTheSamePages(exporter, python, project);
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    MeasurePrintRound(exporter, python, project, measured.tool, measured.beside);
  }
  return measured;
}

}  // namespace

Row MeasureExport(const Plan& plan) {
  // A disk has good and bad seconds, so there are more pairs here than elsewhere.
  constexpr int kTimesMore = 2;
  Exporter exporter(plan.work);
  const std::string project = MakeProject(plan.work, kPages, kLargeFiles);
  exporter.Export(project, false);
  SecondsOfCp(plan.work, project);
  Measured measured;
  for (int round = 0; round < kTimesMore * plan.rounds; ++round) {
    exporter.Export(project, false);
    measured.tool.push_back(exporter.Seconds());
    measured.beside.push_back(SecondsOfCp(plan.work, project));
  }
  return TimedRow("export, 5,000 pages of 4 KB and 200 files of 2 MB",
                  "cp -r of the same folders, then sync -f", measured,
                  {Target::Kind::kAtMost, 1.0});
}

Row MeasurePrintPages(const Plan& plan) {
  Exporter exporter(plan.work);
  Dialogue python(PythonFor(exporter));
  python.ReadLine();
  const std::string project = MakeProject(plan.work, kDifferentPages, 0);
  RequireTheSamePages(exporter, python, project);
  const std::string inMemory = "memory\t" + project + "/TXT\t" + std::to_string(kPages);
  const auto secondsOfTool = [&](std::size_t pages) {
    exporter.Files().KeepPagesInMemory(pages, DifferentPages());
    exporter.Export(project, true);
    return exporter.SecondsOfPrintPages();
  };
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(secondsOfTool(kPages));
    measured.beside.push_back(std::stod(python.Ask(inMemory)));
    measured.toolTenfold.push_back(secondsOfTool(std::size_t{10} * kPages));
  }
  return TimedRow("print pages of 5,000 pages, in memory",
                  "a Python script that makes the same pages, in memory", measured,
                  {Target::Kind::kTimesAsFast, 6});
}

// Nearly all of it is the making of files, on either side.
Row MeasurePrintPagesOnDisk(const Plan& plan) {
  return TimedRow("print pages of 5,000 pages, on the disk",
                  "a Python script that makes the same pages", MeasurePrintFiles(plan),
                  {Target::Kind::kTimesAsFast, 1});
}

Row MeasurePrintPagesInMemoryFiles(const Plan& plan) {
  return TimedRow("print pages of 5,000 pages, files in memory", "that script",
                  MeasurePrintFiles(plan), {Target::Kind::kTimesAsFast, 1});
}

}  // namespace bench
