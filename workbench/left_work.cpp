#include "workbench/left_work.h"

#include <algorithm>

#include "gallery/slots.h"
#include "platform/failure.h"
#include "workbench/clean_up.h"
#include "workbench/marking.h"

namespace workbench {

using platform::FromNumber;
using platform::Text;
using platform::TextView;

namespace {

// As the label over the entry list says it; a key that no list gives stands for itself.
Text NameOf(const recovery::Collection& collection) {
  const TextView key = collection.key;
  Text name(key);
  platform::Ignoring([&] {
    if (!key.empty()) name = CollectionLabel(key.substr(0, 1), key.substr(1));
  });
  return name;
}

Text Short(TextView title) { return BeBor(RemCrLf(title), kShownTitle); }

// A label that ends in a colon waits for something.
Text WhoseWork(const recovery::Work& work) {
  Text whose = NameOf(work.collection);
  if (!work.fields.title.empty()) return whose.append(u" ").append(Short(work.fields.title));
  if (whose.ends_with(u':')) whose.pop_back();
  return whose;
}

Text TitleOf(const filed::FiledWork& filed, std::ptrdiff_t row) {
  const Text title = Short(filed.table.entryTitle(row));
  return title.empty() ? u"(بي عنوان)" : title;
}

// A heading without its text stands in the row behind those that are counted.
bool IsPending(const filed::FiledWork& filed) {
  return !filed.table.entryTitle(std::max<std::ptrdiff_t>(filed.entryCount, 0)).empty();
}

std::ptrdiff_t TitlesIn(const filed::FiledWork& filed) {
  return std::max<std::ptrdiff_t>(filed.entryCount, 0) + (IsPending(filed) ? 1 : 0);
}

std::ptrdiff_t PicturesIn(filed::FiledWork& filed) {
  const platform::Column<Text>& paths = filed.table.galleryPic.Slots().paths;
  std::ptrdiff_t pictures = 0;
  for (std::ptrdiff_t slot = 0; slot < paths.Count(); ++slot) {
    if (!paths(slot).empty() && paths(slot) != gallery::kRemoved) ++pictures;
  }
  return pictures;
}

Text CountOf(recovery::Work& work) {
  const std::ptrdiff_t titles = TitlesIn(work.filed);
  const std::ptrdiff_t pictures = PicturesIn(work.filed);
  Text count = titles > 0 ? FromNumber(titles) : u"هيچ";
  if (IsPending(work.filed)) count += titles > 1 ? u" (آخري هنوز متن ندارد)" : u" (هنوز متن ندارد)";
  const TextView also = titles > 0 ? u" و " : u"، و ";
  if (pictures > 0) return count.append(also).append(FromNumber(pictures)) + u" تصوير گالري";
  const bool isEdited = !work.rest.empty() && !work.fields.restIsUntouched;
  return titles == 0 && isEdited ? count.append(also) + u"متني كه ويرايش شده" : count;
}

}  // namespace

LeftWorkTexts DescribeLeft(recovery::Work& work) {
  constexpr TextView kNone = u"ندارد";
  const std::ptrdiff_t titles = TitlesIn(work.filed);
  return {.whose = WhoseWork(work),
          .count = CountOf(work),
          .first = titles > 0 ? TitleOf(work.filed, 0) : Text(kNone),
          .last = titles > 0 ? TitleOf(work.filed, titles - 1) : Text(kNone)};
}

}  // namespace workbench
