/// One server at a time.
#include "tests/desktop/ServerTest.h"

#include <algorithm>
#include <cstdlib>

namespace panotra::testing {

namespace {

ServerProcess& serverOf(ServerKind kind)
{
    static std::unique_ptr<ServerProcess> running;
    if (running == nullptr || running->kind() != kind) {
        running.reset();
        running = std::make_unique<ServerProcess>(kind);
        running->start();
    }
    return *running;
}

std::filesystem::path freshFolder(const ServerProcess& server)
{
    static int count = 0;
    return server.folder() / ("test-" + std::to_string(++count));
}

} // namespace

ServerTest::ServerTest()
    : server(serverOf(GetParam()))
    , desktop(freshFolder(server))
{
    for (const KnownOutputKind& kind : knownOutputKinds)
        person->setVolume(kind.name, fullScale);
    person->useOutput("speaker");
}

ServerTest::~ServerTest()
{
    EXPECT_EQ(desktop.end(SIGTERM), 0) << desktop.complaints();
}

std::string ServerTest::pairOf(const std::string& category, const KnownOutputKind& output)
{
    struct Row {
        const char* route;
        const char* words;
    };
    static constexpr Row rows[] = { { "Speaker", "Speaker" }, { "Receiver", "Receiver" },
        { "Headphone", "Headphone or Headset" }, { "Headset", "Headphone or Headset" },
        { "HeadphonesBT", "HeadphonesBT or HeadsetBT" }, { "HeadsetBT", "HeadphonesBT or HeadsetBT" } };
    if (output.route == nullptr)
        return {};
    if (category == "Alarm" || category == "VoiceCommand")
        return category;
    for (const Row& row : rows) {
        if (row.route == std::string(output.route))
            return category + ", " + row.words;
    }
    return {};
}

const KnownOutputKind& ServerTest::outputNamed(const std::string& name)
{
    return *std::ranges::find(knownOutputKinds, name, [](const KnownOutputKind& each) { return each.name; });
}

int ServerTest::rounds(const char* variable, int usually)
{
    const char* const asked = std::getenv(variable);
    return asked == nullptr ? usually : std::atoi(asked);
}

std::string ServerTest::categorySoon(const std::string& expected)
{
    return soon([this] { return desktop.status(1).facts["Category"]; }, expected);
}

std::string ServerTest::outputSoon(const std::string& expected)
{
    return soon([this] { return desktop.status(1).facts["Output"]; }, expected);
}

std::uint32_t ServerTest::volumeSoon(const std::string& output, std::uint32_t expected)
{
    desktop.status();
    return soon([&] { return person->volume(output); }, expected);
}

std::uint32_t ServerTest::rememberedSoon(const std::string& pair, std::uint32_t expected)
{
    return soon([&] { return remembered(pair, 1); }, expected);
}

std::uint32_t ServerTest::remembered(const std::string& pair, int questions)
{
    const auto all = desktop.status(questions).remembered;
    const auto found = all.find(pair);
    return found == all.end() ? 0 : found->second;
}

} // namespace panotra::testing
