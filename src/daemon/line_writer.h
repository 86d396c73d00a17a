// Lines to somebody who may stop reading: the journal, a terminal that is held. Whoever counts packets
// does not wait for them.
#pragma once

#include <QByteArray>

#include <mutex>

// From any thread.
class LineWriter
{
public:
    // `descriptor` of a file, a pipe, a socket or a terminal; stays the caller's.
    explicit LineWriter(int descriptor) : target(descriptor) { }

    // Writes the line, with its end, if its reader takes it now. Else it is lost, and the next line that is
    // taken stands behind one that tells how many were.
    void Write(const QByteArray &line);

private:
    bool WriteRest();

    int target;
    std::mutex mutex;
    QByteArray rest; // of the last line, which its reader took in part
    quint64 lost = 0; // lines
};
