/// The runtime's type codes, compared as far as it matters to a call.
#pragma once

#include <string>
#include <string_view>

namespace panotra::doctor {

/// The code without what makes no difference: places of arguments, qualifiers, names of classes and structures, and
/// which of the codes for a truth value it is.
std::string essenceOfType(std::string_view code);

/// Whether a call by the type `ours` of a method of the type `found` arrives. An answer that we do not look at, "v",
/// may be anything.
bool isTypeServed(std::string_view ours, std::string_view found);

} // namespace panotra::doctor
