// A backup on its way to the disk: under another name until it is whole.
#pragma once

#include "upkeep/told.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>

class BackupFile
{
public:
    // Makes a file of mode 0600 beside `path`, whose end is ".part".
    [[nodiscard]] static Told<std::unique_ptr<BackupFile>> Make(const QString &path);

    // Removes what has not been finished.
    ~BackupFile();
    BackupFile(const BackupFile &) = delete;
    BackupFile &operator=(const BackupFile &) = delete;

    [[nodiscard]] Told<void> Write(QByteArrayView bytes);

    // Writes the bytes compressed, behind their compressed length.
    [[nodiscard]] Told<void> WriteChunk(const QByteArray &bytes);

    // Writes the checksum, and gives the file its name once it is on the disk. What is of that name stays
    // unless it is to be replaced.
    [[nodiscard]] Told<void> Finish(bool replaces);

private:
    explicit BackupFile(const QString &wanted) : path(wanted) { }

    [[nodiscard]] QString Unwritten() const;

    QString path;
    QByteArray partPath;
    QFile file;
    QCryptographicHash sum {QCryptographicHash::Sha256};
};

// Adds a length of 32 bits, the largest byte first.
void AppendLength(qsizetype length, QByteArray &bytes);
