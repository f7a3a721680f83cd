/// What the home screen's own programs have on each system, as far as the mixer or a host that stands in for them has
/// to do with it: classes, methods, instance variables, keys.
///
/// These are facts about iOS 9 to 16, read from class dumps. The simulated device and the Objective-C host take their
/// shapes from this table, and a test holds the library's own tables against it. The library itself never sees it: it
/// asks the process what is there.
///
/// What no dump of a system shows is taken from the systems on both sides of it.
#pragma once

#include <span>

namespace panotra::systems {

inline constexpr int oldest = 9;
inline constexpr int newest = 16;

enum class Kind {
    Class, ///< `name` is the superclass
    Method,
    ClassMethod,
    Variable, ///< an instance variable
    Key, ///< of the dictionary that an announcement of the audio service carries
    Attribute, ///< of the audio service, asked for with `attributeForKey:`
    Notification, ///< a Darwin notification that the system posts
};

enum class Place { Own, Inherited };

/// Who calls a method: the main thread, a queue of the audio service's own, or, as far as the mixer and its host go,
/// nobody. What nobody calls is there all the same, and answers nothing.
enum class Caller { Main, AudioQueue, Nobody };

struct Row {
    const char* owner; ///< the class
    Kind kind;
    const char* name;
    const char*
        type; ///< the runtime's type code on 64-bit processors; of a key or an attribute, the class of its value
    int since;
    int until; ///< the last system that has it
    Place place = Place::Own;
    Caller caller = Caller::Main;
    /// What the row took the place of: "CLASS", "CLASS method", or a key. Null: nothing.
    const char* insteadOf = nullptr;

    constexpr bool isOn(int system) const { return since <= system && system <= until; }
};

/// Every row; superclasses stand before the classes below them.
std::span<const Row> allRows();

} // namespace panotra::systems
