/// Random days of plugging, calls and volume changes, which must end as a small model says that shares nothing with the
/// mixer. DESKTOP_DAYS says how many (100 otherwise, others on each server), DESKTOP_SEED with which one to begin.
#include "tests/desktop/ServerTest.h"

#include <algorithm>
#include <csignal>
#include <random>

namespace panotra::testing {
namespace {

/// What should be so.
struct Model {
    struct Player {
        std::uint32_t stream;
        std::string category;
    };

    std::map<std::string, std::uint32_t> volumes; ///< by output
    std::map<std::string, std::uint32_t> remembered; ///< by pair
    std::string output = "speaker";
    std::string category = "Audio/Video";
    std::vector<Player> players; ///< the one that began last is the last

    /// What is heard has another name now, and goes to the level of that name, or gives it its own.
    void rename(const std::string& pair)
    {
        if (pair.empty())
            return;
        const auto known = remembered.find(pair);
        if (known == remembered.end())
            remembered[pair] = std::min(volumes[output], fullScale);
        else if (volumes[output] <= fullScale)
            volumes[output] = known->second;
    }
    std::string words() const
    {
        std::string words = category + " on " + output;
        for (const auto& [name, volume] : volumes)
            words += "; " + name + " at " + std::to_string(volume);
        for (const auto& [pair, steps] : remembered)
            words += "; " + pair + ": " + std::to_string(steps);
        return words;
    }
    std::string playing() const
    {
        const bool isCall
            = std::ranges::any_of(players, [](const Player& each) { return each.category == "PhoneCall"; });
        return isCall ? "PhoneCall" : players.empty() ? category : players.back().category;
    }
};

class Days : public ServerTest {
protected:
    void live(unsigned seed, int hours);
    void liveAnHour();
    void plug(const std::string& output);
    void play();
    void stop();
    void change(const std::string& output);
    void die();

    int chance(int below) { return std::uniform_int_distribution<int>(0, below - 1)(dice); }
    const KnownOutputKind& anyOutput() { return knownOutputKinds[chance(std::size(knownOutputKinds))]; }
    std::string pair() { return pairOf(model.category, outputNamed(model.output)); }
    /// The category is what plays by now.
    void settleCategory()
    {
        if (std::exchange(model.category, model.playing()) != model.category)
            model.rename(pair());
    }

    std::mt19937 dice;
    Model model;
    std::string diary; ///< of the day, for whoever looks why it went wrong
};

void Days::plug(const std::string& output)
{
    diary += " plug:" + output;
    person->useOutput(output);
    if (std::exchange(model.output, output) != output)
        model.rename(pair());
}

void Days::play()
{
    struct Role {
        const char* role;
        const char* category;
    };
    static constexpr Role roles[] = { { "music", "Audio/Video" }, { "", "Audio/Video" }, { "phone", "PhoneCall" },
        { "alarm", "Alarm" }, { "assistant", "VoiceCommand" }, { "event", nullptr } };
    const Role& role = roles[chance(std::size(roles))];
    diary += std::string(" play:") + role.role;
    const std::uint32_t stream = person->play(role.role);
    if (role.category == nullptr)
        person->stop(stream);
    else
        model.players.push_back({ stream, role.category });
    settleCategory();
}

void Days::stop()
{
    if (model.players.empty())
        return;
    const auto player = model.players.begin() + chance(static_cast<int>(model.players.size()));
    diary += " stop:" + player->category;
    person->stop(player->stream);
    model.players.erase(player);
    settleCategory();
}

void Days::change(const std::string& output)
{
    const auto volume = chance(10) == 0 ? fullScale + 4000 : static_cast<std::uint32_t>(chance(fullScale + 1));
    diary += " change:" + output + '=' + std::to_string(volume);
    person->setVolume(output, volume);
    const bool isNew = std::exchange(model.volumes[output], volume) != volume;
    if (isNew && output == model.output && !pair().empty())
        model.remembered[pair()] = std::min(volume, fullScale);
}

/// Killed without warning. Whoever comes after it knows what was remembered, and takes what plays for new.
void Days::die()
{
    diary += " die";
    desktop.end(SIGKILL);
    desktop.start();
    const std::string now = model.playing();
    const std::uint32_t volume = model.volumes[model.output];
    model.category = "Audio/Video";
    model.rename(pair());
    if (!model.players.empty() && now != model.category) {
        model.volumes[model.output] = volume; // one push for both
        model.category = now;
        model.rename(pair());
    }
}

void Days::liveAnHour()
{
    switch (chance(9)) {
    case 0:
    case 1:
        return plug(anyOutput().name);
    case 2:
    case 3:
        return model.players.size() < 3 ? play() : stop();
    case 4:
        return stop();
    case 5:
    case 6:
    case 7:
        return change(model.output);
    default:
        return chance(8) == 0 ? die() : change(anyOutput().name);
    }
}

void Days::live(unsigned seed, int hours)
{
    dice.seed(seed);
    diary.clear();
    for (int hour = 0; hour < hours; ++hour) {
        liveAnHour();
        const auto isAsTheModel = [this] {
            const auto status = desktop.status(1);
            const auto heard = person->allVolumes();
            bool isSame = status.facts.at("Category") == model.category && status.facts.at("Output") == model.output;
            for (const auto& [output, volume] : model.volumes)
                isSame = isSame && heard.at(output) == volume;
            return isSame && status.remembered == model.remembered;
        };
        ASSERT_TRUE(soon(isAsTheModel, true)) << "day " << seed << ":" << diary << "\nexpected " << model.words();
    }
}

TEST_P(Days, AnyDayEndsAsTheModelSays)
{
    for (const KnownOutputKind& output : knownOutputKinds)
        model.volumes[output.name] = fullScale;
    desktop.start();
    model.rename(pair());
    const int firstOfServer = GetParam() == ServerKind::PulseAudio ? 1 : 1001;
    const auto first = static_cast<unsigned>(rounds("DESKTOP_SEED", firstOfServer));
    const auto days = static_cast<unsigned>(rounds("DESKTOP_DAYS", 100)); // on each server
    constexpr int hours = 6;
    for (unsigned day = first; day < first + days && !HasFatalFailure(); ++day)
        live(day, hours);
    for (const auto& player : model.players)
        person->stop(player.stream);
}

INSTANTIATE_TEST_SUITE_P(Servers, Days, ::testing::Values(ServerKind::PulseAudio, ServerKind::PipeWire),
    [](const auto& each) { return each.param == ServerKind::PulseAudio ? "PulseAudio" : "PipeWire"; });

} // namespace
} // namespace panotra::testing
