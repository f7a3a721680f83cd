/// A save of which one system call after the other fails: the old file stays or the new one is there, and what is said
/// of it is true.
#include "simulator/commands/Prefs.h"
#include "simulator/preferences/PropertyListFile.h"
#include "tests/faults/TracedProcess.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <cerrno>
#include <cstring>
#include <sstream>

namespace panotra::preferences {
namespace {

using testing::nameOfSystemCall;
using testing::readBytes;
using testing::TracedProcess;
using testing::writeBytes;
using testing::xmlWith;

const std::string domain = "domain";
const std::string oldList
    = xmlWith("<key>when</key><date>2020-01-02T03:04:05Z</date><key>volume0</key><real>0.25</real>");
const std::string garbage = "garbage\n";

/// What is in the folder before the save.
struct Beginning {
    std::string name;
    void (*prepare)(const std::filesystem::path& folder);
    bool isDamaged = false;
};

const Beginning beginnings[] = {
    { "AFile",
        [](const std::filesystem::path& folder) {
            writeBytes(folder / "domain.plist", oldList);
        } },
    { "NoFile",
        [](const std::filesystem::path&) {
        } },
    { "ADamagedFile", [](const std::filesystem::path& folder) { writeBytes(folder / "domain.plist", garbage); }, true },
    { "ALink",
        [](const std::filesystem::path& folder) {
            writeBytes(folder / "elsewhere.plist", oldList);
            std::filesystem::create_symlink("elsewhere.plist", folder / "domain.plist");
        } },
    { "WhatAKilledWriterLeft",
        [](const std::filesystem::path& folder) {
            writeBytes(folder / "domain.plist", oldList);
            writeBytes(folder / ".domain.plist.new", "half a fi");
        } },
};

/// How the command ended and what it said.
struct Ending {
    int status = -1;
    std::vector<std::string> lines {};
};

class FailingCalls : public ::testing::TestWithParam<Beginning> {
protected:
    /// A folder that does not exist belongs to the beginning, too.
    struct Place {
        testing::TemporaryFolder outer;
        std::filesystem::path folder = outer / "inner";
        std::filesystem::path file = folder / "domain.plist";
        std::string before {};

        explicit Place(const Beginning& beginning)
        {
            if (beginning.name != "NoFile")
                std::filesystem::create_directory(folder);
            beginning.prepare(folder);
            before = readBytes(file);
        }
    };

    static PrefsRequest request(const std::filesystem::path& folder, const std::string& value)
    {
        return { PrefsAction::Set, folder.string(), domain, "volume0", "float", value };
    }

    /// The command in a process of which `interfere` may let calls fail.
    static Ending run(const Place& place, const std::function<void(TracedProcess&)>& interfere)
    {
        TracedProcess process([&] {
            std::ostringstream output, errors;
            const sim::ExitStatus status = runPrefsCommand(request(place.folder, "0.75"), output, errors);
            return std::to_string(static_cast<int>(status)) + '\n' + errors.str();
        });
        interfere(process);
        std::istringstream words(process.words());
        Ending ending;
        std::string line;
        if (std::getline(words, line) && !line.empty())
            ending.status = std::stoi(line);
        while (std::getline(words, line))
            ending.lines.push_back(line);
        return ending;
    }

    static Json levelIn(const std::filesystem::path& path)
    {
        PropertyListFile file(path, [](const std::string&) {});
        const Json* level = file.read(Damaged::Leave) ? file.settings().find("volume0") : nullptr;
        return level == nullptr ? Json() : *level;
    }

    /// What was in the file stands somewhere, and what was said of the save is so.
    void expectTruth(const Place& place, const Ending& ending) const
    {
        std::size_t setAside = 0, failed = 0, doubtful = 0;
        for (const std::string& line : ending.lines) {
            setAside += line.find("; set aside as ") != line.npos;
            failed += line.ends_with("; nothing is saved");
            doubtful += line.find(": is saved, but a power failure may undo that: ") != line.npos;
        }
        EXPECT_EQ(setAside + failed + doubtful, ending.lines.size());
        EXPECT_LE(failed + doubtful, 1u);
        EXPECT_EQ(ending.status, ending.lines.empty() ? 0 : 3);
        if (failed == 0) {
            EXPECT_EQ(levelIn(place.file), 0.75);
        } else if (setAside == 0) {
            EXPECT_EQ(readBytes(place.file), place.before);
        }
        const auto aside = place.folder / "domain.plist.unreadable-1";
        if (GetParam().isDamaged) {
            EXPECT_EQ(readBytes(setAside == 1 ? aside : place.file), garbage);
        } else {
            EXPECT_FALSE(std::filesystem::exists(aside));
            if (!place.before.empty()) {
                EXPECT_NE(readBytes(place.file).find("<date>2020-01-02T03:04:05Z</date>"), std::string::npos);
            }
        }
    }

