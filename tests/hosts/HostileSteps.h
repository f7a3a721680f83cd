/// What a home screen would never do, step by step.
#pragma once

#include "simulator/device/Device.h"

#import <Foundation/Foundation.h>

#include <functional>

namespace panotra::testing {

/// Whatever may stand where a program expects something else.
NSArray* oddValues();
/// What the audio service announces. Nil leaves its key out.
NSDictionary* announcementOf(id category, id reason, id level);
/// Everything that the outside does to a home screen, in each style, with the indicator replaced and not. `pass` lets
/// seconds pass; at the end the mixer is gone.
void liveADay(sim::Device& device, const std::function<void(double)>& pass);
/// That many steps of any kind with any values, the library loaded. `roll(n)` decides, from 0 to n - 1. Answers how
/// many announcements there were among them that the host must see.
std::size_t doAnything(sim::Device& device, int count, const std::function<unsigned(unsigned sides)>& roll);

} // namespace panotra::testing
