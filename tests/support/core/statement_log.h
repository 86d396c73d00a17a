// What the sessions of the test programs send: ctest names a file for each program, and the program
// writes each statement into it once, when it first goes to the driver, as
//
//     kinds of its values, a tab, the text as it is written in the code
//
// i is an integer, a an amount, t a text, d a day, s a day's text that is compared as a moment,
// r rows. A
// program that is run by hand writes nothing, nor do the programs that a test starts.
#pragma once

namespace statement_log {

// To be called for each text that the driver is handed on this thread's session. The session's own
// texts, as those of its transactions, are left out.
void Add(const char *translated);

} // namespace statement_log
