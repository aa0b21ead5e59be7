// The application that every test program with windows runs in.
#pragma once

#include "platform/windows/application.h"

namespace testing_support {

platform::Application& TheApplication();

}  // namespace testing_support
