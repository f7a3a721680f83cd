/// What the levels must be, worked out by itself: a page of rules about what is announced and what is remembered,
/// without views, animations or preferences.
#pragma once

#include <array>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace panotra::testing {

/// An older system, whose ringer is given back a tenth of a second after a sound, and an audio service that announces
/// what programs set. No level of slots 3 to 10 is ever zero: that would hold back saves.
class LevelModel {
public:
    static constexpr std::size_t slots = 12;

    std::array<float, slots> remembered {};
    std::map<std::string, float> system;

    LevelModel();

    // What happens. Each is followed by all that it brings about at once.

    void press(bool isUp);
    void changeRoute(const std::string& name);
    void changeCategory(const std::string& name);
    void setByProgram(const std::string& category, float level);
    void playSound();
    void reloadSettings();
    void beginDrag() { m_isPanning = true; }
    /// The finger is on the slot's slider, which shows that level.
    void drag(std::size_t slot, float level);
    void endDrag() { m_isPanning = false; }
    void pass(double seconds);

    const std::string& category() const { return m_category; }
    const std::string& route() const { return m_route; }

private:
    struct Announcement {
        std::string category;
        bool isExplicit;
        float level;
    };

    static int slotOf(const std::string& category, const std::string& route);
    float rememberedFor(const std::string& category) const;
    void set(const std::string& category, float level);
    void take(const Announcement& announcement);
    void settle();

    std::string m_category = "Audio/Video";
    std::string m_route = "Speaker";
    bool m_isPanning = false;
    bool m_soundIsUnderWay = false; ///< the next announcement is swallowed
    double m_now = 0;
    std::vector<double> m_restores; ///< when the ringer gets its own level back, in order
    std::deque<Announcement> m_toAnnounce;
};

} // namespace panotra::testing
