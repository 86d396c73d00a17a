// A pane of the status bar that shows a picture and can be opened: by a double click, or with the
// focus on it by Enter or Space.
#pragma once

#include "ui/common/icons.h"

#include <QLabel>

class StatusPane : public QLabel
{
    Q_OBJECT

public:
    // `hint` tells what opening it does.
    StatusPane(const QString &objectName, const QString &hint, QWidget *parent);

    // `name` identifies the picture, `words` say what it shows.
    void ShowPicture(const QString &name, Picture picture, const QString &words);

    [[nodiscard]] const QString &PictureName() const { return pictureName; }

signals:
    void Opened();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QString pictureName;
    QString hint;
};
