// Picture galleries, beside the programs that decode or copy the same pictures.
#pragma once

#include "bench/table.h"

namespace bench {

// One step of the browser's scroll bar over JPEGs of 24 megapixels, which decodes five; beside
// `djpeg -scale 1/8` on the same five.
Row MeasureScrollStep(const Plan& plan);
// A collection gallery of 2,000 pictures of 2 MB, beside `cp` of the same files.
Row MeasureGalleryBuild(const Plan& plan);

}  // namespace bench
