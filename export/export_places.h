// Every path of an export folder: made here and nowhere else. `root` is the export's own folder,
// without a final "\"; `projectRoot` and `programRoot` have theirs.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace exporting {

// "<target>\Export 3"; `targetRoot` has its final "\".
platform::Text ExportRoot(platform::TextView targetRoot, std::int64_t number);
platform::Text ExportedFolder(platform::TextView root, platform::TextView folder);
platform::Text ExportedFile(platform::TextView root, platform::TextView folder,
                            platform::TextView name);
// `target` follows the root without a separator of its own: a target written without one runs
// into the root's name, as scripts rely on.
platform::Text CopiedResource(platform::TextView root, platform::TextView target,
                              platform::TextView name);
platform::Text SourceFolder(platform::TextView projectRoot, platform::TextView folder);
platform::Text SourceFile(platform::TextView projectRoot, platform::TextView folder,
                          platform::TextView name);
// Data\TXT, where the page files of an export lie.
platform::Text PageFolder(platform::TextView root);
platform::Text ExportedPage(platform::TextView root, platform::TextView name);
// The print page of a page file: the same place and name with the letter "l" after it.
platform::Text PrintPage(platform::TextView root, platform::TextView name);
platform::Text Viewer(platform::TextView root);

}  // namespace exporting
