// Whom or what a window is for, in a line above its controls.
#pragma once

#include <QIcon>
#include <QWidget>

class ElidedLabel;

// A picture and a text; a long text is cut to the room that there is.
class HeadingLine : public QWidget
{
    Q_OBJECT

public:
    HeadingLine(const QIcon &picture, const QString &text, QWidget *parent = nullptr);

    // The same line for another window, which takes it over.
    [[nodiscard]] HeadingLine *Copy() const;

private:
    const QIcon picture;
    ElidedLabel *text;
};
