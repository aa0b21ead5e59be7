// The export: a numbered folder with all that the export script lists, ready for a disc, and the
// viewer started on it.
#pragma once

#include "core/ports.h"
#include "core/project_window.h"
#include "export/print_page.h"
#include "export/script.h"
#include "platform/files/file_system_object.h"
#include "platform/launcher.h"
#include "platform/text/text.h"

namespace exporting {

class ExportPass : public core::ExportPort {
 public:
  ExportPass(core::Form1& form1, platform::Launcher& launcher);

  // Command10_Click: makes the two folders absolute, saves the settings, checks, exports. 102.
  void Export() override;

 private:
  // Whatever fails in it ends it with message 28; what was made stays.
  void ExportAll();
  platform::Text CarryOut();
  platform::Text MakeRoot();
  void MakeFolders(const ExportScript& script, platform::TextView root);
  void CopyFolders(const ExportScript& script, platform::TextView root);
  void CopyFolder(const CopyLine& line, platform::TextView root);
  void CopyFiles(const ExportScript& script, platform::TextView root);
  void MakePrintPages(platform::TextView root);
  void MakePrintPage(const PageTemplate& pageTemplate, platform::TextView root,
                     platform::TextView name);
  void RunFile(platform::TextView path);

  platform::Text Read(platform::TextView path, platform::TextFormat format);
  platform::FileSystem& Files();

  core::Form1& form1_;
  core::Reporter& report_;
  platform::Launcher& launcher_;
};

}  // namespace exporting
