/// Blocks on the main queue.
#include "platform/Dispatch.h"

#include "platform/Runtime.h"

#include <dispatch/dispatch.h>

namespace panotra {

void dispatch_after(std::int64_t nanoseconds, std::function<void()> block) noexcept
{
    ::dispatch_after(dispatch_time(DISPATCH_TIME_NOW, nanoseconds), dispatch_get_main_queue(), ^{
        const AutoreleasePool pool; // the queue promises none
        block();
    });
}

} // namespace panotra
