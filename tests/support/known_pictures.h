// Pictures of windows that are kept to be compared with those of another day, pixel for pixel.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace testing_support {

// Of the PNG files in `made` a line for each that isn't as it is in `known`, that isn't known at
// all or that is known and wasn't made; empty where all are alike. A line names a picture in
// `differences` (which is emptied first): what is known, what was made, and in red where they
// differ.
std::vector<std::string> ComparePictures(const std::filesystem::path& known,
                                         const std::filesystem::path& made,
                                         const std::filesystem::path& differences);

// From now on those in `made` are known. A picture whose file would take more than 60 KB is kept in
// half its size, with a hash of all of its pixels.
void KeepPictures(const std::filesystem::path& made, const std::filesystem::path& known);

}  // namespace testing_support
