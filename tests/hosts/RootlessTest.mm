/// The library of the rootless package looks for its bundle around the place that it was loaded from.
#include "tests/hosts/HostTest.h"

#include <filesystem>

namespace panotra::testing {

namespace {

namespace fs = std::filesystem;

/// A folder as a loader without root paths has it, for the life of a test.
class Rootless : public HostTest {
protected:
    Rootless() { fs::create_directories(root); }
    ~Rootless() override { fs::remove_all(root); }

    /// The library under test, loaded from below the folder.
    void launchFrom(const std::string& libraries)
    {
        fs::create_directories(root / libraries);
        const fs::path built = std::getenv("PANOTRA_LIBRARY");
        for (const char* const name : { "Panotra.dylib", "Panotra.map" })
            fs::copy_file(built.parent_path() / name, root / libraries / name);
        hosts::chooseLibrary((root / libraries / "Panotra.dylib").string());
        launch();
    }

    std::string pathOfBundle()
    {
        const id helper = [objc_lookUpClass("PNOHelperController") performSelector:@selector(sharedInstance)];
        return [[[helper valueForKey:@"_bundle"] bundlePath] UTF8String];
    }

    const fs::path root = fs::temp_directory_path() / ("rootless." + std::to_string(getpid()));
    const std::string bundle = "/Library/PreferenceBundles/Panotra.bundle";
};

} // namespace

TEST_F(Rootless, TheBundleIsFoundWhereTheLibrarysOwnPackagePutsIt)
{
    fs::create_directories(root.string() + bundle);
    launchFrom("Library/MobileSubstrate/DynamicLibraries");
    EXPECT_EQ(pathOfBundle(), root.string() + bundle);
}

TEST_F(Rootless, TheBundleIsFoundFromTheFolderThatLoadersKeepLibrariesInThemselves)
{
    fs::create_directories(root.string() + bundle);
    launchFrom("usr/lib/TweakInject");
    EXPECT_EQ(pathOfBundle(), root.string() + bundle);
}

TEST_F(Rootless, TheNearestBundleIsTaken)
{
    fs::create_directories(root.string() + bundle);
    fs::create_directories((root / "inner").string() + bundle);
    launchFrom("inner/usr/lib/TweakInject");
    EXPECT_EQ(pathOfBundle(), (root / "inner").string() + bundle);
}

TEST_F(Rootless, ABundleAtTheRootIsTakenLast)
{
    launchFrom("Library/MobileSubstrate/DynamicLibraries");
    EXPECT_EQ(pathOfBundle(), bundle);
}

} // namespace panotra::testing
