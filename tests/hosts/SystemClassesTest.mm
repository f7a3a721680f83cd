/// The Objective-C classes in the shape of each system: what the runtime tells of them is what the table says.
#include "tests/hosts/classes/SystemClasses.h"
#include "simulator/systems/Systems.h"
#include "tests/hosts/HostTest.h"

#include <string_view>

namespace panotra::testing {

namespace {

using systems::allRows;
using systems::Kind;
using systems::Place;
using systems::Row;

struct SystemClasses : HostTest, ::testing::WithParamInterface<int> {
    SystemClasses()
        : HostTest(GetParam())
    {
    }

    /// Where the row's method is looked for: in the class, or in what it is a class of.
    static Class holderOf(const Row& row)
    {
        const Class owner = hosts::classNamed(row.owner);
        return row.kind == Kind::ClassMethod ? object_getClass(owner) : owner;
    }
    /// The table describes these classes whole; others are public and have their methods as they were compiled.
    static bool isDescribed(const char* name)
    {
        for (const Row& row : allRows()) {
            if (row.kind == Kind::Class && row.isOn(GetParam()) && std::string_view(row.owner) == name)
                return true;
        }
        return false;
    }
};

} // namespace

TEST_P(SystemClasses, HaveTheSuperclassesOfTheTable)
{
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Class || !row.isOn(GetParam()) || std::string_view(row.name) == "NSObject")
            continue;
        const Class superclass = class_getSuperclass(hosts::classNamed(row.owner));
        EXPECT_STREQ(hosts::nameOfClass(superclass), row.name) << row.owner;
    }
}

TEST_P(SystemClasses, HaveTheMethodsOfTheTableWithTheirTypes)
{
    for (const Row& row : allRows()) {
        if ((row.kind != Kind::Method && row.kind != Kind::ClassMethod) || !isDescribed(row.owner))
            continue;
        const SEL selector = sel_registerName(row.name);
        const Method method = class_getInstanceMethod(holderOf(row), selector);
        const Method inherited = class_getInstanceMethod(class_getSuperclass(holderOf(row)), selector);
        if (row.isOn(GetParam()) && row.place == Place::Own) {
            ASSERT_NE(method, nullptr) << row.owner << ' ' << row.name;
            EXPECT_NE(method, inherited) << row.owner << ' ' << row.name;
            EXPECT_STREQ(method_getTypeEncoding(method), row.type) << row.owner << ' ' << row.name;
        } else if (row.isOn(GetParam())) {
            EXPECT_EQ(method, inherited) << row.owner << ' ' << row.name;
        }
    }
}

TEST_P(SystemClasses, HaveNoMethodThatTheSystemHasNot)
{
    for (const Row& row : allRows()) {
        bool isOn = row.kind != Kind::Method && row.kind != Kind::ClassMethod;
        for (const Row& other : allRows())
            isOn = isOn
                || (other.isOn(GetParam()) && other.kind == row.kind && std::string_view(other.owner) == row.owner
                    && std::string_view(other.name) == row.name);
        if (isOn || (device.classes->find(row.owner) == nullptr))
            continue;
        EXPECT_FALSE(class_respondsToSelector(holderOf(row), sel_registerName(row.name)))
            << row.owner << ' ' << row.name;
    }
}

TEST_P(SystemClasses, HaveTheInstanceVariablesOfTheTable)
{
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Variable || !row.isOn(GetParam()))
            continue;
        const Ivar variable = class_getInstanceVariable(hosts::classNamed(row.owner), row.name);
        ASSERT_NE(variable, nullptr) << row.owner << ' ' << row.name;
        EXPECT_STREQ(ivar_getTypeEncoding(variable), row.type) << row.owner << ' ' << row.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Each, SystemClasses, ::testing::Range(systems::oldest, systems::newest + 1));

} // namespace panotra::testing
