/// Wording with holes for an event's fields.
///
///     {level}                     the field's value in short
///     {level%}                    the same as a percentage
///     {muted?muted:unmuted}       the first words for yes, the second for no; null and an absent field are no
///     [ after {delay} s]          left out where a field in it is absent or null
///     [ after {delay!0} s]        left out where it would say "0" as well
///
/// Braces and brackets do not nest in any other way.
#pragma once

#include "simulator/device/Device.h"

#include <string>
#include <string_view>

namespace panotra::sim {

std::string fillTemplate(std::string_view wording, const Json& fields);

} // namespace panotra::sim
