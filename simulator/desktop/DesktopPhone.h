/// The phone in the computer: a home screen with the mixer in it, whose clock is the computer's and whose settings are
/// the person's.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/picture/ShownMixer.h"
#include "simulator/scenario/Library.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace panotra::sim {

class DesktopPhone {
public:
    struct Setup {
        std::string preferencesFolder; ///< exists
        std::string resourceFolder {};
        ScreenSize screen {};
        /// Where nobody has chosen, the mixer stands in for the system's indicator, and a press beside it sends it
        /// away.
        bool isSeen = false;
        std::function<void(const std::string& line)> complain {};
    };

    DesktopPhone(const Setup& setup, const Library& library);

    Device& device() { return m_device; }

    /// Lets the time pass that has passed.
    void follow();
    /// How long until something is due; none: nothing ever is.
    std::optional<std::chrono::microseconds> untilDue() const;
    /// Looks whether other processes have changed settings, and announces it as the settings page does.
    void lookForForeignChanges();
    bool filesWorked() const { return m_filesWorked; }

private:
    using Clock = std::chrono::steady_clock;

    void chooseWhereNobodyHas(const char* setting);
    Json settings() const;
    void passOnWarnings();

    Device m_device;
    std::function<void(const std::string& line)> m_complain;
    Clock::time_point m_begin = Clock::now();
    Json m_settings;
    std::size_t m_warningsPassedOn = 0;
    bool m_filesWorked = true;
};

} // namespace panotra::sim
