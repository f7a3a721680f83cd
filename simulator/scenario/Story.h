/// What happened, in words and once: the events of a moment become a few clauses.
///
/// A moment is what comes of one command at one time. The twelve levels of a save, the animations of a fade-in, the
/// echo of a change: whatever says one thing becomes one clause. What a person does not see, as the end of an
/// animation, is left to the verbose text.
#pragma once

#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/Moment.h"
#include "simulator/scenario/Paragraph.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

struct Clause {
    std::vector<Phrase> words;
    std::vector<std::string_view> events; ///< the kinds of event of which it may come
};

class Story {
public:
    Story();

    /// What the phone is like from the command on, where no event tells it.
    void learn(const Command& command);
    /// What the events say, in the order in which a person wants to hear it. All are of one time.
    std::vector<Clause> tell(const std::vector<Json>& events);

private:
    void tellLoading(const Moment& moment);
    void tellLevels(const Moment& moment);
    void tellAnnouncement(const Moment& moment, const Moment::Announcement& announcement);
    void tellRemembered(const Moment& moment);
    void tellMixer(const Moment& moment);
    void tellSliders(const Moment& moment);
    std::string sliderWords(const std::string& field) const;
    void say(std::vector<Phrase> words, std::vector<std::string_view> events);
    std::optional<double> levelOf(const std::string& category) const;

    std::vector<Clause> m_clauses; ///< of this moment
    std::set<SlotNumber> m_toldSlots; ///< in this moment, by their levels

    // The phone.
    std::optional<std::string> m_route;
    std::map<std::string, double> m_levels; ///< the system's, by category
    std::set<std::string> m_heldButtons;
    std::int64_t m_orientation = 1;
    // The mixer.
    std::array<std::optional<double>, volumeSlotCount> m_remembered;
    bool m_isShown = false;
    bool m_isLeaving = false;
    std::int64_t m_shownOrientation = 1;
    std::set<std::string> m_swollen; ///< sliders, by the fields that hold them
};

} // namespace panotra::sim
