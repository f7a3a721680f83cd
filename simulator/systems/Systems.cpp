/// The table of systems.
#include "simulator/systems/Systems.h"

namespace panotra::systems {

namespace {

using enum Kind;
using enum Place;
using enum Caller;

// owner | kind | name | type | since | until | own or inherited | who calls | instead of what

// clang-format off
constexpr Row rows[] = {
    // Classes and their superclasses. Public ones that every system has are left out. Where a listing does not tell
    // a superclass it is taken for NSObject.
    { "FBSystemApp",                    Class, "UIApplication",                  "", 9, 12 },
    { "UISystemShellApplication",       Class, "UIApplication",                  "", 13, 16, Own, Main, "FBSystemApp" },
    { "SpringBoard",                    Class, "FBSystemApp",                    "", 9, 12 },
    { "SpringBoard",                    Class, "UISystemShellApplication",       "", 13, 16 },
    { "AVSystemController",             Class, "NSObject",                       "", 9, 16 },
    { "AVController",                   Class, "NSObject",                       "", 9, 12 },
    { "SBAVSystemControllerCache",      Class, "NSObject",                       "", 13, 16 },
    { "SBSoundController",              Class, "NSObject",                       "", 9, 16 },
    { "SBUISound",                      Class, "NSObject",                       "", 9, 16 },
    { "SBMediaController",              Class, "NSObject",                       "", 9, 16 },
    { "SBRingerControl",                Class, "NSObject",                       "", 13, 16, Own, Main, "SBMediaController" },
    { "SBMainWorkspace",                Class, "NSObject",                       "", 13, 15 },
    { "SBHUDController",                Class, "NSObject",                       "", 9, 16 },
    { "_SBHUDModel",                    Class, "NSObject",                       "", 13, 16 },
    { "SBBannerManager",                Class, "NSObject",                       "", 16, 16 },
    { "VolumeControl",                  Class, "NSObject",                       "", 9, 12 },
    { "SBVolumeControl",                Class, "NSObject",                       "", 13, 16, Own, Main, "VolumeControl" },
    { "SBAssistantController",          Class, "NSObject",                       "", 9, 16 },
    { "SBVoiceCommandButton",           Class, "NSObject",                       "", 14, 16 }, // since 14.3
    { "AXSpringBoardServer",            Class, "NSObject",                       "", 9, 16 },
    { "SBStatusBarManager",             Class, "NSObject",                       "", 13, 15 },
    { "_UIScrollsToTopInitiatorView",   Class, "UIView",                         "", 9, 16 },
    { "UIStatusBar_Base",               Class, "_UIScrollsToTopInitiatorView",   "", 11, 16 },
    { "UIStatusBar",                    Class, "_UIScrollsToTopInitiatorView",   "", 9, 10 },
    { "UIStatusBar",                    Class, "UIStatusBar_Base",               "", 11, 16 },
    { "UIStatusBar_Modern",             Class, "UIStatusBar_Base",               "", 11, 16 }, // beside what is hooked, not below it
    { "_UIStatusBar",                   Class, "UIView",                         "", 11, 16 },
    { "_UIBackdropView",                Class, "UIView",                         "", 9, 16 },
    { "_UIBackdropViewSettings",        Class, "NSObject",                       "", 9, 16 },
    { "UIViewPropertyAnimator",         Class, "NSObject",                       "", 10, 16 }, // public
    { "UIScene",                        Class, "UIResponder",                    "", 13, 16 }, // public
    { "UIWindowScene",                  Class, "UIScene",                        "", 13, 16 }, // public
    { "SBWindowScene",                  Class, "UIWindowScene",                  "", 16, 16 }, // from memory

    // The shake.
    { "UIResponder", Method, "motionBegan:withEvent:", "v@:q@", 9, 16 },
    { "UIEvent",     Method, "type",                   "q@:",   9, 16 },

    // The application.
    { "SpringBoard",   Method, "applicationDidFinishLaunching:",      "v@:@",       9, 16 },
    { "SpringBoard",   Method, "windowRotationDuration",              "d@:",        9, 14 },
    { "SpringBoard",   Method, "isSpringBoardStatusBarHidden",        "B@:",        9, 15 },
    { "SpringBoard",   Method, "statusBarForEmbeddedDisplay",         "@@:",       16, 16, Own, Main, "SpringBoard isSpringBoardStatusBarHidden" },
    { "SpringBoard",   Method, "statusBarOrientationForEmbeddedDisplay", "q@:",    16, 16, Own, Nobody },
    { "SpringBoard",   Method, "volumeControl",                       "@@:",       16, 16, Own, Main, "SBVolumeControl sharedInstance" },
    { "SpringBoard",   Method, "ringerControl",                       "@@:",       16, 16, Own, Nobody, "SBMainWorkspace ringerControl" },
    { "SpringBoard",   Method, "noteInterfaceOrientationChanged:duration:logMessage:", "v@:qd@", 10, 12, Own, Nobody },
    { "SpringBoard",   Method, "noteInterfaceOrientationChanged:duration:logMessage:", "v@:qd@", 13, 16, Own, Main, "SBHUDController reorientHUDIfNeeded:" },
    { "SpringBoard",   Method, "addActiveOrientationObserver:",       "v@:@",       9, 16, Own, Nobody },
    { "SpringBoard",   Method, "voiceCommandButton",                  "@@:",       14, 16, Own, Nobody }, // since 14.3
    { "SpringBoard",   Method, "_handleActivateSiriKeyShortcut:",     "v@:@",      15, 16, Own, Nobody },
    { "UIApplication", Method, "activeInterfaceOrientation",          "q@:",        9, 16 },
    { "SpringBoard",   Method, "activeInterfaceOrientation",          "q@:",        9, 16 },
    { "UIApplication", Method, "statusBar",                           "@@:",        9, 16 },
    { "UIApplication", Method, "connectedScenes",                     "@@:",       13, 16 }, // public
    { "UIWindowScene", Method, "screen",                              "@@:",       13, 16 }, // public
    { "UIWindow",      Method, "setWindowScene:",                     "v@:@",      13, 16 }, // public
    { "UIWindow",      Method, "windowScene",                         "@@:",       13, 16, Own, Nobody }, // public

    // The audio service. Its framework is Celestial, from 16 on MediaExperience. The argument of an announcement is a
    // dictionary on every system, also where its type says no more than that it is a pointer.
    { "AVSystemController", ClassMethod, "sharedAVSystemController", "@@:", 9, 16 },
    { "AVSystemController", Method, "getActiveCategoryVolume:andName:fallbackCategory:", "B@:^f^@@", 9, 12 },
    { "AVSystemController", Method, "getActiveCategoryVolume:andName:fallbackCategory:", "B@:^f^@@", 13, 16, Own, AudioQueue },
    { "AVSystemController", Method, "postEffectiveVolumeNotification:", "v@:^v",    9, 12 },
    { "AVSystemController", Method, "postEffectiveVolumeNotification:", "v@:^v",   13, 15, Own, AudioQueue },
    { "AVSystemController", Method, "postEffectiveVolumeNotification:", "v@:@",    16, 16, Own, AudioQueue },
    { "AVSystemController", Method, "setVolumeTo:forCategory:",         "B@:f@",    9, 12 },
    { "AVSystemController", Method, "setVolumeTo:forCategory:",         "B@:f@",   13, 16, Own, AudioQueue },
    { "AVSystemController", Method, "getVolume:forCategory:",           "B@:^f@",   9, 16 },
    { "AVSystemController", Method, "attributeForKey:",                 "@@:@",     9, 16 },
    { "AVSystemController", Attribute, "AVController_ActiveAudioRouteAttribute", "NSString", 9, 16 },
    { "AVSystemController", Key, "AudioCategory",           "NSString", 9, 16 },
    { "AVSystemController", Key, "AudioVolumeChangeReason", "NSString", 9, 14 },
    { "AVSystemController", Key, "Reason",                  "NSString", 15, 16, Own, Main, "AudioVolumeChangeReason" },
    { "AVSystemController", Key, "AudioVolume",             "NSNumber", 9, 14 },
    { "AVSystemController", Key, "Volume",                  "NSNumber", 15, 16, Own, Main, "AudioVolume" },
    { "AVSystemController", Method, "setVolumeTo:forCategory:mode:", "B@:f@@", 16, 16, Own, Nobody }, // typed as the one without a mode
    // The platform keeps the old names of routes up by itself.
    { "AVController",              ClassMethod, "compatibleAudioRouteForRoute:", "@@:@",  9, 12, Own, Nobody },
    { "AVSystemController",        ClassMethod, "compatibleAudioRouteForRoute:", "@@:@", 13, 16, Own, Nobody, "AVController compatibleAudioRouteForRoute:" },
    { "SBAVSystemControllerCache", ClassMethod, "sharedInstance",   "@@:", 13, 16 },
    { "SBAVSystemControllerCache", Method,      "activeAudioRoute", "@@:", 13, 16 },

    // Sounds.
    { "SBSoundController", Method, "playSound:environments:completion:", "B@:@q@?", 9, 16 },
    { "SBUISound",         Method, "soundType",                          "q@:",     9, 16 },

    // The ringer.
    { "SBMediaController", Method, "setRingerMuted:", "v@:B", 9, 12 },
    { "SBRingerControl",   Method, "setRingerMuted:", "v@:B", 13, 16, Own, Main, "SBMediaController setRingerMuted:" },
    { "SBRingerControl",   Method, "activateRingerHUDFromMuteSwitch:", "v@:i", 13, 16 },
    { "SBRingerControl",   Method, "activateRingerHUD:withInitialVolume:fromSource:", "v@:ifQ", 16, 16 },
    { "SBMainWorkspace",   ClassMethod, "sharedInstance", "@@:", 13, 15, Own, Nobody },
    { "SBMainWorkspace",   Method,      "ringerControl",  "@@:", 13, 15, Own, Nobody },

    // The system's indicator.
    { "SBHUDController", Method, "presentHUDView:autoDismissWithDelay:", "v@:@d", 9, 12 },
    { "SBHUDController", Method, "_presentHUD:animated:",                "v@:@B", 13, 16, Own, Main, "SBHUDController presentHUDView:autoDismissWithDelay:" },
    { "SBHUDController", Method, "reorientHUDIfNeeded:",                 "v@:B",  9, 12 },
    { "SBHUDController", Method, "windowScene",                          "@@:",   16, 16, Own, Nobody }, // from memory
    { "_SBHUDModel",     Method, "HUDViewController",                    "@@:",   13, 16, Own, Nobody },

    // The volume buttons.
    { "VolumeControl",   ClassMethod, "sharedVolumeControl",                "@@:",   9, 12 },
    { "VolumeControl",   Method,      "_presentVolumeHUDWithMode:volume:",  "v@:if", 9, 12 },
    { "VolumeControl",   Variable,    "_mode",                              "i",     9, 12 },
    { "VolumeControl",   Variable,    "_volumeDownButtonIsDown",            "B",     9, 12 },
    { "VolumeControl",   Variable,    "_volumeUpButtonIsDown",              "B",     9, 12 },
    { "SBVolumeControl", ClassMethod, "sharedInstance",                     "@@:",  13, 15, Own, Main, "VolumeControl sharedVolumeControl" },
    { "SBVolumeControl", Method,      "_presentVolumeHUDWithVolume:",       "v@:f", 13, 16, Own, Main, "VolumeControl _presentVolumeHUDWithMode:volume:" },
    { "SBVolumeControl", Variable,    "_mode",                              "Q",    13, 16, Own, Main, "VolumeControl _mode" },
    { "SBVolumeControl", Variable,    "_volumeDownButtonIsDown",            "B",    13, 16, Own, Main, "VolumeControl _volumeDownButtonIsDown" },
    { "SBVolumeControl", Variable,    "_volumeUpButtonIsDown",              "B",    13, 16, Own, Main, "VolumeControl _volumeUpButtonIsDown" },

    // Status bars declare no `setFrame:` on any system: a hook of theirs must not reach other views.
    { "UIStatusBar",  Method, "setFrame:", "v@:{CGRect={CGPoint=dd}{CGSize=dd}}",  9, 16, Inherited },
    { "_UIStatusBar", Method, "setFrame:", "v@:{CGRect={CGPoint=dd}{CGSize=dd}}", 11, 16, Inherited },
    { "UIStatusBar",        Method, "layoutSubviews", "v@:",  9, 16, Own, Nobody },
    { "UIStatusBar_Modern", Method, "layoutSubviews", "v@:", 11, 16, Own, Nobody },
    { "_UIStatusBar",       Method, "layoutSubviews", "v@:", 11, 16, Own, Nobody },
    { "SBStatusBarManager", Method, "createStatusBarWithReason:withFrame:", "@@:@{CGRect={CGPoint=dd}{CGSize=dd}}", 13, 15, Own, Nobody },

    // The voice assistant.
    { "SBAssistantController", ClassMethod, "sharedInstance", "@@:", 9, 16 },
    { "SBAssistantController", Method,      "window",         "@@:", 9, 16 },
    { "SBAssistantController", Method,      "sessionForWindowScene:", "@@:@", 16, 16, Own, Nobody },
    { "AXSpringBoardServer",   ClassMethod, "server",         "@@:", 9, 16 },
    { "AXSpringBoardServer",   Method,      "isSiriVisible",  "B@:", 9, 16 },
    { "AXSpringBoardServer",   Method,      "_shouldDispatchLocally", "B@:", 9, 16, Own, Nobody },
    { "AXSpringBoardServer",   Method,      "openSiri",       "v@:", 9, 9 },
    { "AXSpringBoardServer",   Method,      "openSiri",       "B@:", 10, 12 },
    { "AXSpringBoardServer",   Method,      "dismissSiri",    "v@:", 9, 9 },
    { "AXSpringBoardServer",   Method,      "dismissSiri",    "B@:", 10, 16 },

    // Views and the screen.
    { "_UIBackdropViewSettings", ClassMethod, "settingsForStyle:graphicsQuality:", "@@:qq", 9, 16 },
    { "_UIBackdropView", Method, "initWithFrame:autosizesToFitSuperview:settings:", "@@:{CGRect={CGPoint=dd}{CGSize=dd}}B@", 9, 16 },
    { "_UIBackdropView", Method, "setBlurRadius:",     "v@:d", 9, 16 },
    { "_UIBackdropView", Method, "transitionToStyle:", "v@:q", 9, 16 },
    { "_UIBackdropView", Method, "contentView",        "@@:",  9, 16 },
    { "_UIBackdropView", Method, "effectView",         "@@:",  9, 16 },
    { "UIScreen", Method,      "_referenceBounds",       "{CGRect={CGPoint=dd}{CGSize=dd}}@:", 9, 16 },
    { "UIImage",  ClassMethod, "imageNamed:inBundle:",   "@@:@@",   9, 16 },
    { "CALayer",  Method,      "setContinuousCorners:",  "v@:B",   11, 16 },

    { "", Notification, "com.apple.springboard.screenchanged", "", 9, 16 },
};
// clang-format on

} // namespace

std::span<const Row> allRows()
{
    return rows;
}

} // namespace panotra::systems
