/// A program of its own that writes one key of a property list again and again: FILE KEY TIMES.
///
/// Every time is a save of its own. Ends with status 1 if one of them fails.
#include "simulator/preferences/PropertyListFile.h"

#include <cstdio>
#include <cstdlib>

int main(int count, char** arguments)
{
    using namespace panotra::preferences;
    if (count != 4) {
        std::fputs("usage: preference_writer FILE KEY TIMES\n", stderr);
        return 2;
    }
    const int times = std::atoi(arguments[3]);
    for (int time = 1; time <= times; ++time) {
        PropertyListFile file(
            arguments[1], [](const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); });
        file.set(arguments[2] + std::to_string(time), time);
        if (file.save() != Saved::Replaced)
            return 1;
    }
    return 0;
}
