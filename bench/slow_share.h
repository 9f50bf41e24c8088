#pragma once

// What the library that stands in for a share tells the program into which it is preloaded: how often the
// server would have been asked so far, about databases and their journals, and about other files beside them.
extern "C" {
long mevo_share_trips();
long mevo_share_trips_beside();
}
