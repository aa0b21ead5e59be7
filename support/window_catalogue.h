// What the windows hold at design: titles, sizes, and every control with its place, text and
// hint. Rows stand in tab order, frames before what they hold.
#pragma once

#include "platform/windows/window_definition.h"

namespace support {

const platform::WindowDefinition& Form1Definition();  // the project
const platform::WindowDefinition& Form2Definition();  // choosing a folder
const platform::WindowDefinition& Form3Definition();  // the workbench
const platform::WindowDefinition& Form4Definition();  // the help
const platform::WindowDefinition& Form5Definition();  // choosing a file
const platform::WindowDefinition& Form6Definition();  // one paragraph

// What an earlier run left unbuilt; shown beside the workbench.
const platform::WindowDefinition& RecoveryDefinition();

// The picture cells that a browser shows at once.
inline constexpr int kPictureCells = 5;

}  // namespace support
