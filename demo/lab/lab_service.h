// The real service as a process of the laboratory's gateway, started and stopped as a unit.
#pragma once

#include "demo/demo_unit.h"

#include <QProcess>

class LabService : public QObject
{
    Q_OBJECT

public:
    // It runs while the unit is active.
    LabService(DemoUnit &unit, QString program, QStringList arguments);
    // In order: what was counted last is written.
    ~LabService() override;

signals:
    void Said(const QString &line);

private:
    void Follow();
    void Read();

    DemoUnit &unit;
    QString program;
    QStringList arguments;
    QProcess process;
};
