/// The phone of a window, whose sound is the computer's: its buttons and sliders set the server's volume, and what
/// happens at the server happens to it, in lines of the scenario language like everything else.
#pragma once

#include "simulator/desktop/DesktopMixer.h"
#include "simulator/window/Phone.h"
#include "simulator/window/Session.h"

#include <functional>
#include <string>

namespace panotra::sim {

class WiredPhone {
public:
    struct Setup {
        std::string preferencesFolder; ///< exists
        std::string resourceFolder {};
        float limit = 1; ///< how loud what is put back may be, 0 to 1
        std::function<void(const std::string& line)> complain {};
    };

    /// The server must outlive this.
    WiredPhone(const Setup& setup, const Library& library, sound::SoundServer& server);

    Session& session() { return m_session; }
    Phone& phone() { return m_phone; }
    DesktopMixer& mixer() { return m_mixer; }

    /// Shows the mixer, if it is not there already.
    void present();

private:
    static SessionSetup sessionSetup(const Setup& setup);
    void announce(const sound::Announcement& happened);

    Session m_session;
    Phone m_phone;
    DesktopMixer m_mixer;
};

} // namespace panotra::sim
