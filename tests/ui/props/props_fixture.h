// Two groups and some users for the property sheets, and a sheet opened by its command.
#pragma once

#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/accounts/account_page.h"
#include "ui/props/properties.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>

#include <algorithm>
#include <gmock/gmock.h>

class PropsFixture : public WindowFixture
{
protected:
    using Act = std::function<void(QDialog &)>;

    void SetUp() override
    {
        WindowFixture::SetUp();
        Execute("DELETE FROM ports");
        Execute("DELETE FROM protocols");
        Execute(
            "INSERT INTO protocols (id, proto_name) VALUES (1, 'FTP'), (2, 'HTTP'), (3, 'SSH')");
        Execute(
            "INSERT INTO ports (port_id, proto_id, port_number) VALUES (20, 1, 20), (21, 1, 21), "
            "(80, 2, 80), (22, 3, 22)");
        Execute(
            "INSERT INTO groups (group_id, name, descrip) VALUES (81, 'Office', 'first floor')");
        Execute("INSERT INTO users (user_id, username, fullname, descrip, stationname, group_id, "
                "ip_addr, mac_addr) VALUES "
                "(1, 'anna', 'Anna Berg', 'reception', 'PC-ANNA', 81, '10.0.0.1', '0011AABBCCDD'), "
                "(2, 'bert', 'Bert Falk', '', 'PC-BERT', 81, '10.0.0.2', '000000000002'), "
                "(9, 'zoe', 'Zoe Lind', '', 'PC-ZOE', 80, '10.0.0.9', '000000000009')");
        Execute("INSERT INTO logins (login, userid) VALUES ('anna.berg', 1)");
    }

    // Whether the sheet stored something.
    [[nodiscard]] bool UserSheet(int page, const Act &act) const
    {
        const WhileModal sheet(act);
        return OpenUserSheet(Services(), UserId {1}, page, nullptr);
    }

    [[nodiscard]] bool GroupSheet(int page, const Act &act) const
    {
        const WhileModal sheet(act);
        return OpenGroupSheet(Services(), GroupId {81}, page, nullptr);
    }

    // Has the account page, which a sheet makes and does not show, stage a credit of 5 megabytes.
    template <typename PageType>
    static void StageOnHiddenAccount()
    {
        const QWidgetList all = QApplication::allWidgets();
        const auto made = std::ranges::find_if(
            all, [](QWidget *widget) { return qobject_cast<PageType *>(widget) != nullptr; });
        ASSERT_NE(made, all.end());
        EXPECT_FALSE((*made)->isVisible());
        auto *page = qobject_cast<PageType *>(*made);
        page->Load();
        page->Activate();
        const WhileModal dialog([](QDialog &credit) {
            Type(Find<QLineEdit>(credit, "amount"), QStringLiteral("5"));
            Click(credit, "ok");
        });
        Find<QPushButton>(*page, "add").click();
    }

    static void ShowActive(QWidget &window)
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    [[nodiscard]] static QString TextOf(const QDialog &sheet, const char *name)
    {
        return Find<QLineEdit>(sheet, name).text();
    }

    static void TurnTo(const QDialog &sheet, const char *tab)
    {
        ::TurnTo(Find<QTabWidget>(sheet, "pages"), QString::fromLatin1(tab));
    }
};
