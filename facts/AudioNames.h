/// What the audio service calls its categories and routes, and how it announces that a level changed. Names are
/// compared exactly.
#pragma once

#include <array>

namespace panotra {

namespace category {
inline constexpr const char* audioVideo = "Audio/Video";
inline constexpr const char* phoneCall = "PhoneCall";
inline constexpr const char* ringtone = "Ringtone";
inline constexpr const char* alarm = "Alarm";
inline constexpr const char* notifications = "Notifications";
inline constexpr const char* voiceCommand = "VoiceCommand";
} // namespace category

inline constexpr std::array audioCategories { category::audioVideo, category::phoneCall, category::ringtone,
    category::alarm, category::notifications, category::voiceCommand };

/// Any other route is unknown.
namespace route {
inline constexpr const char* receiver = "Receiver";
inline constexpr const char* speaker = "Speaker";
inline constexpr const char* headphone = "Headphone";
inline constexpr const char* headset = "Headset";
inline constexpr const char* headphonesBT = "HeadphonesBT";
inline constexpr const char* headsetBT = "HeadsetBT";
} // namespace route

/// Why a level changed; the service may give others, too.
namespace changeReason {
inline constexpr const char* explicitChange = "ExplicitVolumeChange"; ///< a button, a slider, a program
inline constexpr const char* category = "CategoryChange";
inline constexpr const char* route = "RouteChange";
} // namespace changeReason

/// The keys of an announcement.
namespace announcementKey {
inline constexpr const char* category = "AudioCategory";
inline constexpr const char* reason = "AudioVolumeChangeReason";
inline constexpr const char* level = "AudioVolume";
} // namespace announcementKey

} // namespace panotra
