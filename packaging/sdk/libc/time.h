/// The type that <chrono> is built on.
#pragma once

typedef long time_t;
