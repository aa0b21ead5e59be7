#include "export/export_places.h"

#include "core/joined.h"

namespace exporting {

using core::Joined;
using platform::Text;
using platform::TextView;

Text ExportRoot(TextView targetRoot, std::int64_t number) {
  return Joined({targetRoot, u"Export ", platform::FromNumber(number)});
}

Text ExportedFolder(TextView root, TextView folder) { return Joined({root, u"\\", folder}); }

Text ExportedFile(TextView root, TextView folder, TextView name) {
  return Joined({root, u"\\", folder, u"\\", name});
}

Text CopiedResource(TextView root, TextView target, TextView name) {
  return Joined({root, target, u"\\", name});
}

Text SourceFolder(TextView projectRoot, TextView folder) { return Joined({projectRoot, folder}); }

Text SourceFile(TextView projectRoot, TextView folder, TextView name) {
  return Joined({projectRoot, folder, u"\\", name});
}

Text PageFolder(TextView root) { return Joined({root, u"\\Data\\TXT"}); }

Text ExportedPage(TextView root, TextView name) { return Joined({PageFolder(root), u"\\", name}); }

Text PrintPage(TextView root, TextView name) { return Joined({ExportedPage(root, name), u"l"}); }

Text Viewer(TextView root) { return Joined({root, u"\\main.exe"}); }

}  // namespace exporting
