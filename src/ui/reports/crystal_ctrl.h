// The thin wrapper through which the Reports dialog drives the report control.
#pragma once

#include "base/prompt.h"

#include <QByteArray>
#include <QPointer>
#include <QWidget>

class ReportViewer;

// Holds nothing of its own: each setter puts one property of the control by its number.
class CCrystalCtrl : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    // Puts the control into `parent`: its title, place and child id. True when it stands. What the
    // control has to say goes to `prompt`.
    bool Create(Prompt &prompt, const QString &title, const QRect &place, QWidget *parent, int id);

    void SetLayoutFile(const QByteArray &path); // 3
    void SetAction(qint16 action); // 17
    void SetConnection(const QByteArray &text); // 20
    void SetOption24(qint32 value);
    void SetQuery(const QByteArray &text); // 64
    void SetOutputMode(qint32 mode); // 67
    void SetOption120(bool on);
    void SetOption123(bool on);
    void SetOption125(bool on);

    // The control itself; null before Create.
    [[nodiscard]] ReportViewer *Control() const;
};
