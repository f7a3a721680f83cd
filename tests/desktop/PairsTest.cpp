/// Every pair of what plays and where it is heard is set, left, returned to and found at its level.
#include "tests/desktop/ServerTest.h"

#include <cstdio>
#include <fstream>

namespace panotra::testing {
namespace {

struct KnownRole {
    const char* role;
    const char* category;
};

/// Runs a command of the server's own tools; answers the first line of what it prints.
std::string tool(const std::string& command)
{
    std::FILE* const output = ::popen(command.c_str(), "r");
    char line[256] = "";
    static_cast<void>(std::fgets(line, sizeof line, output));
    EXPECT_EQ(::pclose(output), 0) << command;
    return line;
}

/// As `pactl` prints it: "Volume: front-left: 26214 /  40% / …".
unsigned long volumeByTool(const std::string& output)
{
    const std::string line = tool("pactl get-sink-volume " + output);
    return std::stoul(line.substr(line.find("left:") + 5));
}

class Pairs : public ServerTest { };

TEST_P(Pairs, EachIsFoundAtItsLevelAsTheServersToolsSetAndShowIt)
{
    constexpr KnownRole roles[] = { { "music", "Audio/Video" }, { "phone", "PhoneCall" },
        { "assistant", "VoiceCommand" }, { "alarm", "Alarm" } };
    desktop.start();
    std::map<std::string, unsigned long> expected;
    unsigned long level = 9999;
    for (const bool returns : { false, true }) {
        for (const KnownRole& role : roles) {
            const std::uint32_t stream = person->play(role.role);
            for (const KnownOutputKind& output : knownOutputKinds) {
                tool("pactl set-default-sink " + std::string(output.name));
                person->useOutput(output.name);
                const std::string pair = pairOf(role.category, output);
                outputSoon(output.name);
                categorySoon(role.category);
                if (returns) {
                    const auto steps = expected[pair];
                    if (!pair.empty()) {
                        EXPECT_EQ(soon([&] { return volumeByTool(output.name); }, steps), steps)
                            << pair << " on " << output.name;
                    }
                    continue;
                }
                level += 1777;
                tool("pactl set-sink-volume " + std::string(output.name) + ' ' + std::to_string(level));
                expected[pair] = level;
                if (!pair.empty()) {
                    EXPECT_EQ(rememberedSoon(pair, static_cast<std::uint32_t>(level)), level) << pair;
                }
            }
            person->stop(stream);
        }
    }
    expected.erase("");
    const auto remembered = desktop.status().remembered;
    ASSERT_EQ(remembered.size(), 10U);
    for (const auto& [pair, steps] : remembered)
        EXPECT_EQ(steps, expected[pair]) << pair;
}

TEST_P(Pairs, StreamsOfEveryRoleAreKnownByTheirCategory)
{
    constexpr KnownRole roles[] = { { "phone", "PhoneCall" }, { "music", "Audio/Video" },
        { "Communication", "PhoneCall" }, { "event", "PhoneCall" }, { "Notification", "PhoneCall" },
        { "assistant", "VoiceCommand" }, { "", "Audio/Video" }, { "Alarm", "Alarm" }, { "video", "Audio/Video" },
        { "Assistant", "VoiceCommand" }, { "game", "Audio/Video" } };
    desktop.start();
    for (const KnownRole& role : roles) {
        const std::uint32_t stream = person->play(role.role);
        EXPECT_EQ(categorySoon(role.category), role.category) << role.role;
        person->stop(stream);
        EXPECT_EQ(categorySoon(role.category), role.category) << "silence after " << role.role;
    }
}

TEST_P(Pairs, AProgramThatPlaysIsHeard)
{
    desktop.start();
    const std::string script = "pacat --raw --rate=8000 --channels=1 --latency-msec=1000 --property=media.role=phone "
                               "/dev/zero & player=$!; until pactl list sink-inputs | grep -q phone; do sleep 0.05; "
                               "done; sleep 0.1; kill $player; wait $player; echo";
    std::ofstream(server.folder() / "play.sh") << script;
    tool("sh " + (server.folder() / "play.sh").string());
    EXPECT_EQ(categorySoon("PhoneCall"), "PhoneCall");
}

TEST_P(Pairs, APausedStreamIsSilenceAndBeginsAgain)
{
    desktop.start();
    const std::uint32_t music = person->play("music");
    const std::uint32_t alarm = person->play("alarm");
    EXPECT_EQ(categorySoon("Alarm"), "Alarm");
    person->pause(alarm, true);
    EXPECT_EQ(categorySoon("Audio/Video"), "Audio/Video");
    person->pause(alarm, false);
    EXPECT_EQ(categorySoon("Alarm"), "Alarm");
    person->stop(music);
    person->stop(alarm);
}

TEST_P(Pairs, TheFirstStartChangesNothingNorDoesLeaving)
{
    person->setVolumes("speaker", 30000, 20000);
    desktop.start();
    EXPECT_EQ(volumeSoon("speaker", 30000U), 30000U);
    EXPECT_EQ(desktop.end(SIGTERM), 0);
    EXPECT_EQ(person->volumes("speaker"), std::pair(30000U, 20000U));
    for (const KnownOutputKind& output : knownOutputKinds) {
        if (output.name != std::string("speaker")) {
            EXPECT_EQ(person->volume(output.name), fullScale);
        }
    }
}

TEST_P(Pairs, ThePushKeepsTheBalanceAndTheLimit)
{
    desktop.start({ "--limit", "50" });
    person->setVolumes("speaker", 20000, 10000);
    rememberedSoon("Audio/Video, Speaker", 20000);
    const std::uint32_t call = person->play("phone");
    categorySoon("PhoneCall");
    person->setVolumes("speaker", 60000, 30000);
    rememberedSoon("PhoneCall, Speaker", 60000);
    person->stop(call);
    const std::uint32_t music = person->play("music");
    const auto volumes = [this] {
        return person->volumes("speaker");
    };
    EXPECT_EQ(soon(volumes, std::pair(20000U, 10000U)), std::pair(20000U, 10000U));
    const std::uint32_t again = person->play("phone");
    EXPECT_EQ(soon(volumes, std::pair(32768U, 16384U)), std::pair(32768U, 16384U));
    EXPECT_EQ(rememberedSoon("PhoneCall, Speaker", 60000U), 60000U);
    person->stop(again);
    person->stop(music);
}

TEST_P(Pairs, AboveFullIsLeftAloneUntilItIsBelow)
{
    desktop.start();
    person->setVolume("speaker", 20000);
    rememberedSoon("Audio/Video, Speaker", 20000);
    const std::uint32_t call = person->play("phone");
    categorySoon("PhoneCall");
    person->setVolume("speaker", 80000);
    rememberedSoon("PhoneCall, Speaker", fullScale);
    person->stop(call);
    const std::uint32_t music = person->play("music");
    categorySoon("Audio/Video");
    EXPECT_EQ(volumeSoon("speaker", 80000U), 80000U);
    person->setVolume("speaker", 10000);
    rememberedSoon("Audio/Video, Speaker", 10000);
    EXPECT_EQ(rememberedSoon("PhoneCall, Speaker", fullScale), fullScale);
    const std::uint32_t again = person->play("phone");
    EXPECT_EQ(volumeSoon("speaker", fullScale), fullScale);
    person->stop(again);
    person->stop(music);
}

TEST_P(Pairs, MuteIsLeftAlone)
{
    desktop.start();
    person->setVolume("speaker", 20000);
    rememberedSoon("Audio/Video, Speaker", 20000);
    const std::uint32_t call = person->play("phone");
    categorySoon("PhoneCall");
    person->setVolume("speaker", 40000);
    rememberedSoon("PhoneCall, Speaker", 40000);
    const auto before = desktop.status();
    tool("pactl set-sink-mute speaker 1");
    EXPECT_EQ(desktop.status(), before);
    person->stop(call);
    const std::uint32_t music = person->play("music");
    EXPECT_EQ(volumeSoon("speaker", 20000U), 20000U);
    EXPECT_EQ(tool("pactl get-sink-mute speaker"), "Mute: yes\n") << "after a push";
    tool("pactl set-sink-mute speaker 0");
    EXPECT_EQ(desktop.status().remembered, before.remembered);
    EXPECT_EQ(person->volume("speaker"), 20000U);
    person->stop(music);
}

/// Those that are not there for all tests, each chosen once.
TEST_P(Pairs, EveryOtherFormFactorHasItsRoute)
{
    constexpr KnownOutputKind others[] = {
        { "plain", "", "", "Speaker" },
        { "internal", "internal", "", "Speaker" },
        { "computer", "computer", "", "Speaker" },
        { "hifi", "hifi", "", "Speaker" },
        { "hands-free", "hands-free", "", nullptr },
        { "webcam", "webcam", "", nullptr },
        { "portable", "portable", "", nullptr },
        { "car", "car", "", nullptr },
        { "air-plain", "", "bluetooth", "HeadphonesBT" },
        { "air-speaker", "speaker", "bluetooth", "HeadphonesBT" },
        { "air-portable", "portable", "bluetooth", "HeadphonesBT" },
        { "air-car", "car", "bluetooth", "HeadphonesBT" },
        { "air-handset", "handset", "bluetooth", "HeadsetBT" },
        { "air-hands-free", "hands-free", "bluetooth", "HeadsetBT" },
    };
    desktop.start();
    for (const KnownOutputKind& output : others) {
        person->addOutput(output.name, output.formFactor, output.bus);
        person->useOutput(output.name);
        EXPECT_EQ(outputSoon(output.name), output.name);
        const std::string words
            = output.route != nullptr ? output.route : std::string(output.name) + " (nothing is remembered for it)";
        EXPECT_EQ(desktop.status(1).facts["Route"], words) << output.name;
        person->useOutput("speaker");
        person->removeLastAdded();
    }
}

INSTANTIATE_TEST_SUITE_P(Servers, Pairs, ::testing::Values(ServerKind::PulseAudio, ServerKind::PipeWire),
    [](const auto& each) { return each.param == ServerKind::PulseAudio ? "PulseAudio" : "PipeWire"; });

} // namespace
} // namespace panotra::testing
