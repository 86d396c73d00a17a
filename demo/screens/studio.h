// Draws the console's windows into PNG files as they stand on the demonstration network.
#pragma once

#include "app/waiting.h"
#include "db/query.h"
#include "startup/app_services.h"

#include <QDir>
#include <QSet>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

class CSplitterFrame;
class QDialog;
class QPixmap;
class QWidget;

// A window is opened by what a person does, drawn with a title bar, and closed again.
class Studio
{
public:
    // Draws into `folder`; only the windows of these names, unless there are none.
    Studio(CSplitterFrame &frame,
           const AppServices &services,
           const QDir &folder,
           QStringList names);

    [[nodiscard]] CSplitterFrame &Frame() const { return frame; }
    [[nodiscard]] const AppServices &Services() const { return services; }

    // The window as it stands.
    void Draw(const QString &name, QWidget &window);

    // The window once for each page of its tabs, as `name`-page.
    void DrawPages(const QString &name, QWidget &window);

    // The modal dialog that `open` brings up, after `prepare` has worked on it. It is then rejected.
    void DrawDialog(const QString &name,
                    const std::function<void()> &open,
                    const std::function<void(QDialog &)> &prepare = {});

    // The frame with the pop-up menu that `open` brings up; the menu is then closed.
    void DrawMenu(const QString &name, const std::function<void()> &open);

    // Whether a window of this name, or one that begins with it and a dash, is asked for.
    [[nodiscard]] bool Wants(const QString &name) const;

    // From now on the texts of what is drawn are looked at; those in `data` come from the database.
    void CheckTexts(const QSet<QString> &data) { knownTexts = data; }

    // Tells of it and counts it.
    void Fail(const QString &what);

    // How many windows did not open in time or could not be saved, and
    // how many of their texts are not translated or cut.
    [[nodiscard]] int Failures() const { return failures; }

private:
    void Save(const QString &name, const QPixmap &picture);
    void Check(const QString &name, QWidget &window);
    void WhenOpen(const QString &name,
                  QWidget *(*find)(),
                  const std::function<void(QWidget &)> &act,
                  const std::function<void()> &open);

    CSplitterFrame &frame;
    const AppServices &services;
    QDir folder;
    QStringList names;
    std::optional<QSet<QString>> knownTexts;
    int failures = 0;
};

// The id in the first row of a query, read on the console's session; 0 when there is none.
template <typename IdType, typename... Values>
[[nodiscard]] IdType FirstId(const Studio &studio, const char *sqlText, Values... values)
{
    const auto read = [=] {
        return ReadOne(
            sqlText, [](const Row &row) { return row.Id<IdType>(1); }, values...);
    };
    const auto found =
        Await(studio.Services(), nullptr, QStringLiteral("Looking for an example..."), read);
    return found.value_or(IdType()).value_or(IdType());
}

// Presses the button of that object name.
void Press(const QWidget &window, const QString &button);

// The areas of the console, each in a file of its own.
void DrawMainWindow(Studio &studio);
void DrawProperties(Studio &studio);
void DrawAccounts(Studio &studio);
void DrawAdministration(Studio &studio);
void DrawExchange(Studio &studio);
void DrawOptions(Studio &studio);
void DrawReports(Studio &studio);
void DrawService(Studio &studio); // last: it stops the service and starts it again
