/// Wording with holes for an event's fields.
///
///     {level}                     the field's value in short
///     {level%}                    the same as a percentage
///     {muted?muted:unmuted}       the first words for yes, the second for no; null and an absent field are no
///     [ after {delay} s]          left out where a field in it is absent or null
///     [ after {delay!} s]         left out where the field is 0 as well
///
/// Brackets and braces do not nest otherwise.
#pragma once

#include "simulator/device/Device.h"

#include <string>
#include <string_view>

namespace panotra::sim {

std::string fillTemplate(std::string_view wording, const Json& fields);

} // namespace panotra::sim
