// The language that the programs speak: the desktop's, where there is a translation into it.
#pragma once

// Loads the translation of the system's locale and the toolkit's own, from the installed
// share/tollbrook/translations or from beside the programs of the build folder. Without one the texts
// stay English. To be called once, after the application object is made and before the first text.
void SpeakTheSystemsLanguage();
