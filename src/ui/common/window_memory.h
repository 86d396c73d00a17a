// What a person has made of the windows: their sizes, how they are divided, the columns of their lists,
// and what else windows keep under keys of their own. It is kept for this person alone, in the desktop's own place for settings, and never in the
// store that all administrators share.
#pragma once

#include <QHash>
#include <QObject>
#include <QSize>
#include <QStringList>

#include <functional>
#include <memory>

class QHeaderView;
class QSettings;
class QSplitter;
class QVariant;
class QWidget;

// From now on sizes and columns are kept and found again. Without a call nothing is.
void KeepWindowsFor(const QString &organization, const QString &program);

// What was kept under the key; invalid for nothing.
[[nodiscard]] QVariant Remembered(const QString &key);

// On the disk when this returns. False when it could not be written, or nothing is kept at all.
bool Remember(const QString &key, const QVariant &value);

// Gives the window the size that it had the last time, or `atFirst`, and never more than the screen has
// room for. It is kept whenever the window is hidden. `name` tells the windows apart.
void RememberSize(QWidget &window, const QString &name, QSize atFirst);

// The same for the parts of a splitter, which has all its parts.
void RememberParts(QSplitter &splitter, const QString &name);

// The widths and the order of a header's columns, as they were dragged. The columns are known by names
// that are never shown, so that they may come and go.
class ColumnMemory : public QObject
{
    Q_OBJECT

public:
    // `nameOf` gives the name of a section. The memory lives as long as the header and keeps at the end
    // of both.
    ColumnMemory(QHeaderView &header,
                 const QString &name,
                 std::function<QString(int section)> nameOf);
    ~ColumnMemory() override;

    // Runs `sections`, which puts sections up or sets their widths; then they get the widths and the
    // order that they were dragged to.
    void PutUp(const std::function<void()> &sections);

    [[nodiscard]] bool IsDragged(int section) const;

private:
    void NoteWidth(int section, int width);
    void NoteOrder();
    void Restore();

    QHeaderView &header;
    const QString name;
    std::function<QString(int)> nameOf;
    QHash<QString, int> widths; // in pixels
    QStringList order; // from left to right; those that are not shown at the end
    bool isChanged = false;
    bool isPuttingUp = false;
};
