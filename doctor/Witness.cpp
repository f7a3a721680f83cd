/// One announcement of the audio service, seen from beside: the notification that the service posts of it. No method is
/// replaced for that.
#include "doctor/Examination.h"

#include "doctor/HostMessages.h"
#include "doctor/Report.h"
#include "doctor/Text.h"
#include "hooks/HostTables.h"
#include "platform/AVSystemController.h"
#include "platform/Dispatch.h"
#include "platform/MethodEntry.h"

#include <algorithm>
#include <atomic>
#include <dispatch/dispatch.h>
#include <string>
#include <vector>

namespace panotra::doctor {

namespace {

constexpr double longestWaitSeconds = 60;

/// The notifications that speak of a level have this in their names, on every system.
constexpr std::string_view partOfName = "VolumeDidChange";
/// Some are posted in nobody's name: those are asked for by theirs.
constexpr const char* knownNames[] = {
    "AVSystemController_SystemVolumeDidChangeNotification",
    "AVSystemController_EffectiveVolumeDidChangeNotification",
    "SystemVolumeDidChange",
    "EffectiveVolumeDidChange",
};

/// The number of the report that waits for an announcement; 0: none does. Announcements come on any thread: whoever
/// takes the number away has seen the one that counts.
constinit std::atomic<int> waitingReport = 0;
/// The report that is being written. Main thread, as everything that writes.
constinit int currentReport = 0;

/// The object that the notification centre calls.
class Witness : public NSObject {
public:
    using NSObject::NSObject;

    static const ClassDescription& description() noexcept;
    void observe(const NSObject& notification) const;
    void giveUp() const;

private:
    void conclude(const std::vector<std::string>& lines) const;
};

constinit ProcessReference<Witness> witness;

/// Of our table of keys: which systems have it there.
std::string remarkOn(std::string_view key)
{
    for (const KeyRow& row : keyRows) {
        if (key == row.name)
            return joined({ ", as our table says of iOS ", decimal(row.since), " to ", decimal(row.until) });
    }
    return {};
}

std::vector<std::string> linesOfContents(const NSDictionary& contents)
{
    std::vector<std::string> lines;
    const NSObject keys = keysOf(contents);
    const std::size_t count = countOf(keys);
    for (std::size_t index = 0; index < count; ++index) {
        const std::string text(stringAt(keys, index).view());
        lines.push_back(joined({ "  ", text, ": ",
            kindOf(contents.objectForKey(NSString::stringWithUTF8String(text.c_str()))), remarkOn(text) }));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

std::string lineOfThread()
{
    const char* const label = dispatch_queue_get_label(nullptr);
    return joined({ "  on ", isOnMainThread() ? "the main thread" : "another thread", ", queue ",
        label != nullptr ? label : "unknown" });
}

const ClassDescription& Witness::description() noexcept
{
    static const Method methods[] = {
        methodEntry<&Witness::observe>("observe:"),
        methodEntry<&Witness::giveUp>("giveUp"),
    };
    static const ClassDescription description {
        "PNODoctorWitness",
        "NSObject",
        {},
        methods,
        {},
        0,
        [](void*) {},
        [](id, void*) {},
    };
    return description;
}

void Witness::observe(const NSObject& notification) const
{
    const NSString called = nameOfNotification(notification);
    if (called.view().find(partOfName) == std::string_view::npos)
        return;
    const int seenFor = waitingReport.exchange(0);
    if (seenFor == 0)
        return;
    std::vector<std::string> lines = linesOfContents(contentsOfNotification(notification));
    lines.insert(lines.begin(), { joined({ "  ", called.view() }), lineOfThread() });
    dispatch_after(0, [self = *this, seenFor, lines] {
        if (seenFor == currentReport)
            self.conclude(lines);
    });
}

void Witness::giveUp() const
{
    if (waitingReport.exchange(0) != 0)
        conclude({ "  none within a minute" });
}

void Witness::conclude(const std::vector<std::string>& lines) const
{
    removeObserver(*this);
    for (const std::string& line : lines)
        writeLine({ line });
    writeLine({ "end" });
    endReport();
}

} // namespace

void awaitAnnouncement()
{
    if (!witness)
        witness.set(adopt<Witness>(allocate(Witness::description())));
    const Witness observer = witness.get();
    waitingReport = 0; // a report that still waits is not finished any more
    NSObject::cancelPreviousPerformRequests(observer, "giveUp", nullptr);
    removeObserver(observer);
    writeLine({ "" });
    writeLine({ "next announcement" });
    const AVSystemController audio = AVSystemController::sharedAVSystemController();
    if (audio)
        addObserver(observer, nullptr, audio);
    for (const char* const known : knownNames)
        addObserver(observer, known, nullptr);
    observer.performSelector("giveUp", nullptr, longestWaitSeconds);
    waitingReport = ++currentReport;
}

} // namespace panotra::doctor
