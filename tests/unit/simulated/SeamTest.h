/// A device for the seam to stand on, its trace kept.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/Values.h"
#include "simulator/device/View.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace panotra {

class SeamTest : public ::testing::Test {
protected:
    SeamTest()
    {
        device.traceSink = [this](const sim::Json& event) {
            events.push_back(event);
        };
    }

    void lack(const char* className) { device.classes->setPresent(className, false); }
    std::vector<std::string> eventNames() const
    {
        std::vector<std::string> names;
        for (const sim::Json& event : events)
            names.push_back(event["event"]);
        return names;
    }

    sim::Device device;
    std::vector<sim::Json> events;
};

} // namespace panotra
