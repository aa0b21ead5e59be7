// The list of the collections that wait to be built: its entries, and the key in an entry's text.
#pragma once

#include <array>
#include <functional>

#include "platform/text/text.h"

namespace core {

// The ordinals of a row's collections, in the order of their numbers. A row can name no more.
inline constexpr std::array<platform::TextView, 10> kOrdinals = {
    u"اول", u"دوم", u"سوم", u"چهارم", u"پنجم", u"ششم", u"هفتم", u"هشتم", u"نهم", u"دهم"};

// The ordinal at the position, counted from 0. Failure outside 0 to 9.
platform::TextView Ordinal(platform::Position position);

// One row of the book.
struct CollectionRow {
  platform::TextView letter;
  platform::TextView prefix;  // of its entries, before the ordinal
};

inline constexpr std::array<CollectionRow, 3> kCollectionRows = {{
    {u"a", u"رديف اول -> مجموعه "},
    {u"b", u"رديف دوم -> مجموعه "},
    {u"c", u"رديف سوم -> مجموعه "},
}};

// How many collections a row's count means: the next whole number not above it, 0 for negative
// ones. Failure for a text that is no number.
platform::Position CollectionCount(platform::TextView count);

// The entry of the row's collection at the position, counted from 0. Failure outside 0 to 9.
platform::Text SelectorEntry(const CollectionRow& row, platform::Position position);

// Hands the entries of one row's waiting collections to `add`, in order. `isBuilt` is asked for
// each number from 1 on, as text. Failure for a count that is no number and, once the earlier
// entries are added, for a waiting collection above 10.
void ListWaiting(const CollectionRow& row, platform::TextView count,
                 const std::function<bool(platform::TextView digit)>& isBuilt,
                 const std::function<void(platform::TextView entry)>& add);

// "a" and "1". Both are empty where no collection is selected.
struct CollectionKey {
  platform::Text letter;
  platform::Text digit;
};

// The key of an entry: what stands between its first "(" and its first ")". Empty where an entry
// has no such brackets.
CollectionKey ReadKey(platform::TextView entry);

}  // namespace core
