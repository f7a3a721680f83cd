/// The process of the tests.
#include "tests/hosts/HostTest.h"

#include "simulator/device/SystemShape.h"
#include "tests/hosts/HostProcess.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/classes/SystemClasses.h"

#include <algorithm>

namespace panotra::testing {

HostTest::HostTest(std::optional<int> system)
{
    if (system)
        sim::takeShape(device, *system);
    device.traceSink = [this](const sim::Json& event) {
        events.push_back(event);
    };
    hosts::prepareProcess();
}

void HostTest::load()
{
    library.load();
    pass();
}

void HostTest::launch()
{
    load();
    device.home->finishLaunching();
    pass();
}

void HostTest::pass(double seconds)
{
    device.runLoop->turn();
    device.runLoop->wait(seconds);
}

void HostTest::announce(id announcement)
{
    [audio() postEffectiveVolumeNotification:announcement];
    pass();
}

std::size_t HostTest::countOf(const std::string& event) const
{
    return static_cast<std::size_t>(
        std::ranges::count_if(events, [&](const sim::Json& each) { return each["event"] == event; }));
}

IMP hook(const char* className, const char* selector, IMP replacement)
{
    using Hooking = void (*)(Class, SEL, IMP, IMP*);
    IMP previous = nullptr;
    const auto install = reinterpret_cast<Hooking>(hosts::importedSymbol("MSHookMessageEx"));
    install(hosts::classNamed(className), sel_registerName(selector), replacement, &previous);
    return previous;
}

std::string testNameOfClass(const ::testing::TestParamInfo<const char*>& info)
{
    const std::string name = info.param;
    return name.substr(name.find_first_not_of('_')) + (name[0] == '_' ? "Private" : "");
}

} // namespace panotra::testing
