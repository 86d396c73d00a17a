// Packets that were on their way through the rules when these were changed.
#pragma once

// Returns when each of them has left the rules, after about 20 ms at most: what the counters read
// then is all that the rules before the last change have counted.
void WaitForPacketsOnTheWay();
