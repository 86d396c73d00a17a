// Which protocols the service monitors: one of four, "monitorprotmode".
#pragma once

#include <QWidget>

class QButtonGroup;

class MonitorModeBox : public QWidget
{
    Q_OBJECT

public:
    // Edits `mode` in place; a code of no meaning shows nothing chosen and stays.
    explicit MonitorModeBox(qint32 &mode, QWidget *parent = nullptr);

    void Show();

signals:
    void Changed();

private:
    qint32 &mode;
    QButtonGroup *buttons;
};
