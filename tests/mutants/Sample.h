/// What the self test plants mutants into.
#pragma once

namespace sample {

int stepsOf(const int* door, bool isLocked);
bool isOpen(int hour);
int forgotten(int value);
int throughTheDoor(const int* door);

} // namespace sample
