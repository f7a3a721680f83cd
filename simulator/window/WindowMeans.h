/// What a window does with pictures, recordings and words about them.
#pragma once

#include "simulator/render/Renderer.h"
#include "simulator/window/Desk.h"
#include "simulator/window/Phone.h"

#include <cstdint>
#include <functional>
#include <string>

namespace panotra::sim {

/// Pictures of what the phone shows go into the folder, so do recordings; standard output tells where they went,
/// standard error what went wrong. All that is given must outlive the means.
Desk::Means windowMeans(const std::string& folder, Session& session, const Phone& phone, render::Renderer& renderer);

/// Pushes an event of SDL whenever it is called, from whatever thread.
std::function<void()> pusherOf(std::uint32_t event);

} // namespace panotra::sim
