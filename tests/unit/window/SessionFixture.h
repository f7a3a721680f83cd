/// A session with a folder of its own; what it records and traces is kept as text.
#pragma once

#include "simulator/LinkedLibrary.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/preferences/DomainNames.h"
#include "simulator/preferences/PropertyListFile.h"
#include "simulator/window/Session.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>

namespace panotra::testing {

inline constexpr const char* ownDomain = "net.qorvath.panotra";

class SessionFixture : public ::testing::Test {
protected:
    sim::Session& start() { return session.emplace(setupOfFixture(), library); }
    sim::SessionSetup setupOfFixture()
    {
        sim::SessionSetup setup;
        setup.preferencesFolder = folder.path();
        setup.record = [this](std::string_view text) {
            recorded += text;
        };
        setup.trace = [this](std::string_view text) {
            traced += text;
        };
        setup.fileFailed = [this](const std::string& message) {
            complaints += message + '\n';
        };
        return setup;
    }

    /// Another process writes a setting into the file, or removes it.
    void writeElsewhere(
        const std::string& key, const std::optional<sim::Json>& value, const std::string& domain = ownDomain) const
    {
        preferences::PropertyListFile file(
            preferences::fileOfDomain(folder.path(), domain), [](const std::string& line) { FAIL() << line; });
        if (value)
            file.set(key, *value);
        else
            file.unset(key);
        ASSERT_EQ(file.save(), preferences::Saved::Replaced);
    }

    /// The lines recorded since the last call.
    std::string newLines()
    {
        auto lines = recorded.substr(m_linesSeen);
        m_linesSeen = recorded.size();
        return lines;
    }

    preferences::testing::TemporaryFolder folder;
    sim::Library library = sim::loadedLibrary();
    std::string recorded;
    std::string traced;
    std::string complaints;
    std::optional<sim::Session> session;

private:
    std::size_t m_linesSeen = 0;
};

} // namespace panotra::testing
