/// What a person does to a phone and its accessories, told in scenario lines.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/Geometry.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/scenario/Grammar.h"

#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

using Lines = std::vector<std::string>;

/// Who says where sound is heard, and what plays.
enum class SoundChoice {
    Persons, ///< the person with the phone
    Others, ///< nothing that is done to the phone changes it
};

/// Remembers what the device itself does not know: what is plugged in, and what went on before a call.
class Phone {
public:
    explicit Phone(const Device& device, SoundChoice choice = SoundChoice::Persons)
        : m_device(device)
        , m_soundChoice(choice)
    {
    }

    // Each answers the lines that do it; the phone counts as being so from then on. Where the choice is others', there
    // are none for routes, categories and calls.
    Lines press(Button button) const;
    Lines release(Button button) const;
    Lines switchRinger();
    Lines shake();
    /// A quarter turn to the left.
    Lines turn() const;
    Lines switchScreen();
    /// Puts an accessory in or takes it out; one of the phone's own routes is chosen.
    Lines useRoute(const std::string& route);
    Lines nextCategory() const;
    Lines beginOrEndCall();
    Lines playNotificationSound() const { return { "sound 1" }; }
    Lines sendGesture(const std::string& listener) const { return { "activator " + listener }; }

    /// Takes over what a line of a scenario makes of the phone, before it is played.
    void follow(const Command& command);

    bool isHeld(Button button) const;
    bool isRingerMuted() const { return m_isRingerMuted; }
    bool isScreenOn() const { return m_isScreenOn; }
    bool isInCall() const;
    bool isSoundChosenHere() const { return m_soundChoice == SoundChoice::Persons; }
    /// How far the phone is beside its place just now, in points; 0 at rest.
    double shakeOffset() const;
    bool isShaking() const;
    /// Where the finger of a scenario is on the screen, in points; none if it is lifted.
    const std::optional<Point>& finger() const { return m_finger; }
    bool isActive(const std::string& route) const;
    bool isPluggedIn(const std::string& accessory) const;
    std::string category() const;
    std::string orientation() const;

private:
    std::string ownRoute() const;
    void changeRoute(Lines& lines, const std::string& route) const;
    std::string announcement(const std::string& category, const char* reason) const;

    const Device& m_device;
    SoundChoice m_soundChoice;
    std::vector<std::string> m_accessories; ///< the last one plugged in last
    std::optional<std::string> m_categoryBeforeCall; ///< none: there is no call
    std::optional<Point> m_finger;
    std::optional<double> m_shakenAt; ///< on the phone's clock
    bool m_isRingerMuted = false;
    bool m_isScreenOn = true;
};

} // namespace panotra::sim
