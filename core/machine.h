// What the tool is given by the machine it runs on, so that a test can give it something else.
#pragma once

#include "platform/clock.h"
#include "platform/files/file_system.h"
#include "platform/files/record_folder.h"
#include "platform/random.h"
#include "platform/text/text.h"

namespace core {

struct Machine {
  platform::FileSystem& files;
  platform::Clock& clock;
  platform::Random& random;
  platform::Text programFolder;  // without a final "\"
  platform::Text systemLogPath;  // the second log; the first lies in the program folder
  platform::RecordFolder* records = nullptr;  // of unfinished work; nullptr: none is kept
};

}  // namespace core