    /// And nothing of it is in the way of the next one.
    void expectRecovery(const Place& place) const
    {
        std::ostringstream output, errors;
        runPrefsCommand(request(place.folder, "0.5"), output, errors);
        EXPECT_EQ(levelIn(place.file), 0.5) << errors.str();
        EXPECT_FALSE(std::filesystem::exists(place.folder / ".domain.plist.new"));
        EXPECT_EQ(std::filesystem::is_symlink(place.file), GetParam().name == "ALink");
    }

    /// Goes through all calls; `interfere` is asked at each and, until it answers true, at those that follow.
    /// `check` gets how the command ended.
    void forEveryCall(const std::function<bool(TracedProcess&, long call)>& interfere,
        const std::function<void(const Ending&)>& check) const
    {
        bool wasThere = true;
        int calls = 0;
        for (int first = 1; wasThere; ++first) {
            const Place place(GetParam());
            wasThere = false;
            std::string trace;
            const Ending ending = run(place, [&](TracedProcess& process) {
                int count = 0;
                for (long call = process.next(); call >= 0; call = process.next()) {
                    EXPECT_NE(nameOfSystemCall(call), "?") << call;
                    if (++count < first)
                        continue;
                    wasThere = true;
                    trace = "call " + std::to_string(count) + ", " + nameOfSystemCall(call);
                    if (interfere(process, call))
                        return;
                }
            });
            if (!wasThere)
                break;
            ++calls;
            std::string said;
            for (const std::string& line : ending.lines)
                said += "\n" + line;
            SCOPED_TRACE(trace + said);
            expectTruth(place, ending);
            check(ending);
            expectRecovery(place);
            ASSERT_FALSE(HasFailure());
        }
        EXPECT_GT(calls, 10);
    }

    /// What went wrong is said with the reason that the kernel gave.
    static void expectReason(const Ending& ending, int error)
    {
        for (const std::string& line : ending.lines) {
            if (line.find("; set aside as ") == line.npos) {
                EXPECT_NE(line.find(std::strerror(error)), line.npos) << line;
            }
        }
    }
};

TEST_P(FailingCalls, OneIsInterruptedAndMadeAgain)
{
    const auto interrupt = [](TracedProcess& process, long) {
        process.failWith(EINTR);
        return true;
    };
    const std::size_t lines = GetParam().isDamaged ? 1 : 0;
    forEveryCall(interrupt, [&](const Ending& ending) { EXPECT_EQ(ending.lines.size(), lines); });
}

TEST_P(FailingCalls, OneFails)
{
    for (const int error : { EIO, ENOSPC, EACCES }) {
        const auto fail = [&](TracedProcess& process, long) {
            process.failWith(error);
            return true;
        };
        forEveryCall(fail, [&](const Ending& ending) { expectReason(ending, error); });
    }
}

TEST_P(FailingCalls, OneFailsAndAllOfItsKindAfterIt)
{
    for (const int error : { EIO, ENOSPC, EACCES }) {
        long failing = -1;
        const auto fail = [&](TracedProcess& process, long call) {
            if (failing < 0)
                failing = call;
            if (call == failing)
                process.failWith(error);
            return false;
        };
        forEveryCall(fail, [&](const Ending& ending) {
            expectReason(ending, error);
            failing = -1;
        });
    }
}

TEST_P(FailingCalls, AWriteStopsHalfway)
{
    bool wasShort = false;
    const auto shorten = [&](TracedProcess& process, long) {
        const bool isShort = process.writeHalf();
        wasShort |= isShort;
        return isShort;
    };
    const std::size_t lines = GetParam().isDamaged ? 1 : 0;
    forEveryCall(shorten, [&](const Ending& ending) { EXPECT_EQ(ending.lines.size(), lines); });
    EXPECT_TRUE(wasShort);
}

INSTANTIATE_TEST_SUITE_P(
    From, FailingCalls, ::testing::ValuesIn(beginnings), [](const auto& suite) { return suite.param.name; });

} // namespace
} // namespace panotra::preferences
