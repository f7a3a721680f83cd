/// Events and the sounds of the home screen.
#include "platform/UIEvent.h"

#include "platform/ios/Send.h"
#include "platform/ios/private/SpringBoard.h"

namespace panotra {

using namespace ios;

std::int64_t UIEvent::type() const noexcept
{
    return send(get(), selectors::type);
}

std::int64_t SBSound::soundType() const noexcept
{
    return send(get(), selectors::soundType);
}

} // namespace panotra
