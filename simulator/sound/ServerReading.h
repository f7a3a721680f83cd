/// What a sound server's changes mean: who changed the volume, what is heard where, and what the server is to be told.
/// It decides and talks to nobody.
///
/// Our own sets are told from others' by order and not by time. A server carries out what one client asks in the order
/// in which it was asked, so a snapshot that was asked after a set was answered shows that set or something later. What
/// it shows in between is the volume from before, or the set. Only a volume that is neither was set by somebody else,
/// and so was the one from before if the server has said since the set that something changed. PipeWire may answer a
/// set before its effect is to be seen; the volume from before may then be taken for somebody's. The effect follows, is
/// taken for somebody's too, and is what remains: what is heard and what is remembered agree in the end.
#pragma once

#include "simulator/sound/ServerState.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace panotra::sound {

enum class Reason { ExplicitVolume, Route, Category };

/// Something to announce, with what was true when it happened.
struct Announcement {
    Reason reason;
    std::string category;
    OutputRoute route;
    float level; ///< 0 to 1

    bool operator==(const Announcement&) const = default;
};

/// Why a level is wished for.
enum class Wish {
    PutBack, ///< it was remembered. A volume above full is left alone.
    Chosen, ///< somebody chose it just now
};

/// 0 to 1: the loudest channel; above full counts as 1.
float levelOf(const ChannelVolumes& volumes);

/// `balance` with its loudest channel at that level. Where it is silent all channels are as loud.
ChannelVolumes volumesAt(float level, const ChannelVolumes& balance);

class ServerReading {
public:
    /// What happened since the last snapshot, in this order: somebody's change of the volume, another output, another
    /// category. A change of the volume that came with another port of the same output is nobody's: each port has its
    /// own volume.
    std::vector<Announcement> see(const Snapshot& snapshot);
    void hear(const Answer& answer);
    void lose();

    /// The server is to be told, unless a later wish comes first: only the last one counts.
    void wish(float level, Wish wish);
    void forgetWish() { m_wish.reset(); }
    /// Unless somebody chose it.
    void forgetPutBack()
    {
        if (m_wish && m_wish->why == Wish::PutBack)
            m_wish.reset();
    }
    /// What the server is to be told now: one set at a time, the next after its answer. None: nothing, or not yet.
    std::optional<VolumeSet> nextSet(Serial serial);
    /// Whether all that was to be told is told, and was seen.
    bool isAtRest() const { return !m_wish && m_inFlight.empty(); }

    bool isConnected() const { return m_isConnected; }
    const std::string& server() const { return m_server; } ///< its name; empty before it is there
    /// The default output as it was last seen; null: none.
    const Output* output() const { return m_output ? &*m_output : nullptr; }
    const OutputRoute& route() const { return m_route; }
    const std::string& category() const { return m_category; } ///< what played last
    float level() const { return m_output ? levelOf(m_output->volumes) : 0; }

private:
    struct OwnSet {
        VolumeSet set;
        std::optional<Serial> answered {};
    };
    struct WishedLevel {
        float level;
        Wish why;
    };

    bool wasSetByOthers(const Output& now, const Snapshot& snapshot);
    bool isSettled(const Snapshot& snapshot) const;
    void noteStreams(const Snapshot& snapshot);
    std::string categoryNow(const Snapshot& snapshot) const;
    void noteBalance(const Output& output);
    float levelToCome() const;

    bool m_isConnected = false;
    std::string m_server;
    std::optional<Output> m_output;
    OutputRoute m_route { "none", false };
    std::string m_category = "Audio/Video";
    std::vector<OwnSet> m_inFlight; ///< not yet seen, oldest first
    std::optional<WishedLevel> m_wish;
    std::map<std::uint32_t, std::uint64_t> m_begun; ///< streams that play, by index: the place of their beginning
    std::uint64_t m_beginnings = 0;
    std::map<std::string, ChannelVolumes> m_balances; ///< by output: the last volumes that were not silent
};

} // namespace panotra::sound
