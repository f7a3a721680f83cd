/// Lines played, time passed on, and what other processes write noticed.
#include "simulator/window/Session.h"

#include "facts/AudioNames.h"
#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/scenario/Forms.h"
#include "simulator/text/Printable.h"
#include "simulator/window/Numerals.h"
#include "simulator/window/SettingLines.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <utility>

namespace panotra::sim {

namespace {

/// Levels that tell the categories apart at a glance.
constexpr std::array<double, audioCategories.size()> pleasantLevels { 0.5625, 0.625, 0.75, 0.875, 0.4375, 0.5 };

/// A window shows the screen; what `shot` would write is for those who play the file for its pictures.
struct UntakenPictures : Pictures {
    std::optional<std::string> write(Device&, const std::string&) override { return std::nullopt; }
};

Pictures* untakenPictures()
{
    static UntakenPictures pictures;
    return &pictures;
}

bool hasOtherLooks(const Scenario& scenario)
{
    return std::ranges::any_of(scenario.commands, [](const Command& command) {
        const std::string_view name = command.form->syntax.command();
        return (name == "pref" || name == "unpref")
            && changesLooks(command.arguments.text(0), command.arguments.text(1));
    });
}

} // namespace

/// A line is checked as one of a whole scenario, in which the library has been loaded before.
struct Session::ParsedLine {
    ParsedLine(const std::string& line, bool isLoaded)
        : text(isLoaded ? "load\n" + line : line)
        , scenario(parseScenario(text))
    {
        assert(scenario.mistakes.empty());
        if (isLoaded)
            scenario.commands.erase(scenario.commands.begin());
    }

