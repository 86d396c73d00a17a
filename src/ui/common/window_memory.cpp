#include "ui/common/window_memory.h"

#include <QEvent>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Room for a window's frame and title bar, which the screen's free space does not leave out.
constexpr QSize kFrame(8, 40);

struct Owner
{
    QString organization;
    QString program;
};

Owner &KeptFor()
{
    static Owner owner;
    return owner;
}

// Null while nothing is kept.
std::unique_ptr<QSettings> OpenMemory()
{
    const auto &[organization, program] = KeptFor();
    if (organization.isEmpty()) {
        return nullptr;
    }
    return std::make_unique<QSettings>(
        QSettings::IniFormat, QSettings::UserScope, organization, program);
}

// Calls a function whenever the window is hidden by the program or closed.
class HideWatch : public QObject
{
public:
    HideWatch(QWidget &watched, std::function<void()> whenHidden)
        : QObject(&watched)
        , call(std::move(whenHidden))
    {
        watched.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide && !event->spontaneous()) {
            call();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> call;
};

} // namespace

void KeepWindowsFor(const QString &organization, const QString &program)
{
    KeptFor() = {organization, program};
}

QVariant Remembered(const QString &key)
{
    const auto memory = OpenMemory();
    return memory ? memory->value(key) : QVariant();
}

bool Remember(const QString &key, const QVariant &value)
{
    const auto memory = OpenMemory();
    if (!memory) {
        return false;
    }
    memory->setValue(key, value);
    memory->sync();
    return memory->status() == QSettings::NoError;
}

void RememberSize(QWidget &window, const QString &name, QSize atFirst)
{
    const QString sizeKey = name + u"/size"_s;
    const QString maximizedKey = name + u"/maximized"_s;
    const QSize size = Remembered(sizeKey).toSize();
    window.resize(
        (size.isEmpty() ? atFirst : size).boundedTo(window.screen()->availableSize() - kFrame));
    if (Remembered(maximizedKey).toBool()) {
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    }
    new HideWatch(window, [&window, sizeKey, maximizedKey] {
        Remember(maximizedKey, window.isMaximized());
        if (!window.isMaximized()) {
            Remember(sizeKey, window.size());
        }
    });
}

void RememberParts(QSplitter &splitter, const QString &name)
{
    const QString key = name + u"/parts"_s;
    splitter.restoreState(Remembered(key).toByteArray());
    new HideWatch(splitter, [&splitter, key] { Remember(key, splitter.saveState()); });
}

ColumnMemory::ColumnMemory(QHeaderView &columns,
                           const QString &listName,
                           std::function<QString(int section)> columnName)
    : QObject(&columns)
    , header(columns)
    , name(listName)
    , nameOf(std::move(columnName))
{
    const QVariantMap kept = Remembered(name + u"/widths"_s).toMap();
    for (auto width = kept.begin(); width != kept.end(); ++width) {
        widths.insert(width.key(), width->toInt());
    }
    order = Remembered(name + u"/order"_s).toStringList();
    header.setSectionsMovable(true);
    connect(&header,
            &QHeaderView::sectionResized,
            this,
            [this](int section, int /*before*/, int width) { NoteWidth(section, width); });
    connect(&header, &QHeaderView::sectionMoved, this, &ColumnMemory::NoteOrder);
}

ColumnMemory::~ColumnMemory()
{
    if (!isChanged) {
        return;
    }
    QVariantMap kept;
    for (auto width = widths.begin(); width != widths.end(); ++width) {
        kept.insert(width.key(), *width);
    }
    Remember(name + u"/widths"_s, kept);
    Remember(name + u"/order"_s, order);
}

void ColumnMemory::PutUp(const std::function<void()> &sections)
{
    const bool before = std::exchange(isPuttingUp, true);
    sections();
    Restore();
    isPuttingUp = before;
}

bool ColumnMemory::IsDragged(int section) const
{
    return widths.contains(nameOf(section));
}

void ColumnMemory::NoteWidth(int section, int width)
{
    if (!isPuttingUp && width > 0) {
        widths.insert(nameOf(section), width);
        isChanged = true;
    }
}

void ColumnMemory::NoteOrder()
{
    if (isPuttingUp) {
        return;
    }
    QStringList shown;
    for (int place = 0; place < header.count(); ++place) {
        shown << nameOf(header.logicalIndex(place));
    }
    order.removeIf([&shown](const QString &column) { return shown.contains(column); });
    order = shown + order;
    isChanged = true;
}

void ColumnMemory::Restore()
{
    int place = 0;
    for (const QString &column : std::as_const(order)) {
        for (int section = 0; section < header.count(); ++section) {
            if (nameOf(section) == column) {
                header.moveSection(header.visualIndex(section), place++);
                break;
            }
        }
    }
    for (int section = 0; section < header.count(); ++section) {
        if (const int width = widths.value(nameOf(section)); width > 0) {
            header.resizeSection(section, width);
        }
    }
}
