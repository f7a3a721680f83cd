/// The host's services, all of them: for those who drive or watch a whole device.
#pragma once

#include "simulator/device/AudioService.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/DarwinNotifications.h"
#include "simulator/device/Screen.h"
#include "simulator/device/Touches.h"
