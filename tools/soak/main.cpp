// soak RESOURCES OUTPUT [COLLECTIONS ENTRIES OPENINGS]: status 1 if something grows, 2 if the soak
// itself fails.
#include <iostream>
#include <string>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "platform/windows/application.h"
#include "tools/soak/soak.h"

int main(int argc, char** argv) {
  const platform::Application application(argc, argv);
  if (argc != 3 && argc != 6) {
    std::cerr << "usage: soak RESOURCES OUTPUT [COLLECTIONS ENTRIES OPENINGS]\n";
    return 2;
  }
  int status = 2;
  platform::CatchingFailure(
      [&] {
        soak::Plan plan;
        if (argc == 6) plan = {std::stoi(argv[3]), std::stoi(argv[4]), std::stoi(argv[5])};
        status = soak::Soak(argv[1], argv[2], plan).Run() ? 0 : 1;
      },
      [](const platform::Text& description) {
        std::cerr << platform::ToUtf8(description) << '\n';
      });
  return status;
}
