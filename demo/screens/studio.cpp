#include "demo/screens/studio.h"

#include "demo/screens/text_check.h"
#include "ui/main/splitter_frame.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QPainter>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitleHeight = 28;
constexpr int kLookAgainMs = 30;
constexpr qint64 kOpensWithinMs = 20000;

// A window manager's title bar and border, so that a picture says which window it shows.
QPixmap WithTitleBar(const QPixmap &content, const QString &title, const QPalette &palette)
{
    const qreal scale = content.devicePixelRatio();
    const QSize size = (QSizeF(content.size()) / scale).toSize() + QSize(2, kTitleHeight + 1);
    QPixmap picture(size * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(palette.color(QPalette::Mid));
    QPainter painter(&picture);
    const QRect bar(1, 1, size.width() - 2, kTitleHeight - 1);
    painter.fillRect(bar, palette.color(QPalette::Midlight));
    painter.setPen(palette.color(QPalette::WindowText));
    QFont font = QApplication::font();
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(bar, Qt::AlignCenter, title);
    painter.drawPixmap(1, kTitleHeight, content);
    return picture;
}

QPixmap PictureOf(QWidget &window)
{
    QCoreApplication::sendPostedEvents();
    return WithTitleBar(window.grab(), window.windowTitle(), window.palette());
}

// "Time of week" is time-of-week.
QString FileNameOf(const QString &label)
{
    return label.simplified().toLower().remove(u'&').replace(u' ', u'-').remove(u'.');
}

// A wait that takes long is not the window that it is about.
QWidget *OpenDialog()
{
    QWidget *window = QApplication::activeModalWidget();
    return qobject_cast<WaitDialog *>(window) == nullptr ? qobject_cast<QDialog *>(window)
                                                         : nullptr;
}

QWidget *OpenMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

} // namespace

Studio::Studio(CSplitterFrame &newFrame,
               const AppServices &appServices,
               const QDir &newFolder,
               QStringList newNames)
    : frame(newFrame)
    , services(appServices)
    , folder(newFolder)
    , names(std::move(newNames))
{ }

bool Studio::Wants(const QString &name) const
{
    const QString family = name + u'-';
    const auto isOfFamily = [&](const QString &asked) { return asked.startsWith(family); };
    return names.isEmpty() || names.contains(name)
        || std::any_of(names.begin(), names.end(), isOfFamily);
}

void Studio::Fail(const QString &what)
{
    std::fprintf(stderr, "%s\n", qPrintable(what));
    ++failures;
}

void Studio::Save(const QString &name, const QPixmap &picture)
{
    if (!names.isEmpty() && !names.contains(name)) {
        return;
    }
    const QString path = folder.filePath(name + u".png"_s);
    if (!picture.save(path)) {
        Fail(path + u" cannot be written"_s);
    }
}

void Studio::Check(const QString &name, QWidget &window)
{
    if (knownTexts) {
        for (const QString &problem : TextProblems(window, *knownTexts)) {
            Fail(name + u": "_s + problem);
        }
    }
}

// What a window reads beside itself has come, and has been laid out, by then.
void Studio::Draw(const QString &name, QWidget &window)
{
    do {
        QCoreApplication::processEvents();
    } while (services.database.IsBusy());
    QCoreApplication::processEvents();
    Save(name, PictureOf(window));
    Check(name, window);
}

void Studio::DrawPages(const QString &name, QWidget &window)
{
    auto *tabs = window.findChild<QTabWidget *>();
    for (int page = 0; tabs != nullptr && page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        Draw(name + u'-' + FileNameOf(tabs->tabText(page)), window);
    }
}

// Runs `open`, whose window keeps an event loop of its own, and acts on the window once it stands.
void Studio::WhenOpen(const QString &name,
                      QWidget *(*find)(),
                      const std::function<void(QWidget &)> &act,
                      const std::function<void()> &open)
{
    QTimer look;
    QElapsedTimer waiting;
    waiting.start();
    bool met = false;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        QWidget *window = find();
        if (window != nullptr && window->isVisible()) {
            look.stop();
            met = true;
            act(*window);
        } else if (waiting.hasExpired(kOpensWithinMs)) {
            look.stop();
        }
    });
    look.start(kLookAgainMs);
    open();
    while (look.isActive()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    if (!met) {
        Fail(name + u" did not open"_s);
    }
}

void Studio::DrawDialog(const QString &name,
                        const std::function<void()> &open,
                        const std::function<void(QDialog &)> &prepare)
{
    if (!Wants(name)) {
        return;
    }
    const auto act = [&](QWidget &window) {
        auto &dialog = static_cast<QDialog &>(window);
        if (prepare) {
            prepare(dialog);
        }
        Draw(name, dialog);
        dialog.reject();
    };
    WhenOpen(name, OpenDialog, act, open);
}

void Studio::DrawMenu(const QString &name, const std::function<void()> &open)
{
    if (!Wants(name)) {
        return;
    }
    const auto act = [&](QWidget &menu) {
        QPixmap picture = frame.grab();
        QPainter painter(&picture);
        painter.drawPixmap(frame.mapFromGlobal(menu.pos()), menu.grab());
        painter.end();
        Save(name, WithTitleBar(picture, frame.windowTitle(), frame.palette()));
        menu.close();
    };
    WhenOpen(name, OpenMenu, act, open);
}

void Press(const QWidget &window, const QString &button)
{
    window.findChild<QAbstractButton *>(button)->click();
}
