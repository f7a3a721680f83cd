/// One announcement of the audio service and one turn of the screen, seen as the mixer is told of them: by the very
/// calls that it hooks, on their threads.
#include "doctor/Examination.h"

#include "doctor/HostMessages.h"
#include "doctor/PassingCall.h"
#include "doctor/Report.h"
#include "doctor/Table.h"
#include "doctor/Text.h"
#include "hooks/HostTables.h"
#include "platform/Dispatch.h"

#include <algorithm>
#include <atomic>
#include <dispatch/dispatch.h>
#include <string>
#include <utility>
#include <vector>

namespace panotra::doctor {

namespace {

constexpr std::int64_t longestWaitNanoseconds = 60'000'000'000;
constexpr const char* announcementHeading = "next announcement (note 1)";
constexpr const char* turnHeading = "next turn (note 5)";

/// The report that is being written, the system that it is about, and for how many calls it still waits. Main thread,
/// as everything that writes.
constinit int currentReport = 0;
constinit int currentSystem = 0;
constinit int callsToCome = 0;

/// The report that waits for one call of a method; 0: none does. Calls come on any thread: whoever takes the number
/// away has seen the one that counts.
constinit std::atomic<int> waitingForAnnouncement = 0;
constinit std::atomic<int> waitingForTurn = 0;

std::string lineOfThread()
{
    const char* const label = dispatch_queue_get_label(nullptr);
    return joined({ "  on ", isMainThread() ? "the main thread" : "another thread", ", queue ",
        label != nullptr ? label : "unknown" });
}

/// What an announcement holds: key and kind of value.
using Contents = std::vector<std::pair<std::string, std::string>>;

Contents contentsOf(const NSDictionary& announcement)
{
    Contents contents;
    const NSObject keys = keysOf(announcement);
    const std::size_t count = countOf(keys);
    for (std::size_t index = 0; index < count; ++index) {
        const std::string key(stringAt(keys, index).view());
        contents.emplace_back(key, kindOf(announcement.objectForKey(NSString::stringWithUTF8String(key.c_str()))));
    }
    std::sort(contents.begin(), contents.end());
    return contents;
}

Finding findingOf(const KeyRow& row, const Contents& contents)
{
    for (const auto& [key, kind] : contents) {
        if (key == row.name)
            return { true, kind == row.valueClass, kind == row.valueClass, kind };
    }
    return {};
}

/// Whether some row of the table of keys has said what there is to say.
bool isTold(const std::string& key, const std::string& kind)
{
    return std::any_of(keyRows.begin(), keyRows.end(), [&](const KeyRow& row) {
        return key == row.name && (isExpected(currentSystem, row.since, row.until) || kind == row.valueClass);
    });
}

void writeContents(const Contents& contents)
{
    Table table(currentSystem, "keys of the announcement");
    for (const KeyRow& row : keyRows)
        table.row(row.name, row.valueClass, row.since, row.until, findingOf(row, contents));
    for (const auto& [key, kind] : contents) {
        if (!isTold(key, kind))
            writeLine({ "  other    ", key, " ", kind });
    }
}

void announced(id notification);
void turned(NSInteger orientation, double duration, id logMessage);
using Announcements = PassingCall<announced>;
using Turns = PassingCall<turned>;

/// One call is done with.
void conclude()
{
    if (--callsToCome > 0)
        return;
    writeLine({ "" });
    writeLine({ "end" });
    endReport();
}

/// On the main thread: what a call has left to be written into the report that it was seen for.
template <typename Write> void concludeWith(int report, Write write)
{
    auto* const kept = new Write(std::move(write)); // a block has no room for it
    dispatch_after(0, [report, kept] {
        if (report == currentReport) {
            (*kept)();
            conclude();
        }
        delete kept;
    });
}

/// The argument is what the mixer makes of it, whatever type the method claims for it.
void announced(id notification)
{
    const int report = waitingForAnnouncement.exchange(0);
    if (report == 0)
        return;
    const AutoreleasePool pool;
    const auto argument = retained<NSObject>(notification);
    concludeWith(report,
        [thread = lineOfThread(), kind = std::string(kindOf(argument)),
            contents = contentsOf(NSDictionary::checked(argument))] {
            Announcements::end();
            writeLine({ "" });
            writeLine({ announcementHeading });
            writeLine({ thread });
            writeLine({ "  of kind ", kind });
            writeButtons("  buttons then (note 4): ");
            writeContents(contents);
        });
}

void turned(NSInteger orientation, double duration, id)
{
    const int report = waitingForTurn.exchange(0);
    if (report == 0)
        return;
    concludeWith(report, [thread = lineOfThread(), orientation, duration] {
        Turns::end();
        writeLine({ "" });
        writeLine({ turnHeading });
        writeLine({ thread });
        writeLine({ "  to orientation ", decimal(static_cast<int>(orientation)), ", in ",
            decimal(static_cast<int>(duration * 1000)), " ms" });
        writeOrientation();
    });
}

void giveUp(const char* what, std::atomic<int>& waiting, void (*end)() noexcept)
{
    if (waiting.exchange(0) == 0)
        return;
    end();
    writeLine({ "" });
    writeLine({ what });
    writeLine({ "  none within a minute" });
    conclude();
}

/// A class without the method counts as a call that never comes.
void watch(const char* what, std::atomic<int>& waiting, bool isThere)
{
    if (isThere) {
        ++callsToCome;
        waiting = currentReport;
        return;
    }
    writeLine({ "" });
    writeLine({ what });
    writeLine({ "  there is no such method" });
}

} // namespace

void awaitCalls(int system)
{
    // A report that still waits is not finished any more.
    waitingForAnnouncement = 0;
    waitingForTurn = 0;
    Announcements::end();
    Turns::end();
    currentSystem = system;
    const int report = ++currentReport;
    callsToCome = 1; // this function
    watch(announcementHeading, waitingForAnnouncement,
        Announcements::begin("AVSystemController", "postEffectiveVolumeNotification:"));
    if (isLater(system))
        watch(turnHeading, waitingForTurn,
            Turns::begin("SpringBoard", "noteInterfaceOrientationChanged:duration:logMessage:"));
    dispatch_after(longestWaitNanoseconds, [report] {
        if (report != currentReport)
            return;
        giveUp(announcementHeading, waitingForAnnouncement, Announcements::end);
        giveUp(turnHeading, waitingForTurn, Turns::end);
    });
    conclude();
}

} // namespace panotra::doctor
