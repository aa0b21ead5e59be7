// sample_session RESOURCES OUTPUT: makes the sample book in the real windows, as an editor would.
#include <iostream>

#include "platform/application.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "tools/sample_session/session.h"

int main(int argc, char** argv) {
  const platform::Application application(argc, argv);
  if (argc != 3) {
    std::cerr << "usage: sample_session RESOURCES OUTPUT\n";
    return 2;
  }
  int status = 0;
  platform::CatchingFailure(
      [&] {
        sample::Session session(argv[1], argv[2]);
        session.Run();
        std::cout << "The sample book is in " << argv[2] << "/program/Data and exported to "
                  << argv[2] << "/program/Export, " << session.PicturesTaken()
                  << " pictures of the windows are in " << argv[2] << "/pictures\n";
      },
      [&](const platform::Text& description) {
        std::cerr << platform::ToUtf8(description) << '\n';
        status = 1;
      });
  return status;
}