    const std::string text;
    Scenario scenario;
};

Session::Session(SessionSetup setup, const Library& library)
    : m_setup(std::move(setup))
    , m_device(m_setup.preferencesFolder)
    , m_lines([this](const TraceLine& line) { keep(line); })
    , m_player(m_device, library,
          Audience { .commandBegins = [this](const Command& command) { tell(command); },
              .expectationFailed = m_setup.expectationFailed,
              .fileFailed = m_setup.fileFailed },
          untakenPictures())
    , m_looks(m_device)
{
    if (m_setup.trace)
        m_json = makeTraceWriter(TraceFormat::JsonLines, m_setup.trace);
    m_device.resourceFolder = m_setup.resourceFolder;
    m_device.traceSink = [this](const Json& event) {
        observe(event);
    };
    if (m_setup.scenario != nullptr) {
        readSettings();
        m_playback.emplace(*m_setup.scenario, static_cast<Stage&>(*this));
    } else {
        start();
    }
}

void Session::start()
{
    const ScreenSize& screen = m_setup.screen;
    if (m_setup.system)
        play("ios " + std::to_string(*m_setup.system));
    play("screen " + numeral(screen.width) + ' ' + numeral(screen.height) + ' ' + numeral(screen.scale));
    readSettings();
    constexpr const char* replacesIndicator = mixerSetting("replaceHUD").key;
    if (setting(ownDomain, replacesIndicator) == nullptr) {
        play(lineOfSetting(ownDomain, replacesIndicator, true));
        m_settings[ownDomain][replacesIndicator] = true;
    }
    for (std::size_t i = 0; i < pleasantLevels.size(); ++i)
        play(std::string("system ") + audioCategories[i] + ' ' + numeral(pleasantLevels[i]));
    playAll({ "echo on", "load", "launch" });
}

/// What is in the files already is nothing to be done, but a recording has to know it.
void Session::readSettings()
{
    m_settings = m_device.preferences->all();
    for (const std::string& line : linesOfChanges(Json::object(), m_settings))
        record(line);
}

void Session::play(const std::string& line)
{
    takeOver();
    act(line);
}

void Session::playAll(const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        play(line);
}

void Session::act(const std::string& line)
{
    record(line);
    run(line);
    m_lineTime = m_device.runLoop->now();
}

void Session::takeOver()
{
    if (!m_playback)
        return;
    m_isTakenOver = true;
    if (m_isLoaded)
        return;
    act("load");
    act("launch");
}

void Session::playNextLine()
{
    if (isPlaying())
        m_playback->playLine();
}

void Session::set(const std::string& domain, const std::string& key, const Json& value)
{
    // What somebody else has just written is not taken for ours.
    lookForForeignChanges();
    play(lineOfSetting(domain, key, value));
    m_settings[domain][key] = value;
    if (const auto announcement = announcementOf(domain))
        play("notify " + *announcement);
    if (changesLooks(domain, key))
        m_looks.ask();
    showLooks();
}

const Json* Session::setting(const std::string& domain, const std::string& key) const
{
    const auto found = m_settings.find(domain);
    if (found == m_settings.end())
        return nullptr;
    const auto value = found->find(key);
    return value == found->end() ? nullptr : &*value;
}

void Session::lookForForeignChanges()
{
    const Json before = std::exchange(m_settings, m_device.preferences->all());
    bool haveLooksChanged = false;
    for (const std::string& line : linesOfChanges(before, m_settings)) {
        record(line);
        const ParsedLine parsed(line, m_isLoaded);
        for (const Command& command : parsed.scenario.commands)
            tell(command);
        haveLooksChanged = haveLooksChanged || hasOtherLooks(parsed.scenario);
    }
    for (const std::string& domain : changedDomains(announced(before), announced(m_settings))) {
        // Before the library is there nobody hears of it.
        if (const auto announcement = announcementOf(domain); announcement && m_isLoaded)
            act("notify " + *announcement);
    }
    // A scenario goes as it was written.
    if (haveLooksChanged && !isPlaying())
        m_looks.ask();
    showLooks();
}

/// Those settings whose change is announced.
Json Session::announced(const Json& settings) const
{
    if (!m_setup.isUnannounced)
        return settings;
    Json some = Json::object();
    for (const auto& domain : settings.items()) {
        for (const auto& setting : domain.value().items()) {
            if (!m_setup.isUnannounced(domain.key(), setting.key()))
                some[domain.key()][setting.key()] = setting.value();
        }
    }
    return some;
}

void Session::advance(std::chrono::microseconds time)
{
    if (isPlaying())
        time = m_playback->passTime(time);
    if (!isPlaying())
        passTime(time);
    showLooks();
}

void Session::showLooks()
{
    while (const auto line = m_looks.next())
        act(*line);
}

void Session::passTime(std::chrono::microseconds time)
{
    m_sinceLine += time;
    moveClockTo(m_lineTime + static_cast<double>(m_sinceLine.count()) / 1e6);
}

/// The clock then stands where a single `wait` since the last line would have put it, to the bit.
void Session::moveClockTo(double time)
{
    while (m_device.runLoop->now() < time) {
        const double now = m_device.runLoop->now();
        double step = time - now;
        while (now + step > time)
            step = std::nextafter(step, 0);
        run("wait " + numeral(step));
    }
}

std::chrono::microseconds Session::untilDue() const
{
    constexpr double minute = 60;
    const double now = m_device.runLoop->now();
    const auto& indicator = m_device.home->indicator;
    // The status bar shows minutes. That is never far, however late the rest is due, so it fits the clock's type.
    double due = (std::floor(now / minute) + 1) * minute;
    due = std::min(due, m_device.runLoop->nextDue().value_or(due));
    if (indicator && now < indicator->fadesAt())
        due = std::min(due, indicator->fadesAt());
    if (const auto& banner = m_device.home->banner; banner && now < banner->leavesAt())
        due = std::min(due, banner->leavesAt());
    const auto rest = std::chrono::microseconds(std::llround(std::ceil((due - now) * 1e6)));
    return isPlaying() ? std::min(rest, m_playback->untilNextLine().value_or(rest)) : rest;
}

bool Session::isMoving() const
{
    const double now = m_device.runLoop->now();
    const auto& indicator = m_device.home->indicator;
    const bool isFading = indicator && now >= indicator->fadesAt() && now < indicator->goneAt();
    const auto& banner = m_device.home->banner;
    const bool isSliding = banner && banner->isMovingAt(now);
    return isFading || isSliding || m_device.runLoop->runningAnimations() > 0;
}

void Session::beginRecording(std::function<void(std::string_view)> record)
{
    recordTime();
    m_recorder = std::move(record);
    m_recorder(m_history);
}

void Session::endRecording()
{
    recordTime();
    m_recorder = nullptr;
}

void Session::finish()
{
    recordTime();
}

void Session::recordTime()
{
    if (m_sinceLine.count() > 0)
        remember("wait " + inSeconds(m_sinceLine));
    m_sinceLine = {};
    m_lineTime = m_device.runLoop->now();
}

void Session::record(const std::string& line)
{
    recordTime();
    remember(line);
}

void Session::remember(std::string_view text)
{
    const std::string line = std::string(text) + '\n';
    m_history += line;
    if (m_setup.record)
        m_setup.record(line);
    if (m_recorder)
        m_recorder(line);
}

void Session::run(const std::string& line)
{
    const ParsedLine parsed(line, m_isLoaded);
    m_player.play(parsed.scenario);
    for (const Command& command : parsed.scenario.commands)
        m_looks.follow(command);
    m_lines.finish();
    m_isLoaded = m_isLoaded || line == "load";
}

void Session::tell(const Command& command)
{
    m_lines.finish();
    // Time passes all the time.
    if (!command.source.starts_with("wait"))
        keep({ "", printable(command.source) });
}

void Session::keep(TraceLine line)
{
    m_traceLines.push_back(std::move(line));
    while (m_traceLines.size() > traceLinesKept)
        m_traceLines.pop_front();
}

void Session::observe(const Json& event)
{
    if (m_json != nullptr)
        m_json->event(event);
    m_lines.event(event);
    if (event.at("event") == "write")
        m_settings[event.at("domain").get<std::string>()][event.at("key").get<std::string>()] = event.at("value");
}

} // namespace panotra::sim
