/// Preference domains as programs of the simulated device see them.
#include "simulator/device/Preferences.h"

#include "tests/unit/preferences/TemporaryFolder.h"

#include <nlohmann/json.hpp>

#include <memory>

namespace panotra::sim {
namespace {

using preferences::testing::TemporaryFolder;
using preferences::testing::writeBytes;
using preferences::testing::xmlWith;
using Handle = std::unique_ptr<PreferenceHandle>;

const std::string domain = "net.qorvath.panotra";

/// What is the same with and without files.
class AnyPreferences : public ::testing::TestWithParam<bool> {
protected:
    AnyPreferences()
    {
        device.traceSink = [this](const Json& event) {
            trace.push_back(event);
        };
    }

    Handle open() { return Handle(device.preferences->open(domain)); }

    std::optional<Json> read(const std::string& key)
    {
        const Handle handle = open();
        handle->synchronize();
        return handle->objectForKey(key);
    }

    TemporaryFolder folder;
    Device device { GetParam() ? std::optional(folder.path().string()) : std::nullopt };
    std::vector<Json> trace;
};

INSTANTIATE_TEST_SUITE_P(Stores, AnyPreferences, ::testing::Values(false, true),
    [](const auto& suite) { return suite.param ? "InFiles" : "InMemory"; });

TEST_P(AnyPreferences, AnAbsentKeyHasNoValue)
{
    EXPECT_EQ(read("volume0"), std::nullopt);
}

TEST_P(AnyPreferences, WhatAHandleSetsItSeesAtOnceAndOthersSeeWhenItGoes)
{
    Handle handle = open();
    handle->synchronize();
    handle->setFloat("volume0", 0.5f);
    EXPECT_EQ(handle->objectForKey("volume0"), 0.5);
    EXPECT_EQ(read("volume0"), std::nullopt);
    handle.reset();
    EXPECT_EQ(read("volume0"), 0.5);
}

TEST_P(AnyPreferences, ASynchronizeDoesNotForgetWhatTheHandleSet)
{
    const Handle handle = open();
    handle->setFloat("volume0", 0.5f);
    device.preferences->set(domain, "volume0", 0.25);
    handle->synchronize();
    EXPECT_EQ(handle->objectForKey("volume0"), 0.5);
}

TEST_P(AnyPreferences, ALevelIsTheDoubleOfItsFloat)
{
    open()->setFloat("volume0", 0.3f);
    EXPECT_EQ(read("volume0"), double { 0.3f });
    EXPECT_NE(read("volume0"), 0.3);
    EXPECT_EQ(trace.at(0)["value"].get<double>(), double { 0.3f });
}

TEST_P(AnyPreferences, SynchronizeAndWriteAreTraced)
{
    const Handle handle = open();
    handle->synchronize();
    handle->setFloat("volume0", 0.5f);
    EXPECT_EQ(handle->objectForKey("volume0"), 0.5);
    ASSERT_EQ(trace.size(), 2u);
    EXPECT_EQ(trace[0], (Json { { "t", 0.0 }, { "event", "synchronize" }, { "domain", domain } }));
    EXPECT_EQ(trace[1],
        (Json { { "t", 0.0 }, { "event", "write" }, { "domain", domain }, { "key", "volume0" }, { "value", 0.5 } }));
}

TEST_P(AnyPreferences, AHandleSeesWhatOthersWroteOnlyWhenItSynchronizes)
{
    const Handle handle = open();
    handle->synchronize();
    device.preferences->set(domain, "scale", 1.0);
    EXPECT_EQ(handle->objectForKey("scale"), std::nullopt);
    handle->synchronize();
    EXPECT_EQ(handle->objectForKey("scale"), 1.0);
}

TEST_P(AnyPreferences, AHandleThatNeverSynchronizedReadsTheDomainAtTheFirstQuestion)
{
    const Handle handle = open();
    device.preferences->set(domain, "scale", 1.0);
    EXPECT_EQ(handle->objectForKey("scale"), 1.0);
    device.preferences->set(domain, "scale", 0.5);
    EXPECT_EQ(handle->objectForKey("scale"), 1.0);
}

TEST_P(AnyPreferences, ValuesKeepTheirKind)
{
    device.preferences->set(domain, "i", std::int64_t { 9223372036854775807 });
    device.preferences->set(domain, "f", 1.0);
    device.preferences->set(domain, "b", true);
    device.preferences->set(domain, "s", "1");
    EXPECT_EQ(device.preferences->all().dump(),
        R"({"net.qorvath.panotra":{"i":9223372036854775807,"f":1.0,"b":true,"s":"1"}})");
    EXPECT_TRUE(trace.empty());
}

TEST_P(AnyPreferences, ADomainWithoutKeysIsLeftOut)
{
    read("volume0");
    device.preferences->set(domain, "key", 1);
    device.preferences->unset(domain, "key");
    EXPECT_EQ(device.preferences->all(), Json::object());
}

TEST_P(AnyPreferences, TwelveLevelsOfOneHandleAreOneReplacement)
{
    Handle handle = open();
    handle->synchronize();
    for (int slot = 0; slot < 12; ++slot)
        handle->setFloat("volume" + std::to_string(slot), 0.5f);
    EXPECT_EQ(device.preferences->replacements(), 0u);
    handle.reset();
    EXPECT_EQ(device.preferences->replacements(), 1u);
}

TEST_P(AnyPreferences, WhatChangesNothingIsNoReplacement)
{
    device.preferences->set(domain, "volume0", 0.5);
    EXPECT_EQ(device.preferences->replacements(), 1u);
    open()->setFloat("volume0", 0.5f);
    device.preferences->set(domain, "volume0", 0.5);
    device.preferences->unset(domain, "absent");
    read("volume0");
    EXPECT_EQ(device.preferences->replacements(), 1u);
    EXPECT_EQ(device.preferences->handlesOpened(), 2u);
}

TEST_P(AnyPreferences, AHandleThatOutlivesItsProcessSavesNothing)
{
    const Handle handle = open();
    handle->setFloat("volume0", 0.5f);
    device.preferences.reset();
    EXPECT_EQ(handle->objectForKey("volume0"), std::nullopt);
    EXPECT_TRUE(folder.names().empty());
}

class FilePreferences : public ::testing::Test {
protected:
    std::filesystem::path fileOf(const std::string& name) const { return folder / (name + ".plist"); }

