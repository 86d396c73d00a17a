// The user guide, shown beside the main window.
#pragma once

#include "base/prompt.h"

#include <QTextBrowser>

class HelpViewer : public QTextBrowser
{
    Q_OBJECT

public:
    // Shows the guide of the file, a Markdown text.
    HelpViewer(const QString &file, QWidget *parent);

    // Where the guide lies: installed beside the program, or in the source tree it was built from.
    // Empty when it is in neither place.
    [[nodiscard]] static QString GuideFile();

    // Scrolls to the heading that a link such as "#find-a-user" means.
    void ShowHeading(const QString &fragment);

protected:
    // Pictures that an installation does not bring along are among the program's own artwork.
    QVariant loadResource(int type, const QUrl &name) override;

private:
    void Follow(const QUrl &link);
};

// The "Help topics" command. A second call brings the open guide to the front.
void OpenHelpTopics(Prompt &prompt, QWidget *parent);
