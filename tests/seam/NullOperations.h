/// Every operation of the seam on null, as tables that every backend must keep to.
#pragma once

#include "platform/ClassDescription.h"

#include <functional>
#include <type_traits>
#include <vector>

namespace panotra {

struct Operation {
    const char* name;
    /// Whether what it answered is what null answers.
    std::function<bool()> answersNothing;
};

/// `function` answers whether it got nothing, or is of a kind that answers nothing anyway.
template <typename Function> Operation operation(const char* name, Function function)
{
    return { name, [function] {
                if constexpr (std::is_void_v<decltype(function())>) {
                    function();
                    return true;
                } else {
                    return function();
                }
            } };
}

/// A class whose superclass no process has.
const ClassDescription& nobody();

std::vector<Operation> operationsOfObjects(); ///< plain handles
std::vector<Operation> operationsOfServices(); ///< the home screen's own classes
std::vector<Operation> operationsOfViews(); ///< views and what belongs to them
std::vector<Operation> operationsOfTheRuntime(); ///< free functions

} // namespace panotra
