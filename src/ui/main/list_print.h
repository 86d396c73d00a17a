// "Print list...": every user that the list's filter finds, on paper.
#pragma once

#include "ui/main/list_export.h"

#include <memory>

class QPrinter;

// Lets a printer and its paper be chosen and prints there.
void PrintList(const AppServices &services, QWidget &parent, const ListToExport &list);

// Reads on a connection of its own and prints on the printer's paper while `parent` waits, which can be
// cancelled, and tells what became of it.
void PrintListOn(const AppServices &services,
                 QWidget &parent,
                 const ListToExport &list,
                 const std::shared_ptr<QPrinter> &printer);
