/// The operations on null as a library, for backends that live in an image of their own.
#include "tests/seam/NullOperations.h"

namespace {

using namespace panotra;

constexpr std::vector<Operation> (*tables[])()
    = { operationsOfObjects, operationsOfServices, operationsOfViews, operationsOfTheRuntime };

} // namespace

/// Runs every operation, the tables one after the other, and tells of each whether it answered what null answers.
extern "C" [[gnu::visibility("default")]] void panotraRunNullOperations(
    void (*tell)(const char* operation, bool answersNothing))
{
    for (const auto table : tables) {
        for (const Operation& operation : table())
            tell(operation.name, operation.answersNothing());
    }
}
