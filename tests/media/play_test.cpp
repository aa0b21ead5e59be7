// True sounds and films play to their end, out of a book and without its path.
#include <gtest/gtest.h>

#include "tests/media/media_bytes.h"
#include "tests/media/walk/watched.h"

namespace media_tests {
namespace {

class Playing : public testing::TestWithParam<const char*> {};

TEST_P(Playing, EachSamplePlaysToItsEnd) {
  Watched watched;
  ASSERT_EQ(watched.Lack().toStdString(), "");
  const QStringList printed = watched.Run(QLatin1String(GetParam()),
                                          {QStringLiteral(MEDIA_WALK), QStringLiteral("samples")});
  for (const char* name : kSamples) {
    EXPECT_TRUE(printed.contains(QLatin1String(name) + QStringLiteral(" played"))) << name;
  }
  if (HasFailure()) ADD_FAILURE() << printed.join(u'\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Backends, Playing, testing::Values("gstreamer", "ffmpeg"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace media_tests
