/// PNOHelperController: carries the preference domain's name and the resource bundle, and is the listener that the
/// gesture framework calls. One object, created on first use and never freed; creating it in the home screen
/// registers the listeners.
#pragma once

#include "platform/ClassDescription.h"
#include "platform/LAActivator.h"
#include "platform/NSBundle.h"

namespace panotra {

class PNOHelperController : public NSObject {
public:
    using NSObject::NSObject;

    static const ClassDescription& description() noexcept;
    static const PNOHelperController& sharedInstance() noexcept;
    PNOHelperController init() const;

    /// The preference domain.
    NSString packageName() const;
    NSBundle bundle() const;

    // Questions and events of the gesture framework. `activator` and the scale are not used; a listener name that
    // is not ours gets an error text, no icon, and its events are marked handled all the same.

    NSString requiresLocalizedGroup(const NSObject& activator, const NSString& listener) const;
    NSString requiresLocalizedTitle(const NSObject& activator, const NSString& listener) const;
    NSString requiresLocalizedDescription(const NSObject& activator, const NSString& listener) const;
    NSData requiresSmallIconData(const NSObject& activator, const NSString& listener, CGFloat* scale) const;
    void receiveEvent(const NSObject& activator, const LAEvent& event, const NSString& listener) const;

    /// The fields that the host reads by name.
    struct InstanceVariables {
        NSString _projectName;
        NSString _packageName;
        NSBundle _bundle;
    };

private:
    InstanceVariables* fields() const noexcept;
};

} // namespace panotra
