// A file that is there whole or not at all, also in a folder that others can write to.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

// Written beside its name, with nobody's rights but the writer's, and renamed in the end: who reads it sees
// what it held before, or all of it. A file that it replaces hands its access rights on, unless somebody
// else can have laid it there.
//
// A symbolic link is followed when it is the writer's own or the superuser's, and by others than the
// superuser also in folders that only their owner can write to. In any other place it may be a trap.
class OutputFile
{
public:
    // A new file may be read by its group too if `groupReads`.
    explicit OutputFile(bool groupReads = false) : mode(groupReads ? 0640 : 0600) { }
    ~OutputFile(); // removes what was not kept
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    // False, with Problem() filled, when the place cannot be reached or written to.
    [[nodiscard]] bool Open(const QString &name);

    [[nodiscard]] QIODevice &Device() { return file; }

    // Gives the file its name. False, with Problem() filled, when it is not whole.
    [[nodiscard]] bool Keep();

    [[nodiscard]] QString Problem() const { return problem; }

private:
    [[nodiscard]] bool Begin();
    bool Fail(int error);

    QFile file;
    int folder = -1;
    QByteArray name; // in the folder
    QByteArray writtenAs; // likewise, until it is kept
    unsigned mode; // that it is kept with
    QString problem;
};
