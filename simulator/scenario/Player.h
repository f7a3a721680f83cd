/// Plays a scenario: each command in turn on the simulated device, the run loop turning after every one.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/Library.h"
#include "simulator/scenario/Pictures.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace panotra::sim {

/// Who is told how the play goes. Any of them may be empty.
struct Audience {
    std::function<void(const Command& command)> commandBegins;
    /// "found …, expected …"
    std::function<void(std::size_t line, const std::string& message)> expectationFailed;
    /// A file could not be read or written: "NAME: reason".
    std::function<void(const std::string& message)> fileFailed;
};

class Player {
public:
    /// `pictures`: null where nothing can be drawn; `shot` then fails.
    Player(Device& device, Library library, Audience audience, Pictures* pictures = nullptr);

    /// `scenario` must be free of mistakes.
    void play(const Scenario& scenario);
    /// One command of such a scenario.
    void play(const Command& command);

    bool expectationsHeld() const { return m_expectationsHeld; }
    bool filesWorked() const { return m_filesWorked; }

    // What the commands do.
    Device& device() { return m_device; }
    void load() { m_library.load(); }
    void reportState();
    void reportTree();
    void shoot(const std::string& name);
    /// `value`: absent for null.
    void expect(const std::string& path, const std::optional<std::string>& value);

private:
    void failFile(const std::string& message);
    void passOnWarnings();

    Device& m_device;
    Library m_library;
    Audience m_audience;
    Pictures* m_pictures;
    std::size_t m_line = 0; ///< of the command that is being played
    std::size_t m_warningsPassedOn = 0;
    bool m_expectationsHeld = true;
    bool m_filesWorked = true;
};

} // namespace panotra::sim
