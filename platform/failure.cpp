#include "platform/failure.h"

#include <new>
#include <utility>

namespace platform {

Failure::Failure(Text description)
    : description_(std::move(description)), utf8_(ToUtf8(description_)) {}

void CatchingFailure(const std::function<void()>& body,
                     const std::function<void(const Text& description)>& ending) {
  Text description;
  try {
    body();
    return;
  } catch (const Failure& failure) {
    description = failure.Description();
  } catch (const std::bad_alloc&) {
    description = u"Out of memory";
  } catch (const std::exception& exception) {
    description = FromUtf8(exception.what());
  }
  ending(description);
}

void Ignoring(const std::function<void()>& statement) {
  CatchingFailure(statement, [](const Text&) {});
}

}  // namespace platform
