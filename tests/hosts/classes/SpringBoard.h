/// The classes of the home screen, of the audio service and of other people's libraries, in front of the device's.
#pragma once

#include "tests/hosts/classes/UIKit.h"

/// The device's one object of the class, which stands for that of a shared instance.
id sharedObject(const char* className);

/// The volume buttons' object, its instance variables brought up to date: the buttons are the device's. Nil gives nil.
id updatedButtons(id buttons);

/// The audio service.
@interface AVSystemController : DeviceObject
+ (id)sharedAVSystemController;
- (void)postEffectiveVolumeNotification:(id)announcement;
- (BOOL)getActiveCategoryVolume:(float*)level andName:(id*)name fallbackCategory:(id)fallback;
- (BOOL)setVolumeTo:(float)level forCategory:(id)category;
- (BOOL)getVolume:(float*)level forCategory:(id)category;
- (id)attributeForKey:(id)key;
@end

@interface SpringBoard : UIApplication
- (void)applicationDidFinishLaunching:(id)application;
- (double)windowRotationDuration;
- (BOOL)isSpringBoardStatusBarHidden;
@end

/// Its state is read by key from its instance variables.
@interface VolumeControl : DeviceObject {
    long long _mode;
    BOOL _volumeUpButtonIsDown;
    BOOL _volumeDownButtonIsDown;
}
+ (id)sharedVolumeControl;
- (void)_presentVolumeHUDWithMode:(int)mode volume:(float)volume;
@end

@interface SBHUDController : DeviceObject
- (void)presentHUDView:(id)view autoDismissWithDelay:(double)delay;
- (void)reorientHUDIfNeeded:(BOOL)flag;
@end

@interface SBUISound : DeviceObject
- (long)soundType;
@end

@interface SBSoundController : DeviceObject
- (BOOL)playSound:(id)sound environments:(long)environments completion:(id)completion;
@end

@interface SBMediaController : DeviceObject
- (void)setRingerMuted:(BOOL)muted;
@end

@interface AXSpringBoardServer : DeviceObject
+ (id)server;
- (BOOL)isSiriVisible;
- (BOOL)openSiri;
- (BOOL)dismissSiri;
@end

/// The voice assistant.
@interface SBAssistantController : DeviceObject
+ (id)sharedInstance;
- (id)window;
@end

/// Other people's indicator overlays.
@interface MeliorWindow : UIWindow
+ (id)sharedInstance;
@end

@interface ABVolumeHUDVisibilityManager : DeviceObject
- (void)hideImmediatelyIfPossible;
@end

@interface ABVolumeHUDManager : DeviceObject
+ (id)sharedManager;
- (id)visibilityManager;
- (id)targetView;
@end

/// The gesture framework.
@interface LAActivator : DeviceObject
+ (id)sharedInstance;
- (void)registerListener:(id)listener forName:(NSString*)name;
@end

@interface LAEvent : DeviceObject
- (void)setHandled:(BOOL)handled;
@end
