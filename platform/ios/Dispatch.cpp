/// Blocks on the main queue.
#include "platform/Dispatch.h"

#include "platform/Runtime.h"
#include "platform/ios/Firewall.h"
#include "platform/ios/KeptWork.h"

#include <dispatch/dispatch.h>
#include <pthread/pthread.h>
#include <utility>

namespace panotra {

bool isMainThread() noexcept
{
    return pthread_main_np() != 0;
}

void dispatch_async_f(void* context, void (*work)(void* context)) noexcept
{
    ::dispatch_async_f(dispatch_get_main_queue(), context, work);
}

void dispatch_after(std::int64_t nanoseconds, Block<void()> block) noexcept
{
    const Block<void()>* const kept = ios::keep(std::move(block));
    ::dispatch_after(dispatch_time(DISPATCH_TIME_NOW, nanoseconds), dispatch_get_main_queue(), ^{
        void* const pool = objc_autoreleasePoolPush();
        ios::shielded([kept] { (*kept)(); });
        delete kept;
        objc_autoreleasePoolPop(pool);
    });
}

} // namespace panotra
