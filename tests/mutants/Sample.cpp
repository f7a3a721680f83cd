/// What the self test plants mutants into: each kind, and one that its tests do not notice.
#include "tests/mutants/Sample.h"

namespace sample {
namespace {

int g_steps = 0;

void open()
{
    g_steps = g_steps * 10 + 1;
}
void close()
{
    g_steps = g_steps * 10 + 2;
}

} // namespace

int stepsOf(const int* door, bool isLocked)
{
    g_steps = 0;
    if (door == nullptr || isLocked)
        return -1;
    open();
    close();
    return g_steps;
}

bool isOpen(int hour)
{
    if (!(hour >= 8))
        return false;
    return hour < 20;
}

/// Nobody asks for it.
int forgotten(int value)
{
    return value + 1;
}

int throughTheDoor(const int* door)
{
    return stepsOf(door, false);
}

} // namespace sample
