/// The shape of one system: the device's process has what the table of systems says, no more of it and no less.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/systems/Systems.h"

#include <string>

namespace panotra::sim {

/// Gives the process the shape of that system, 9 to 16. Before the library comes into it, and once.
void takeShape(Device& device, int system);

/// Makes a class lacking or present, and with it the one that took its place on the device's system: what a scenario
/// says of the buttons' class it says of the buttons. So a class to which methods of others moved keeps those when it
/// is lacking, and what it was asked for itself is answered as nobody would answer.
void setClassPresent(Device& device, const std::string& name, bool present);

/// What is left of a method while its class is lacking.
enum class Remainder { Nothing, Zero, Whole };
/// `method`: a row of the device's system or of another one, whose class is lacking and keeps what it does for others.
Remainder remainderOf(const Device& device, const systems::Row& method);
/// Whether the class is lacking and keeps what it does for others.
bool isLeftToOthers(const Device& device, const char* className);

/// Whether the device has taken a shape, and that system has the class.
bool isOfTheSystem(const Device& device, const char* className);

/// Whether the device's system calls the method on a queue of the audio service's own.
bool isCalledOnAudioQueue(const Device& device, const char* className, const char* method);

/// What the device's system calls the key of an announcement that was called `key` first.
const char* currentKey(const Device& device, const char* key);

} // namespace panotra::sim
