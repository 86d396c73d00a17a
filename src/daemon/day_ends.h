// Counts of midnights that the database has not taken yet, in a file of the service's own, so that a
// day is closed to the byte also when the database is away or the service is killed.
#pragma once

#include "metering/count.h"

#include <optional>
#include <vector>

class DayEnds
{
public:
    // Reads what is kept; nothing is kept without a file. `path` lies in the service's state folder.
    explicit DayEnds(QString path);

    [[nodiscard]] const std::vector<Count> &Waiting() const { return waiting; }

    // Why the file could not be read, or written last; nothing when it was.
    [[nodiscard]] const std::optional<QString> &Problem() const { return problem; }

    void Add(const Count &count);

    // The first `number` of them have been written.
    void Remove(size_t number);

private:
    void Load();
    void LayAside(const QString &damage);
    void Save();

    QString path;
    std::vector<Count> waiting; // by their moments
    std::optional<QString> problem;
};
