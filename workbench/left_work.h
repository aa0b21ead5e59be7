// What the recovery window says of work that an earlier run has left.
#pragma once

#include "platform/text/text.h"
#include "recovery/work.h"

namespace workbench {

struct LeftWorkTexts {
  platform::Text whose;  // the collection, and its title as far as it got
  platform::Text count;  // of titles, and what there is besides
  platform::Text first;  // title
  platform::Text last;
};

LeftWorkTexts DescribeLeft(recovery::Work& work);

}  // namespace workbench
