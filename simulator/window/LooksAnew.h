/// A mixer that is shown takes other looks: it is dismissed and presented anew, by lines like any other.
///
/// The mixer itself reads style, skin and size when it is built, so on a phone a change is seen at the next showing.
/// Whoever plays with them wants to see it at once.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/Grammar.h"

#include <optional>
#include <string>

namespace panotra::sim {

/// Whether the mixer looks different for the setting once it is shown anew.
bool changesLooks(const std::string& domain, const std::string& key);

class LooksAnew {
public:
    explicit LooksAnew(Device& device)
        : m_device(device)
    {
    }

    /// The looks have changed. Nothing happens unless a mixer is shown.
    void ask();
    /// To be called after each command that was played: what shows a mixer shows it again.
    void follow(const Command& command);
    /// The line that is to be played now, or none.
    std::optional<std::string> next();

private:
    enum class Step {
        Idle,
        ToDismiss, ///< once nothing moves: a dismissal in the fade-in is overtaken by it
        ToPresent, ///< once the old one is gone
    };

    bool isShown() const;
    std::string presentingLine() const;

    Device& m_device;
    Step m_step = Step::Idle;
    double m_dismissedAt = 0; ///< on the phone's clock
    bool m_wasShown = false;
    bool m_isOfGesture = false; ///< it was asked for, and stays until it is sent away
};

} // namespace panotra::sim
