// Which plug-ins the machine's player may choose.
#pragma once

namespace viewer {

// Before anything of the toolkit's players is used; any further call does nothing.
void KeepPlugInsAtHome();

}  // namespace viewer
