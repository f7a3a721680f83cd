/// What the doctor asks of a process beyond what the mixer asks.
#pragma once

#include "simulator/device/Device.h"

#include <string>

namespace panotra::hosts {

/// The classes and functions that the doctor looks at, in a process of that system. Before its library comes.
void prepareForDoctor(sim::Device& device, int system);
/// Puts a file on the list of what the dynamic loader has loaded.
void noteLoaded(const std::string& path);
/// Odd: keys of more than one system, values of other kinds, and none of the reason's.
enum class Announcement { Usual, Odd };
/// The audio service announces a change, on the thread that calls this.
void announceByItself(Announcement);
/// Another library hooks the announcements, in front of whoever stands there.
void hookAnnouncements();
/// What an announcement would run now.
void* implementationOfAnnouncements();
/// From now on the class raises when the runtime asks it to make a method that it has not.
void raiseOverMissingMethods(const std::string& className);
/// What the doctor has written so far.
std::string reportOfDoctor();

} // namespace panotra::hosts
