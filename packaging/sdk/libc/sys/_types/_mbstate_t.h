/// The state of a multibyte conversion: std::char_traits names the type, nothing here converts.
#pragma once

typedef union {
    char state[128];
    long long alignment;
} mbstate_t;
