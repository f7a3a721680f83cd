/// The end of the simulated process: its memory goes at once, and nothing is saved on the way.
#include "simulator/device/ClassTable.h"
#include "simulator/device/Preferences.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace panotra::sim {
namespace {

TEST(EndOfAProcess, SavesNothingOfAHandleThatLivesThen)
{
    const preferences::testing::TemporaryFolder folder;
    {
        Device device(folder.path().string());
        PreferenceHandle* const handle = device.preferences->open("net.qorvath.panotra");
        device.classes->adopt(handle, device.classes->platformClass("NSUserDefaults"));
        handle->setFloat("volume0", 0.5f);
    }
    EXPECT_TRUE(folder.names().empty());
}

} // namespace
} // namespace panotra::sim
