#pragma once

#include <string>
#include <vector>

#include "event/event_store.h"

/// The device message of each position event, in the order of the table. Time signatures have
/// none.
std::vector<std::string> DeviceMessagesOf(const C3DEventData& store);
