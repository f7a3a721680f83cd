/// Tests of the self test's sample: what they do not look at survives. Status 0 where all is as it should be.
///
///     sample_test doors|hours
#include "tests/mutants/Sample.h"

#include <string_view>

int main(int, char** arguments)
{
    using namespace sample;
    const int door = 1;
    if (std::string_view(arguments[1]) == "hours") // nobody asks about 8 and 20 themselves
        return !isOpen(7) && isOpen(9) && isOpen(19) && !isOpen(21) ? 0 : 1;
    return stepsOf(&door, false) == 12 && stepsOf(&door, true) == -1 && stepsOf(nullptr, false) == -1
            && throughTheDoor(&door) == 12
        ? 0
        : 1;
}
