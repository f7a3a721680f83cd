/// What is bad about it, where no class of the process is.
#include "tests/hosts/Hostility.h"

#include "simulator/device/RunLoop.h"
#include "tests/hosts/Peers.h"
#include "tests/hosts/Raising.h"

#include <random>
#include <thread>

namespace panotra::hosts {

namespace {

bool hostile = false;
bool isLaunched = false;

std::map<std::string, std::size_t>& calls()
{
    static std::map<std::string, std::size_t> all;
    return all;
}

/// What a status bar inherits is what was there before the hook of it.
bool isPreviousImplementation(std::string_view asked)
{
    return asked == "super -[UIView setFrame:]";
}

/// What an initialiser that raises leaves behind nobody can tell.
bool isInitializer(std::string_view asked)
{
    return asked.find(" init") != asked.npos;
}

struct Layout {
    sim::Rect shown {};
    sim::Rect due {};
    double since = 0;
};

std::map<const sim::View*, Layout>& layouts()
{
    static std::map<const sim::View*, Layout> all;
    return all;
}

bool areEqual(const sim::Rect& a, const sim::Rect& b)
{
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

} // namespace

void beHostile(std::optional<unsigned> seed)
{
    hostile = seed.has_value();
    if (!hostile) {
        raiseWhere({});
        return;
    }
    std::mt19937 numbers(*seed);
    raiseWhere([numbers](std::string_view name) mutable {
        return isLaunched && !isPreviousImplementation(name) && !isInitializer(name) && numbers() % 20 == 0;
    });
}

bool isHostile()
{
    return hostile;
}

const std::map<std::string, std::size_t>& callsFromOutside()
{
    return calls();
}

void callFromOutside(const std::string& selector, const std::function<void()>& call)
{
    const std::size_t count = ++calls()[selector];
    if (hostile && count % 2 == 0)
        std::thread(call).join();
    else
        call();
    isLaunched = isLaunched || selector == "applicationDidFinishLaunching:";
}

bool refusesThisTime()
{
    static std::size_t times = 0;
    return hostile && ++times % 2 == 0;
}

sim::Rect frameAtLastLayout(const sim::View& content)
{
    Layout& layout = layouts()[&content];
    const double now = device().runLoop->now();
    if (now > layout.since)
        layout.shown = layout.due;
    if (!areEqual(layout.due, content.frame()))
        layout = { layout.shown, content.frame(), now };
    return layout.shown;
}

void layOut(const sim::View& content)
{
    layouts()[&content] = { content.frame(), content.frame(), device().runLoop->now() };
}

} // namespace panotra::hosts
