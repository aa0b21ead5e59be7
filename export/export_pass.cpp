#include "export/export_pass.h"

#include "core/book_places.h"
#include "core/numbers.h"
#include "export/export_places.h"
#include "platform/failure.h"
#include "platform/windows/busy_pointer.h"

namespace exporting {

using platform::IoMode;
using platform::Text;
using platform::TextFormat;
using platform::TextView;

namespace {

constexpr TextView kDefaultTarget = u"Export";

}  // namespace

ExportPass::ExportPass(core::Form1& form1, platform::Launcher& launcher)
    : form1_(form1), report_(form1), launcher_(launcher) {}

void ExportPass::Export() {
  report_.Catching(core::failure::kExport, [&] {
    const platform::BusyPointer busy;
    form1_.MakeDefaultFolder(form1_.ExBox, kDefaultTarget);
    form1_.MakeAbsolute(form1_.ExBox);
    form1_.MakeAbsolute(form1_.idir);
    form1_.SaveThings();
    if (!Files().FolderExists(form1_.ExBox.Text()))
      return report_.bepayam(core::message::kExportFolderMissing);
    if (!Files().FolderExists(form1_.idir.Text()))
      return report_.bepayam(core::message::kProjectFolderMissing);
    ExportAll();
  });
}

// A missing script is deliberately no early end: the pass then runs on with a root that is empty.
void ExportPass::ExportAll() {
  const auto pass = [&] {
    report_.LogMe(u"Exporting files...");
    Text root;
    if (Files().FileExists(core::ExportScriptFile(form1_.ProgramRoot()))) {
      root = CarryOut();
    } else {
      report_.bepayam(core::message::kNoExportScript);
    }
    report_.bepayam(core::message::kExportReady);
    report_.LogMe(u"Files exported.");
    if (Files().FileExists(Viewer(root))) RunFile(Viewer(root));
    report_.LogMe(u"Exported Main.exe played.");
  };
  platform::CatchingFailure(pass,
                            [&](const Text&) { report_.bepayam(core::message::kExportFailed); });
}

// Everything is cut before anything on the disk changes.
Text ExportPass::CarryOut() {
  const ExportScript script =
      CutScript(Read(core::ExportScriptFile(form1_.ProgramRoot()), TextFormat::kCodePage));
  Text root = MakeRoot();
  MakeFolders(script, root);
  CopyFolders(script, root);
  CopyFiles(script, root);
  if (form1_.Pcheck.Value()) MakePrintPages(root);
  Files().Flush(root);
  return root;
}

Text ExportPass::MakeRoot() {
  const Text target = form1_.DoSlash(form1_.ExBox.Text());
  std::int64_t number = 1;
  while (Files().FolderExists(ExportRoot(target, number))) ++number;
  Text root = ExportRoot(target, number);
  Files().MakeFolder(root);
  return root;
}

void ExportPass::MakeFolders(const ExportScript& script, TextView root) {
  for (const Text& line : script.makeFolder) Files().MakeFolder(ExportedFolder(root, line));
}

void ExportPass::CopyFolders(const ExportScript& script, TextView root) {
  for (const Text& line : script.copyFolder) CopyFolder(SplitCopyLine(line), root);
}

void ExportPass::CopyFolder(const CopyLine& line, TextView root) {
  const Text projectRoot = form1_.BookRoot();
  Files().MakeFolder(ExportedFolder(root, line.target));
  for (const Text& name : Files().FileNames(SourceFolder(projectRoot, line.source))) {
    Files().CopyFile(SourceFile(projectRoot, line.source, name),
                     ExportedFile(root, line.target, name));
  }
}

void ExportPass::CopyFiles(const ExportScript& script, TextView root) {
  for (const Text& line : script.copyFile) {
    const CopyLine sides = SplitCopyLine(line);
    Files().CopyFile(core::ResourceFile(form1_.ProgramRoot(), sides.source),
                     CopiedResource(root, WithoutRootWord(sides.target), sides.source));
  }
}

void ExportPass::MakePrintPages(TextView root) {
  const PageTemplate pageTemplate(
      Read(core::PrintTemplateFile(form1_.ProgramRoot()), TextFormat::kUnicode));
  for (const Text& name : Files().FileNames(PageFolder(root))) {
    if (IsPageFile(name)) MakePrintPage(pageTemplate, root, name);
  }
}

void ExportPass::MakePrintPage(const PageTemplate& pageTemplate, TextView root, TextView name) {
  const Text page = Read(ExportedPage(root, name), TextFormat::kUnicode);
  const Text filled = pageTemplate.Filled(form1_.Wsre(page, u"pgTitle"), PrintBody(page));
  auto stream = form1_.FileSys().OpenTextFile(PrintPage(root, name), IoMode::kForWriting, true,
                                              TextFormat::kUnicode);
  stream.Write(filled);
  stream.Close();
}

void ExportPass::RunFile(TextView path) {
  const platform::Position end = platform::InStrRev(path, u"\\");
  launcher_.Open(path, platform::Left(path, end - 1));
}

Text ExportPass::Read(TextView path, TextFormat format) {
  auto stream = form1_.FileSys().OpenTextFile(path, IoMode::kForReading, false, format);
  Text text = stream.ReadAll();
  stream.Close();
  return text;
}

platform::FileSystem& ExportPass::Files() { return form1_.FileSys().Files(); }

}  // namespace exporting
