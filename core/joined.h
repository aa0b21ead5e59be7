// Texts put together from pieces.
#pragma once

#include <initializer_list>

#include "platform/text/text.h"

namespace core {

// The pieces one after the other, in one allocation.
platform::Text Joined(std::initializer_list<platform::TextView> pieces);

}  // namespace core
