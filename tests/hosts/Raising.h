/// A process that raises where the library asks it for something.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include <objc/objc.h>

namespace panotra::hosts {

/// What decides whether the process raises, of each thing that it is asked for, in order: a message as "-[Class
/// selector]" or "+[Class selector]", one to a superclass as "super -[Class selector]", a function of the platform by
/// its name.
using Raiser = std::function<bool(std::string_view asked)>;

/// From now on the process raises wherever `raiser` says so; an empty one ends it.
void raiseWhere(Raiser raiser);
/// How often it has raised since.
std::size_t raised();

// For the stand-ins.

bool mayRaise();
/// An implementation of any type that raises.
IMP raisingInsteadOf(std::string_view asked);
/// Raises if it is to: after what was asked for has been done.
void maybeRaise(std::string_view asked);

} // namespace panotra::hosts
