/// Texts put together. What the standard library offers for it would have to be linked.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace panotra::doctor {

std::string joined(std::initializer_list<std::string_view> parts);
std::string decimal(int number);

} // namespace panotra::doctor
