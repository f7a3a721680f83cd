/// The notification centre that delivers Darwin notifications on the main thread.
#pragma once

typedef long CFIndex;
typedef const void* CFTypeRef;
typedef const struct __CFString* CFStringRef; // an NSString is one
typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFNotificationCenter* CFNotificationCenterRef;

typedef CFIndex CFNotificationSuspensionBehavior;
typedef void (*CFNotificationCallback)(
    CFNotificationCenterRef center, void* observer, CFStringRef name, const void* object, CFDictionaryRef userInfo);

extern "C" {

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void) noexcept;
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
    CFNotificationCallback callBack, CFStringRef name, const void* object,
    CFNotificationSuspensionBehavior suspensionBehavior) noexcept;

} // extern "C"
