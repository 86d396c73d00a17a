// The process takes much memory for a moment in each round, and little in between.
#pragma once

namespace heap {

// What one thread has freed, another one may take; large pieces go back at once. To be called before there
// is another thread.
void KeepSmall();

// Gives back what is free.
void GiveBack();

} // namespace heap
