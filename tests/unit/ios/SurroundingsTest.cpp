/// Folders around a file, as text.
#include "platform/ios/rootless/Surroundings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace panotra::ios {
namespace {

/// Everything that is tried, innermost folder first.
std::vector<std::string> triedFor(const std::string& inside, const std::string& path)
{
    std::vector<std::string> tried;
    std::array<char, longestPath> text;
    for (std::size_t level = 0; pathInFolderAround(inside, level, path, text); ++level)
        tried.emplace_back(text.data());
    return tried;
}

using Paths = std::vector<std::string>;

TEST(Surroundings, EveryFolderAroundAFileIsTriedFromTheInnermostToTheRoot)
{
    EXPECT_EQ(triedFor("/var/jb/lib/File", "/B"), (Paths { "/var/jb/lib/B", "/var/jb/B", "/var/B", "/B" }));
}

TEST(Surroundings, AFileAtTheRootHasTheRootAroundIt)
{
    EXPECT_EQ(triedFor("/File", "/B"), Paths { "/B" });
}

TEST(Surroundings, ANameWithoutAFolderHasNothingAroundIt)
{
    EXPECT_EQ(triedFor("File", "/B"), Paths {});
    EXPECT_EQ(triedFor("", "/B"), Paths {});
}

TEST(Surroundings, PathsThatAreTooLongAreNotTried)
{
    const std::string path(longestPath - 3, 'p');
    EXPECT_EQ(triedFor("/a/b", path), (Paths { "/a" + path, path }));
    EXPECT_EQ(triedFor("/ab/c", path), Paths {});
    EXPECT_EQ(triedFor("/" + std::string(2 * longestPath, 'a') + "/b", "/B"), Paths {});
}

} // namespace
} // namespace panotra::ios
