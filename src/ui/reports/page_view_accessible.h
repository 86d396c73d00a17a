// What assistive technology is told of a report's pages: the words of the page that shows.
#pragma once

class PageView;

// Has views of pages speak; the first call is enough.
void MakeReadable();

// The page that shows is another one.
void TellTextChanged(PageView &view);
