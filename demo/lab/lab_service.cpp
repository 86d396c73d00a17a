#include "demo/lab/lab_service.h"

#include <csignal>
#include <sys/prctl.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 30000; // milliseconds for its end

}

LabService::LabService(DemoUnit &ofService, QString path, QStringList options)
    : unit(ofService)
    , program(std::move(path))
    , arguments(std::move(options))
{
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); }); // never left behind
    connect(&process, &QProcess::readyRead, this, &LabService::Read);
    connect(&process, &QProcess::finished, this, [this] {
        if (unit.IsActive()) {
            unit.Die();
        }
    });
    connect(&unit, &DemoUnit::StateChanged, this, &LabService::Follow);
}

LabService::~LabService()
{
    disconnect(&process, nullptr, this, nullptr);
    if (process.state() != QProcess::NotRunning) {
        process.terminate();
        process.waitForFinished(kPatience);
    }
}

// Both ends of a start and of a stop come here: what is done already is not done again.
void LabService::Follow()
{
    const QString state = unit.ActiveState();
    const bool runs = process.state() != QProcess::NotRunning;
    if ((state == u"activating" || state == u"active") && !runs) {
        process.start(program, arguments);
    } else if (state == u"deactivating" && runs) {
        process.terminate();
    }
}

void LabService::Read()
{
    while (process.canReadLine()) {
        emit Said(QString::fromUtf8(process.readLine()).trimmed());
    }
}
