// The user guide, shown beside the main window: its pages, the way back, and a search.
#pragma once

#include "base/prompt.h"

#include <QWidget>

class HelpViewer;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;

class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    // Shows the guide of the file, a Markdown text.
    HelpWindow(const QString &file, QWidget *parent);

    // Where the guide lies: installed beside the program, or in the source tree it was built from.
    // Empty when it is in neither place.
    [[nodiscard]] static QString GuideFile();

private:
    QHBoxLayout *MakeBar();
    QToolButton *AddButton(QHBoxLayout &bar, const char *name, const QString &text);
    void Search();
    void ShowHistory();

    HelpViewer *viewer;
    QToolButton *back = nullptr;
    QToolButton *forward = nullptr;
    QLineEdit *search = nullptr;
    QLabel *outcome = nullptr;
};

// The "Help topics" command. A second call brings the open guide to the front.
void OpenHelpTopics(Prompt &prompt, QWidget *parent);
