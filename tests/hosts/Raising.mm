/// Raises.
#include "tests/hosts/Raising.h"

#import <Foundation/Foundation.h>

#include <utility>

namespace panotra::hosts {

namespace {

Raiser& raiser()
{
    static Raiser chosen;
    return chosen;
}

std::size_t raisedCount = 0;

/// One object for all: making one would send messages.
[[noreturn]] void raise()
{
    static NSException* const exception = [[NSException alloc] initWithName:@"HostileException"
                                                                     reason:@"asked for"
                                                                   userInfo:nil];
    ++raisedCount;
    @throw exception;
}

} // namespace

void raiseWhere(Raiser chosen)
{
    raiser() = std::move(chosen);
    raisedCount = 0;
}

std::size_t raised()
{
    return raisedCount;
}

bool mayRaise()
{
    return raiser() != nullptr;
}

IMP raisingInsteadOf(std::string_view asked)
{
    return mayRaise() && raiser()(asked) ? reinterpret_cast<IMP>(raise) : nullptr;
}

void maybeRaise(std::string_view asked)
{
    if (mayRaise() && raiser()(asked))
        raise();
}

} // namespace panotra::hosts
