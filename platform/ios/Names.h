/// Rows of the tables of selectors and classes: names that the runtime is asked for at their first use, never at load.
///
/// Each row remembers what the runtime said yes to: that a class has the method, that a class derives from another. A
/// class never loses a method and never changes its superclass, so that a yes holds for good. A no does not, for both
/// may come about later, and is asked for again every time.
#pragma once

#include "platform/Runtime.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace panotra::ios {

/// The runtime's own selector of that name.
SEL selectorNamed(const char* name) noexcept;

/// The last few classes of which something was found to be so.
class KnownClasses {
public:
    /// Whether it is the one that was added last, as it mostly is: a look that costs no call.
    bool beginWith(Class hostClass) const noexcept { return m_classes.front() == hostClass; }
    bool hold(Class hostClass) const noexcept
    {
        return std::find(m_classes.begin(), m_classes.end(), hostClass) != m_classes.end();
    }
    /// In the place of the one that was added longest ago.
    void add(Class hostClass) noexcept
    {
        std::move_backward(m_classes.begin(), m_classes.end() - 1, m_classes.end());
        m_classes.front() = hostClass;
    }

private:
    std::array<Class, 4> m_classes {};
};

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

    /// Classes whose objects have the method.
    KnownClasses answering;

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
    /// The class of the class: it has the methods that are sent to the class itself. Null where the class is missing.
    Class metaclass() noexcept
    {
        if (m_metaclass == nullptr) [[unlikely]]
            m_metaclass = metaclassOf(get());
        return m_metaclass;
    }

    /// Classes that are this one or derive from it.
    KnownClasses derived;

private:
    static Class metaclassOf(Class hostClass) noexcept;

    const char* m_name;
    Class m_class = nullptr;
    Class m_metaclass = nullptr;
};

} // namespace panotra::ios
