/// What the device decides of Foundation.
#include "tests/hosts/classes/Foundation.h"

#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "tests/hosts/Hostility.h"
#include "tests/hosts/Peers.h"
#include "tests/hosts/Values.h"

#include <nlohmann/json.hpp>

#include <objc/runtime.h>

using namespace panotra;

/// One handle, not a defaults object of Foundation's. It counts itself, and the device's handle goes with it.
@interface SuiteDefaults : NSObject {
    sim::PreferenceHandle* handle;
}
- (id)initWithHandle:(sim::PreferenceHandle*)counted;
@end

/// A folder of the device's: it has no identifier, and its files are the device's business.
@interface DeviceBundle : NSBundle {
    NSString* path;
}
- (id)initWithFolder:(NSString*)folder;
@end

@implementation NSUserDefaults (Suites)

- (id)initWithSuiteName:(NSString*)suite
{
    NSDeallocateObject(self); // it was never initialised
    const auto domain = hosts::textOf(suite);
    if (!domain)
        return nil;
    sim::Device& device = hosts::device();
    sim::PreferenceHandle* const handle = device.preferences->open(*domain);
    device.classes->adopt(handle, device.classes->platformClass("NSUserDefaults"));
    return (id)[[SuiteDefaults alloc] initWithHandle:handle];
}

@end

@implementation SuiteDefaults

- (id)initWithHandle:(sim::PreferenceHandle*)counted
{
    if ((self = [super init]))
        handle = counted;
    return self;
}

- (void)dealloc
{
    sim::release(handle);
    [super dealloc];
}

- (BOOL)synchronize
{
    handle->synchronize();
    return YES;
}

- (id)objectForKey:(NSString*)key
{
    const auto name = hosts::textOf(key);
    const auto value = name ? handle->objectForKey(*name) : std::nullopt;
    return value ? hosts::valueOfJson(*value) : nil;
}

- (void)setObject:(id)value forKey:(NSString*)key
{
    if (const auto name = hosts::textOf(key))
        handle->setFloat(*name, [value floatValue]);
}

@end

@implementation DeviceBundle

- (id)initWithFolder:(NSString*)folder
{
    path = [folder copy]; // the superclass would look the folder up among those of this machine
    return self;
}

- (void)dealloc
{
    [path release];
    [super dealloc];
}

- (NSString*)bundlePath
{
    return path;
}

- (NSString*)bundleIdentifier
{
    return nil;
}

@end

namespace {

/// Sets `replacement` in the place of a method, which it answers.
IMP replaceMethod(Class hostClass, SEL selector, IMP replacement)
{
    const Method method = class_getInstanceMethod(hostClass, selector);
    return class_replaceMethod(hostClass, selector, replacement, method_getTypeEncoding(method));
}

template <typename Function> IMP implementation(Function* function)
{
    return reinterpret_cast<IMP>(function);
}

id bundleIdentifier(id self, SEL)
{
    if (self != [NSBundle mainBundle])
        return nil;
    return [NSString stringWithUTF8String:hosts::device().bundleIdentifier.c_str()];
}

/// Whatever a package of the device's may bring exists; elsewhere, what this machine has.
id bundleWithPath(Class, SEL, id path)
{
    if (path == nil || hosts::isHostile()
        || !([path hasPrefix:@"/Library/"] || [[NSFileManager defaultManager] fileExistsAtPath:path]))
        return nil;
    return [[[DeviceBundle alloc] initWithFolder:path] autorelease];
}

void performAfterDelay(id self, SEL, SEL selector, id object, double delay)
{
    hosts::device().runLoop->perform(
        hosts::deviceObjectFor(self), sim::selector(sel_getName(selector)), hosts::deviceObjectFor(object), delay);
}

void cancelPerforms(Class, SEL, id target, SEL selector, id object)
{
    hosts::device().runLoop->cancelPerforms(
        hosts::deviceObjectFor(target), sim::selector(sel_getName(selector)), hosts::deviceObjectFor(object));
}

} // namespace

void hosts::makeFoundationTheDevices()
{
    const Class object = [NSObject class];
    const Class bundle = [NSBundle class];
    replaceMethod(bundle, @selector(bundleIdentifier), implementation(bundleIdentifier));
    replaceMethod(object_getClass(bundle), @selector(bundleWithPath:), implementation(bundleWithPath));
    replaceMethod(object, @selector(performSelector:withObject:afterDelay:), implementation(performAfterDelay));
    replaceMethod(object_getClass(object), @selector(cancelPreviousPerformRequestsWithTarget:selector:object:),
        implementation(cancelPerforms));
}
