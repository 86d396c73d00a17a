// "Find user:" with its search command, a toolbar of the main window.
#pragma once

#include "base/prompt.h"

#include <QToolBar>

#include <functional>

class TextField;

class FindBar : public QToolBar
{
    Q_OBJECT

public:
    // `find` looks for the text and returns false when nothing was found: the field then has the
    // focus again.
    FindBar(Prompt &prompt, std::function<bool(const QString &text)> find, QWidget *parent);

    void TakeFocus();

private:
    void Search();

    Prompt &prompt;
    std::function<bool(const QString &)> find;
    TextField *field;
};
