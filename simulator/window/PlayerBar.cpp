/// What stands below the phone while a scenario is played, and what is shown over the phone for a while.
#include "simulator/text/Printable.h"
#include "simulator/window/Board.h"
#include "simulator/window/Palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace panotra::sim {

using render::TextAlignment;
using render::TextWeight;

namespace {

/// "1:05": whole seconds, as a clock of a player shows them.
std::string minutesAndSeconds(double seconds)
{
    constexpr double most = 359999;
    const auto whole = static_cast<long>(std::floor(std::min(seconds, most)));
    std::array<char, 32> text {};
    std::snprintf(text.data(), text.size(), "%ld:%02ld", whole / 60, whole % 60);
    return text.data();
}

void addAct(Sheet& sheet, const Subject& subject, Area area, WindowAct act, const char* label, bool isOn)
{
    const Spot spot { area, Spot::Purpose::Act, static_cast<std::size_t>(act) };
    addButton(sheet, area, keyOf(act).cap, label, "", subject.emphasisOf(spot, isOn));
    sheet.spots.push_back(spot);
}

/// What happens now: the line that comes next while time stands still, else who has the phone.
std::string stateOf(const Subject& subject)
{
    const Session& session = subject.session;
    if (!session.isPlaying())
        return "The phone is yours";
    if (!subject.desk->pace().isPaused())
        return "Touch the phone to take over";
    const Command& next = *session.playback()->next();
    const std::string_view words = next.source.substr(0, next.source.size() - commentIn(next.source).size());
    return "Next, line " + std::to_string(next.line) + ": " + printable(words);
}

void addProgress(Sheet& sheet, const Playback& playback, const Area& area)
{
    constexpr double thickness = 4;
    const Area track { area.x, area.y + (area.height - thickness) / 2, area.width, thickness };
    sheet.add(Box { track, palette::track, thickness / 2 });
    const double whole = playback.isAtEnd() ? 1 : 0;
    const double part = playback.length() > 0 ? std::min(playback.elapsed() / playback.length(), 1.0) : whole;
    if (part > 0)
        sheet.add(Box {
            { track.x, track.y, std::max(track.width * part, thickness), thickness }, palette::accent, thickness / 2 });
}

void addButtons(Sheet& sheet, const Subject& subject, Area row)
{
    constexpr double gap = 4;
    constexpr double speedWidth = 40;
    const Pace& pace = subject.desk->pace();
    constexpr double roomForLabels = 430;
    const bool hasLabels = row.width >= roomForLabels;
    const double keys = row.width - speedWidth;
    const auto button = [&](WindowAct act, double part, const char* label, bool isOn = false) {
        Area area = row.takeLeft(keys * part);
        area.width -= gap;
        addAct(sheet, subject, area, act, hasLabels ? label : "", isOn);
    };
    button(WindowAct::FromStart, 0.22, "Start");
    button(WindowAct::Pause, 0.26, pace.isPaused() ? "Go on" : "Pause", pace.isPaused());
    button(WindowAct::NextLine, 0.18, "Line");
    button(WindowAct::NextFrame, 0.2, "Frame");
    button(WindowAct::Slower, 0.07, "");
    addText(sheet, row.takeLeft(speedWidth), pace.speed(), palette::text, plainText, TextAlignment::Center);
    button(WindowAct::Faster, 0.07, "");
}

} // namespace

void addPlayer(Sheet& sheet, const Subject& subject, Area area)
{
    constexpr double captionHeight = 46;
    constexpr double progressHeight = 16;
    constexpr double stateHeight = 24;
    constexpr double timeWidth = 92;
    constexpr double buttonHeight = 28;
    if (subject.desk == nullptr || subject.session.playback() == nullptr)
        return;
    const Playback& playback = *subject.session.playback();
    const Area words = area.takeTop(captionHeight);
    if (const Caption* const caption = playback.caption())
        sheet.add(Text {
            words, printable(caption->text), { 15, TextWeight::Regular, TextAlignment::Center, 2 }, palette::bright });
    addProgress(sheet, playback, area.takeTop(progressHeight));
    Area state = area.takeTop(stateHeight);
    addText(sheet, state.takeRight(timeWidth),
        minutesAndSeconds(playback.elapsed()) + " / " + minutesAndSeconds(playback.length()), palette::dim, smallText,
        TextAlignment::Right);
    addText(sheet, state, stateOf(subject), palette::dim, smallText);
    area.takeTop(6);
    addButtons(sheet, subject, area.takeTop(buttonHeight));
}

void addNotices(Sheet& sheet, const Subject& subject)
{
    if (subject.desk == nullptr)
        return;
    const Area& stand = subject.layout.stand;
    if (subject.session.isRecording()) {
        constexpr double size = 12;
        const Area mark { stand.x, stand.y, 62, 26 };
        sheet.add(Box { mark, palette::card, mark.height / 2, palette::edge });
        sheet.add(Box { { mark.x + 9, mark.y + (mark.height - size) / 2, size, size }, palette::red, size / 2 });
        addText(sheet, { mark.x + 27, mark.y, mark.width - 27, mark.height }, "REC", palette::bright, smallText,
            TextAlignment::Left, TextWeight::Medium);
    }
    if (!subject.desk->notice())
        return;
    // Two lines hold the name of any file that is worth reading.
    constexpr double height = 44;
    const double width = std::min(stand.width, 440.0);
    const Area box { stand.x + (stand.width - width) / 2, stand.bottom() - height, width, height };
    sheet.add(Box { box, palette::card, 12, palette::edge });
    sheet.add(Text { box.inset(14, 2), subject.desk->notice()->text,
        { plainText, TextWeight::Regular, TextAlignment::Center, 2 }, palette::bright });
}

} // namespace panotra::sim
