/// The helper object and the three listeners of the gesture framework.
#include "controller/PNOHelperController.h"

#include "controller/PNOController.h"
#include "facts/PublicNames.h"
#include "model/ProcessValues.h"
#include "platform/MethodEntry.h"
#include "platform/UIImage.h"

#include <array>
#include <cstddef>
#include <memory>

namespace panotra {
namespace {

using HelperFields = PNOHelperController::InstanceVariables;

void present()
{
    processValues.presentedViaActivator = true;
    PNOController::sharedInstance().createUI();
}

void dismiss()
{
    processValues.presentedViaActivator = false;
    PNOController::sharedInstance().destroyHUDWindow();
}

/// Asks for the root view, where the shake asks for the window.
void toggle()
{
    if (PNOController::sharedInstance().rootView())
        dismiss();
    else
        present();
}

struct Listener {
    const char* name;
    const char* group;
    const char* title;
    const char* description;
    void (*receive)();
};

constexpr std::array listeners {
    Listener { listener::present, "Panotra", "Present Mixer", "Presents Panotra.", present },
    Listener { listener::dismiss, "Panotra", "Dismiss Mixer", "Dismisses Panotra.", dismiss },
    Listener { listener::toggle, "Panotra", "Present & Dismiss", "Presents and Dismisses Mixer", toggle },
};

constexpr const char* unknownListenerText = "Error: Contact dev.";

const Listener* findListener(const NSString& name)
{
    for (const Listener& listener : listeners) {
        if (name.isEqualToString(listener.name))
            return &listener;
    }
    return nullptr;
}

NSString textOf(const NSString& listenerName, const char* Listener::*text)
{
    const Listener* const listener = findListener(listenerName);
    return NSString::stringWithUTF8String(listener != nullptr ? listener->*text : unknownListenerText);
}

constexpr std::array helperInstanceVariables {
    instanceVariable<NSString>("_projectName", offsetof(HelperFields, _projectName)),
    instanceVariable<NSString>("_packageName", offsetof(HelperFields, _packageName)),
    instanceVariable<NSBundle>("_bundle", offsetof(HelperFields, _bundle)),
};

} // namespace

const ClassDescription& PNOHelperController::description() noexcept
{
    static const Method methodTable[] = {
        methodEntry<&PNOHelperController::init>("init"),
        methodEntry<&PNOHelperController::requiresLocalizedGroup>("activator:requiresLocalizedGroupForListenerName:"),
        methodEntry<&PNOHelperController::requiresLocalizedTitle>("activator:requiresLocalizedTitleForListenerName:"),
        methodEntry<&PNOHelperController::requiresLocalizedDescription>(
            "activator:requiresLocalizedDescriptionForListenerName:"),
        methodEntry<&PNOHelperController::requiresSmallIconData>(
            "activator:requiresSmallIconDataForListenerName:scale:"),
        methodEntry<&PNOHelperController::receiveEvent>("activator:receiveEvent:forListenerName:"),
    };
    static const Method classMethodTable[] = { methodEntry<&PNOHelperController::sharedInstance>("sharedInstance") };
    static const ClassDescription description {
        "PNOHelperController",
        "NSObject",
        helperInstanceVariables,
        methodTable,
        classMethodTable,
        sizeof(HelperFields),
        [](void* memory) { std::construct_at(static_cast<HelperFields*>(memory)); },
        [](id, void* memory) { std::destroy_at(static_cast<HelperFields*>(memory)); },
    };
    return description;
}

const PNOHelperController& PNOHelperController::sharedInstance() noexcept
{
    if (!processValues.sharedHelperController)
        processValues.sharedHelperController.set(adopt<PNOHelperController>(allocate(description())).init());
    return processValues.sharedHelperController.get();
}

PNOHelperController PNOHelperController::init() const
{
    PNOHelperController self = retained<PNOHelperController>(superInit(get(), description()));
    if (!self)
        return nullptr;
    if (isSpringBoardProcess()) {
        const LAActivator activator = LAActivator::sharedInstance();
        for (const Listener& listener : listeners)
            activator.registerListener(self, listener.name);
    }
    if (HelperFields* const fields = self.fields()) {
        fields->_projectName = NSString::stringWithUTF8String("Panotra");
        fields->_packageName = NSString::stringWithUTF8String(ownDomain);
        fields->_bundle = NSBundle::bundleWithPath("/Library/PreferenceBundles/Panotra.bundle");
    }
    return self;
}

PNOHelperController::InstanceVariables* PNOHelperController::fields() const noexcept
{
    return static_cast<HelperFields*>(instanceVariables(get(), description()));
}

NSString PNOHelperController::packageName() const
{
    const HelperFields* const self = fields();
    return self != nullptr ? self->_packageName : nullptr;
}

NSBundle PNOHelperController::bundle() const
{
    const HelperFields* const self = fields();
    return self != nullptr ? self->_bundle : nullptr;
}

NSString PNOHelperController::requiresLocalizedGroup(const NSObject&, const NSString& listener) const
{
    return textOf(listener, &Listener::group);
}

NSString PNOHelperController::requiresLocalizedTitle(const NSObject&, const NSString& listener) const
{
    return textOf(listener, &Listener::title);
}

NSString PNOHelperController::requiresLocalizedDescription(const NSObject&, const NSString& listener) const
{
    return textOf(listener, &Listener::description);
}

NSData PNOHelperController::requiresSmallIconData(const NSObject&, const NSString& listener, CGFloat*) const
{
    if (findListener(listener) == nullptr)
        return nullptr;
    return UIImagePNGRepresentation(UIImage::imageNamed(NSString::stringWithUTF8String("settingsIcon"), bundle()));
}

void PNOHelperController::receiveEvent(const NSObject&, const LAEvent& event, const NSString& listenerName) const
{
    if (const Listener* const listener = findListener(listenerName))
        listener->receive();
    event.setHandled(true);
}

} // namespace panotra
