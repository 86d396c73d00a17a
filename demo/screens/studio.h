// Draws the console's windows into PNG files as they stand on the demonstration network.
#pragma once

#include <QDir>
#include <QStringList>

#include <functional>

class QDialog;
class QPixmap;
class QWidget;

// A window is opened by what a person does, drawn with a title bar, and closed again.
class Studio
{
public:
    // Draws into `folder`; only the windows of these names, unless there are none.
    Studio(QWidget &frame, const QDir &folder, QStringList names);

    [[nodiscard]] QWidget &Frame() const { return frame; }

    // The window as it stands.
    void Draw(const QString &name, QWidget &window);

    // The modal dialog that `open` brings up, after `prepare` has worked on it. It is then rejected.
    void DrawDialog(const QString &name,
                    const std::function<void()> &open,
                    const std::function<void(QDialog &)> &prepare = {});

    // The frame with the pop-up menu that `open` brings up; the menu is then closed.
    void DrawMenu(const QString &name, const std::function<void()> &open);

    // How many windows did not open in time or could not be saved.
    [[nodiscard]] int Failures() const { return failures; }

private:
    [[nodiscard]] bool Wants(const QString &name) const;
    void Save(const QString &name, const QPixmap &picture);
    void Fail(const QString &what);
    void WhenOpen(const QString &name,
                  QWidget *(*find)(),
                  const std::function<void(QWidget &)> &act,
                  const std::function<void()> &open);

    QWidget &frame;
    QDir folder;
    QStringList names;
    int failures = 0;
};
