// A sheet whose pages are chosen from a list with icons on its left.
#pragma once

#include "base/prompt.h"
#include "ui/common/icons.h"
#include "ui/common/sheet.h"

class QListWidget;

class PageListSheet : public Sheet
{
    Q_OBJECT

public:
    // `prompt` must outlive the sheet.
    PageListSheet(Prompt &prompt, const QString &caption, QWidget *parent);

    // Adds the page as the last entry of the list.
    void Add(Page *page, Picture picture);

private:
    void Choose(int row);
    void Follow(int page);

    QListWidget *list;
};