    TemporaryFolder folder;
    Device device { folder.path().string() };
};

TEST_F(FilePreferences, AnotherProcessContinuesFromThem)
{
    Handle(device.preferences->open(domain))->setFloat("volume0", 0.625f);
    PreferenceDomains other(device, folder.path().string());
    EXPECT_EQ(other.all()[domain]["volume0"], 0.625);
}

TEST_F(FilePreferences, ValuesOfOtherKindsStayInTheFileAndAreNotShown)
{
    writeBytes(fileOf(domain), xmlWith("<key>when</key><date>2020-01-02T03:04:05Z</date><key>list</key><array/>"));
    Handle handle(device.preferences->open(domain));
    EXPECT_EQ(handle->objectForKey("when"), Json(nullptr));
    handle->setFloat("volume0", 0.5f);
    handle.reset();
    EXPECT_EQ(device.preferences->all().dump(), R"({"net.qorvath.panotra":{"volume0":0.5}})");
    EXPECT_NE(preferences::testing::readBytes(fileOf(domain)).find("2020-01-02T03:04:05Z"), std::string::npos);
}

TEST_F(FilePreferences, EveryDomainOfTheFolderIsShown)
{
    writeBytes(fileOf("b"), xmlWith("<key>k</key><true/>"));
    writeBytes(fileOf("a"), xmlWith("<key>k</key><integer>1</integer>"));
    writeBytes(fileOf("empty"), xmlWith(""));
    writeBytes(folder / "notes.txt", "no domain");
    writeBytes(folder / "a.plist.unreadable-1", "no domain");
    EXPECT_EQ(device.preferences->all().dump(), R"({"a":{"k":1},"b":{"k":true}})");
}

TEST_F(FilePreferences, ADamagedFileIsSetAsideWhenItsDomainIsUsedAndNotWhenAllAreShown)
{
    writeBytes(fileOf("damaged"), "garbage");
    EXPECT_EQ(device.preferences->all(), Json::object());
    EXPECT_EQ(device.preferences->all(), Json::object());
    EXPECT_TRUE(std::filesystem::exists(fileOf("damaged")));
    EXPECT_EQ(device.preferences->warnings().size(), 1u);
    Handle(device.preferences->open("damaged"))->synchronize();
    EXPECT_FALSE(std::filesystem::exists(fileOf("damaged")));
    EXPECT_EQ(device.preferences->warnings().size(), 2u);
}

TEST_F(FilePreferences, WhatCannotBeSavedIsSeenByEveryLaterHandleOfTheProcess)
{
    std::filesystem::create_directory(fileOf(domain));
    Handle(device.preferences->open(domain))->setFloat("volume0", 0.5f);
    Handle later(device.preferences->open(domain));
    later->synchronize();
    EXPECT_EQ(later->objectForKey("volume0"), 0.5);
    EXPECT_EQ(device.preferences->all()[domain]["volume0"], 0.5);
    EXPECT_EQ(device.preferences->warnings().size(), 1u);
    EXPECT_EQ(device.preferences->replacements(), 0u);

    std::filesystem::remove(fileOf(domain));
    later->setFloat("volume1", 0.25f);
    later.reset();
    PreferenceDomains other(device, folder.path().string());
    EXPECT_EQ(other.all()[domain].dump(), R"({"volume0":0.5,"volume1":0.25})");
}

TEST_F(FilePreferences, ADomainAfterWhichNoFileCanBeCalledStaysInMemoryWithOneWarning)
{
    const std::string names[] = { "../outside", "", "..", std::string(300, 'x') };
    for (const std::string& name : names) {
        const auto before = device.preferences->warnings().size();
        device.preferences->set(name, "key", 1);
        Handle handle(device.preferences->open(name));
        handle->synchronize();
        EXPECT_EQ(handle->objectForKey("key"), 1);
        EXPECT_EQ(device.preferences->all()[name]["key"], 1);
        EXPECT_EQ(device.preferences->warnings().size(), before + 1) << name;
    }
    EXPECT_TRUE(folder.names().empty());
    EXPECT_FALSE(std::filesystem::exists(folder.path().parent_path() / "outside.plist"));
    EXPECT_EQ(device.preferences->warnings()[0],
        "preference domain \"../outside\" stays in memory: a domain's name has no \"/\" in it");
}

TEST_F(FilePreferences, AFolderThatDoesNotExistIsMadeByTheFirstSaveOnly)
{
    PreferenceDomains domains(device, folder / "new");
    EXPECT_EQ(domains.all(), Json::object());
    Handle(domains.open(domain))->synchronize();
    EXPECT_FALSE(std::filesystem::exists(folder / "new"));
    domains.set(domain, "key", 1);
    EXPECT_TRUE(std::filesystem::exists(folder / "new/net.qorvath.panotra.plist"));
    EXPECT_TRUE(domains.warnings().empty());
}

} // namespace
} // namespace panotra::sim
