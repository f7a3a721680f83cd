/// Events and sounds.
#include "platform/UIEvent.h"

#include "platform/simulated/Host.h"

namespace panotra {

std::int64_t UIEvent::type() const noexcept
{
    return simulated::send<std::int64_t>(*this, "type");
}

std::int64_t SBSound::soundType() const noexcept
{
    return simulated::send<std::int64_t>(*this, "soundType");
}

} // namespace panotra
