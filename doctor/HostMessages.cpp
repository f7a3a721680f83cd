/// Tables of names, and a line each.
#include "doctor/HostMessages.h"

#include "platform/SpringBoard.h"
#include "platform/UIScreen.h"
#include "platform/ios/Classes.h"
#include "platform/ios/Firewall.h"
#include "platform/ios/ObjectiveC.h"
#include "platform/ios/Scenes.h"
#include "platform/ios/Send.h"

#include <algorithm>
#include <cstdlib>

namespace panotra::doctor {

using namespace ios;

namespace {

constinit ClassName UIDevice { "UIDevice" };

constinit Selector<id()> currentDevice { "currentDevice" };
constinit Selector<id()> systemVersionOfDevice { "systemVersion" };
constinit Selector<id()> allKeys { "allKeys" };

::Method methodOf(OwnMethod* method) noexcept
{
    return reinterpret_cast<::Method>(method);
}

/// To be freed by whoever asked.
struct OwnMethods {
    ::Method* methods = nullptr;
    unsigned count = 0;
};

/// Those of the class itself, not what it inherits; none where there is no such class.
OwnMethods ownMethodsOf(const char* className) noexcept
{
    return shielded([=] {
        OwnMethods own;
        if (::Class const hostClass = ::objc_getClass(className); hostClass != nullptr)
            own.methods = class_copyMethodList(hostClass, &own.count);
        return own;
    });
}

} // namespace

NSString systemVersion() noexcept
{
    const NSObject device = ask<NSObject>(UIDevice, currentDevice);
    return NSString::checked(ask<NSObject>(device.get(), systemVersionOfDevice));
}

bool hasClass(const char* className) noexcept
{
    return shielded([=] { return ::objc_getClass(className) != nullptr; });
}

const char* typeOfMethod(const char* className, const char* method, bool isOfClass) noexcept
{
    return shielded([=]() -> const char* {
        ::Class const hostClass = ::objc_getClass(className);
        if (hostClass == nullptr)
            return nullptr;
        ::SEL const selector = sel_registerName(method);
        ::Method const found
            = isOfClass ? class_getClassMethod(hostClass, selector) : class_getInstanceMethod(hostClass, selector);
        return found != nullptr ? method_getTypeEncoding(found) : nullptr;
    });
}

const char* typeOfVariable(const char* className, const char* variable) noexcept
{
    return shielded([=]() -> const char* {
        ::Class const hostClass = ::objc_getClass(className);
        ::Ivar const found = hostClass != nullptr ? class_getInstanceVariable(hostClass, variable) : nullptr;
        return found != nullptr ? ivar_getTypeEncoding(found) : nullptr;
    });
}

std::vector<std::string> namesOfOwnMethods(const char* className)
{
    std::vector<std::string> names;
    const auto [methods, count] = ownMethodsOf(className);
    for (unsigned index = 0; index < count; ++index)
        names.emplace_back(sel_getName(method_getName(methods[index])));
    std::free(methods);
    std::sort(names.begin(), names.end());
    return names;
}

OwnMethod* ownMethod(const char* className, const char* method) noexcept
{
    ::SEL const name = sel_registerName(method);
    const auto [methods, count] = ownMethodsOf(className);
    ::Method found = nullptr;
    for (unsigned index = 0; index < count; ++index) {
        if (method_getName(methods[index]) == name)
            found = methods[index];
    }
    std::free(methods);
    return reinterpret_cast<OwnMethod*>(found);
}

IMP implementationOf(OwnMethod* method) noexcept
{
    return reinterpret_cast<IMP>(method_getImplementation(methodOf(method)));
}

IMP setImplementation(OwnMethod* method, IMP implementation) noexcept
{
    return reinterpret_cast<IMP>(method_setImplementation(methodOf(method), reinterpret_cast<::IMP>(implementation)));
}

NSObject connectedScenes() noexcept
{
    return ask<NSObject>(
        ask<NSObject>(UIApplication::current().get(), selectors::connectedScenes).get(), selectors::allObjects);
}

bool isOfMainScreen(const NSObject& scene) noexcept
{
    return scene && ask<UIScreen>(scene.get(), selectors::sceneScreen) == UIScreen::mainScreen();
}

NSObject objectAt(const NSObject& list, std::size_t index) noexcept
{
    return ask<NSObject>(list.get(), selectors::objectAtIndex, index);
}

NSObject keysOf(const NSDictionary& dictionary) noexcept
{
    return ask<NSObject>(dictionary.get(), allKeys);
}

std::size_t countOf(const NSObject& list) noexcept
{
    return send(list.get(), selectors::count);
}

NSString stringAt(const NSObject& list, std::size_t index) noexcept
{
    return NSString::checked(objectAt(list, index));
}

const char* kindOf(const NSObject& value) noexcept
{
    for (ClassName* const kind : { &classes::NSString, &classes::NSNumber, &classes::NSDictionary }) {
        if (isKindOf(value.get(), *kind))
            return class_getName(toRuntime(kind->get()));
    }
    return value ? object_getClassName(toRuntime(value.get())) : "nothing";
}

} // namespace panotra::doctor
