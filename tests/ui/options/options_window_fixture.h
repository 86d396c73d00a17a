// The Options dialog and the global options sheet, opened on a fresh database and store.
#pragma once

#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/common/ip_address_field.h"
#include "ui/options/global_options_sheet.h"
#include "ui/options/options_dialog.h"

#include <QDialog>
#include <QDirIterator>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>

#include <functional>

inline QString TextIn(const QObject &root, const char *name)
{
    return Find<QLineEdit>(root, name).text();
}

inline void TypeAddress(const QObject &root, const char *name, const QString &dotted)
{
    auto &field = Find<IpAddressField>(root, name);
    Paste(*field.findChild<QLineEdit *>(), dotted);
}

// Turns to a page of the Options dialog by the mouse.
inline void TurnToPage(const QDialog &sheet, const QString &title)
{
    auto &list = Find<QListWidget>(sheet, "pageList");
    const auto found = list.findItems(title, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << title.toStdString();
    QTest::mouseClick(
        list.viewport(), Qt::LeftButton, {}, list.visualItemRect(found.first()).center());
}

inline QString ActivePage(const QDialog &sheet)
{
    auto &pages = Find<QTabWidget>(sheet, "pages");
    return pages.tabText(pages.currentIndex());
}

// Every file of the store with its bytes.
inline QMap<QString, QByteArray> BytesOf(const ConfigStore &store)
{
    QMap<QString, QByteArray> files;
    QDirIterator each(store.Folder(), QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        QFile file(each.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        files.insert(file.fileName(), file.readAll());
    }
    return files;
}

// Puts `text` in the place of the key's file.
inline void WriteFile(const ConfigStore &store, ConfigKeyId key, const QByteArray &text)
{
    QFile file(store.FileOf(key));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

class OptionsWindow : public WindowFixture
{
protected:
    using Answer = std::function<void(QDialog &)>;

    [[nodiscard]] ConfigStore &Store() const { return Settings(); }
    [[nodiscard]] auto StoreBytes() const { return BytesOf(Settings()); }

    bool Run(const Answer &answer)
    {
        const WhileModal watch(answer);
        return OpenOptions(Services(), nullptr, [this] { ++refreshes; });
    }

    bool RunGlobal(const Answer &answer)
    {
        const WhileModal watch(answer);
        return OpenGlobalOptions(Services(), nullptr, [this] { ++refreshes; });
    }

    // Presses a button of the window and works on the dialog that it opens.
    static void ClickAnd(const QDialog &window, const char *button, const Answer &answer)
    {
        const WhileModal watch(answer);
        Click(window, button);
    }

    int refreshes = 0;
};
