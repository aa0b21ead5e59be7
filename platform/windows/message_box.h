// The only place that shows a message box. Modal, right to left.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace platform {

enum class [[nodiscard]] Answer : std::uint8_t{kOk, kYes, kNo};

// One button "OK"; returns when the box is closed.
void ShowNotice(TextView prompt, TextView title);
// Two buttons; closing the box in any other way is No.
Answer AskYesNo(TextView prompt, TextView title);

}  // namespace platform
