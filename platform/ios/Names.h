/// Rows of the tables of selectors and classes: names that the runtime is asked for at their first use, never at load.
#pragma once

#include "platform/Runtime.h"

namespace panotra::ios {

/// The runtime's own selector of that name.
SEL selectorNamed(const char* name) noexcept;

/// A method's name, whatever its type.
class AnySelector {
public:
    const char* name() const noexcept { return m_name; }
    SEL get() noexcept
    {
        if (m_selector == nullptr)
            m_selector = selectorNamed(m_name);
        return m_selector;
    }

protected:
    explicit constexpr AnySelector(const char* name)
        : m_name(name)
    {
    }

private:
    const char* m_name;
    SEL m_selector = nullptr;
};

/// A method: its name and, as `Result(Parameters…)`, its type without receiver and selector.
template <typename Signature> class Selector : public AnySelector {
public:
    explicit constexpr Selector(const char* name)
        : AnySelector(name)
    {
    }
};

/// A class that the process may have. One that is missing is looked for again: frameworks are loaded late.
class ClassName {
public:
    explicit constexpr ClassName(const char* name)
        : m_name(name)
    {
    }
    Class get() noexcept
    {
        if (m_class == nullptr)
            m_class = objc_getClass(m_name);
        return m_class;
    }

private:
    const char* m_name;
    Class m_class = nullptr;
};

} // namespace panotra::ios
