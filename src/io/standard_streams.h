// The three streams that every program should be started with.
#pragma once

namespace morvane {

/// Opens each of the descriptors 0, 1 and 2 that is closed on the null device. Otherwise the next
/// file that is opened gets its number, and messages are written into that file. Returns whether
/// all three are open now.
bool open_closed_streams();

}  // namespace morvane
