/// Stand-ins for what only the doctor imports, and the service's announcements.
#include "tests/hosts/doctor/DoctorProcess.h"

#include "simulator/device/ClassTable.h"
#include "simulator/device/SystemShape.h"
#include "tests/hosts/Crossings.h"
#include "tests/hosts/classes/SpringBoard.h"
#include "tests/hosts/classes/SystemClasses.h"

#include <objc/runtime.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <vector>

using namespace panotra;
using hosts::noteCrossing;

@interface UIDevice : NSObject
@end

namespace {

int systemNumber = 0;
/// Of the last report; -1 before the first.
int reportFile = -1;

std::vector<std::string>& loadedFiles()
{
    static std::vector<std::string> files {
        "/System/Library/CoreServices/SpringBoard.app/SpringBoard",
        "/usr/lib/libsubstrate.dylib",
    };
    return files;
}

const NSThread* mainThread = nil;

} // namespace

@implementation UIDevice

+ (id)currentDevice
{
    static UIDevice* const device = [UIDevice new];
    return device;
}

- (NSString*)systemVersion
{
    return [NSString stringWithFormat:@"%d.0", systemNumber];
}

@end

namespace panotra::hosts {

void prepareForDoctor(sim::Device& device, int system)
{
    systemNumber = system;
    mainThread = [[NSThread currentThread] retain];
    device.classes->setPresent("UIDevice", true);
}

void noteLoaded(const std::string& path)
{
    loadedFiles().push_back(path);
}

void announceByItself(Announcement kind)
{
    NSAutoreleasePool* const pool = [NSAutoreleasePool new];
    const auto text = [](const char* key) {
        return [NSString stringWithUTF8String:key];
    };
    const auto keyFor = [&](const char* key) {
        return text(sim::currentKey(*sim::Device::current(), key));
    };
    NSNumber* const level = [NSNumber numberWithFloat:0.25f];
    NSDictionary* announcement =
        [NSDictionary dictionaryWithObjectsAndKeys:@"Audio/Video", keyFor("AudioCategory"), @"ExplicitVolumeChange",
                      keyFor("AudioVolumeChangeReason"), level, keyFor("AudioVolume"), nil];
    if (kind == Announcement::Odd)
        announcement =
            [NSDictionary dictionaryWithObjectsAndKeys:level, text("AudioCategory"), level, text("SilenceVolumeHUD"),
                          level, text("AudioVolume"), @"0.25", text("Volume"), nil];
    [[AVSystemController sharedAVSystemController] postEffectiveVolumeNotification:announcement];
    [pool drain];
}

void raiseOverMissingMethods(const std::string& className)
{
    const auto resolve = [](id, SEL, SEL) -> BOOL {
        [NSException raise:@"HostileException" format:@"asked for a method"];
        return NO;
    };
    class_addMethod(object_getClass(classNamed(className.c_str())), @selector(resolveInstanceMethod:),
        reinterpret_cast<IMP>(+resolve), "B");
}

namespace {

IMP hookedLater = nullptr;

void announcedToLaterHook(id self, SEL selector, id announcement)
{
    reinterpret_cast<void (*)(id, SEL, id)>(hookedLater)(self, selector, announcement);
}

} // namespace

void hookAnnouncements()
{
    const Class hostClass = classNamed("AVSystemController");
    const SEL selector = @selector(postEffectiveVolumeNotification:);
    hookedLater = class_replaceMethod(hostClass, selector, reinterpret_cast<IMP>(announcedToLaterHook), "v@:@");
}

void* implementationOfAnnouncements()
{
    return reinterpret_cast<void*>(
        class_getMethodImplementation(classNamed("AVSystemController"), @selector(postEffectiveVolumeNotification:)));
}

std::string reportOfDoctor()
{
    std::string text;
    if (reportFile == -1)
        return text;
    text.resize(static_cast<std::size_t>(lseek(reportFile, 0, SEEK_END)));
    const auto length = pread(reportFile, text.data(), text.size(), 0);
    text.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return text;
}

} // namespace panotra::hosts

extern "C" {

// The dynamic loader, the kernel, and files.

std::uint32_t __wrap__dyld_image_count()
{
    noteCrossing("_dyld_image_count");
    return static_cast<std::uint32_t>(loadedFiles().size());
}

const char* __wrap__dyld_get_image_name(std::uint32_t index)
{
    noteCrossing("_dyld_get_image_name");
    return index < loadedFiles().size() ? loadedFiles()[index].c_str() : nullptr;
}

int __wrap_sysctlbyname(const char* name, void* value, std::size_t* size, void*, std::size_t)
{
    noteCrossing("sysctlbyname");
    static const std::map<std::string, std::string> values { { "hw.machine", "iPhone9,3" },
        { "kern.osversion", "00A000" } };
    const auto found = values.find(name);
    if (found == values.end() || *size < found->second.size() + 1)
        return -1;
    std::memcpy(value, found->second.c_str(), found->second.size() + 1);
    *size = found->second.size() + 1;
    return 0;
}

/// A file in memory; only the report may be made.
int __wrap_creat(const char* path, unsigned short)
{
    noteCrossing("creat");
    if (std::strcmp(path, "/var/mobile/Documents/Panotra-report.txt") != 0)
        return -1;
    reportFile = memfd_create("report", 0);
    return dup(reportFile); // the doctor closes its own
}

// The runtime, and queues.

Method __wrap_class_getClassMethod(Class hostClass, SEL selector)
{
    noteCrossing("class_getClassMethod");
    return class_getClassMethod(hostClass, selector);
}

IMP __wrap_method_setImplementation(Method method, IMP implementation)
{
    noteCrossing("method_setImplementation");
    return method_setImplementation(method, implementation);
}

const char* __wrap_sel_getName(SEL selector)
{
    noteCrossing("sel_getName");
    return sel_getName(selector);
}

const char* __wrap_class_getName(Class hostClass)
{
    noteCrossing("class_getName");
    return class_getName(hostClass);
}

const char* __wrap_object_getClassName(id object)
{
    noteCrossing("object_getClassName");
    return hosts::nameOfClass(object_getClass(object));
}

const char* __wrap_dispatch_queue_get_label(void*)
{
    noteCrossing("dispatch_queue_get_label");
    return [NSThread currentThread] == mainThread ? "com.apple.main-thread" : "com.apple.audio";
}

} // extern "C"
