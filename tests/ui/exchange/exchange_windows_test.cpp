// "Import...", "Export users..." and "New user..." as a person uses them.
#include "base/day.h"
#include "support/windows/dark_palette.h"
#include "support/windows/keyboard.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/common/ip_address_field.h"
#include "ui/exchange/import_dialog.h"
#include "ui/exchange/new_user_dialog.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ExchangeWindows : public WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        Execute("INSERT INTO groups (name) VALUES ('Office')");
        Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ('anna', '10.0.0.1', 81)");
        Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ('bert', '10.0.0.2', 80)");
    }

    [[nodiscard]] QString FileOf(const QByteArray &text) const
    {
        QFile file(folder.filePath(u"people.csv"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    // Has the command choose the file, and `use` the window that opens.
    void Import(const QString &fileName, const std::function<void(QDialog &)> &use) const
    {
        std::optional<WhileModal> preview;
        const WhileModal chooser([&](QDialog &dialog) {
            if (use) {
                preview.emplace(use);
            }
            Type(Find<QLineEdit>(dialog, "fileNameEdit"), fileName);
            dialog.accept();
        });
        OpenImport(Services(), nullptr);
    }

    static QStringList Rows(const QDialog &dialog)
    {
        return RowTexts(Find<QTreeView>(dialog, "rows"));
    }

    static QString Text(const QDialog &dialog, const char *name)
    {
        return Find<QLabel>(dialog, name).text();
    }

    static QStringList Users()
    {
        return RowsOf("SELECT username, fullname, ip_addr, mac_addr, group_id FROM users ORDER BY "
                      "user_id");
    }
};

const QByteArray kPeople = "Name,Full name,IP,Group,Shoe size\n"
                           "anna,Anna Berg,10.0.0.1,Office,39\n"
                           "bert,,10.0.0.2,Everybody,45\n"
                           "dora,Dora Dahl,10.0.0.3,Office,38\n"
                           "emil,Emil Ek,10.0.0.1,Office,44\n";

} // namespace

TEST_F(ExchangeWindows, APreviewShowsEveryRowAndWritesNothing)
{
    const QStringList before = EveryRow();
    Import(FileOf(kPeople), [](QDialog &dialog) {
        EXPECT_THAT(Rows(dialog),
                    ElementsAre(u"2|anna|changed|Full name: none \u2192 Anna Berg"_s,
                                u"3|bert|unchanged|"_s,
                                u"4|dora|new|Full name: Dora Dahl; IP address: 10.0.0.3; Group: "
                                "Office; Access: No control; Blocked: no; Login required: no"_s,
                                u"5|emil|refused|The IP address 10.0.0.1 is the one of the user "
                                "\"anna\""_s));
        EXPECT_EQ(Text(dialog, "about"),
                  u"people.csv, read as UTF-8. Columns that are not known and left out: Shoe "
                  "size."_s);
        EXPECT_EQ(Text(dialog, "summary"), u"Refused rows are left out: 1."_s);
        Grab(dialog, u"import"_s);
        ClickCell(Find<QTreeView>(dialog, "rows"), 2, ImportModel::State);
        EXPECT_TRUE(Text(dialog, "whole").endsWith(u"Login required: no"_s));
        auto &filter = Find<QComboBox>(dialog, "filter");
        Choose(filter, u"Only refused ones (1)"_s);
        EXPECT_EQ(Rows(dialog).size(), 1);
        Choose(filter, u"Only changed ones (1)"_s);
        EXPECT_TRUE(Rows(dialog).constFirst().startsWith(u"2|anna|changed"_s));
        Choose(filter, u"All rows (4)"_s);
        EXPECT_EQ(Rows(dialog).size(), 4);
        Click(dialog, "cancel");
    });
    EXPECT_EQ(EveryRow(), before);
    EXPECT_THAT(prompt.TakeSaid(), IsEmpty());
}

TEST_F(ExchangeWindows, ImportWritesWhatIsShown)
{
    Import(FileOf(kPeople), [](QDialog &dialog) { Click(dialog, "ok"); });
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"Users added: 1. Users changed: 1."_s));
    EXPECT_THAT(Users(),
                ElementsAre(u"anna|Anna Berg|10.0.0.1||81"_s,
                            u"bert||10.0.0.2||80"_s,
                            u"dora|Dora Dahl|10.0.0.3||81"_s));
    Import(FileOf(kPeople), [](QDialog &dialog) {
        EXPECT_FALSE(Find<QPushButton>(dialog, "ok").isEnabled());
        EXPECT_EQ(Text(dialog, "summary"),
                  u"Refused rows are left out: 1. There is nothing to import."_s);
        Click(dialog, "cancel");
    });
}

TEST_F(ExchangeWindows, WhatWasChangedMeanwhileIsShownAnew)
{
    Import(FileOf(kPeople), [this](QDialog &dialog) {
        Execute("UPDATE users SET fullname = 'A.' WHERE username = 'anna'");
        Click(dialog, "ok");
        EXPECT_THAT(prompt.TakeSaid(),
                    ElementsAre(u"The user \"anna\", or what it is to get, was changed meanwhile. "
                                "Nothing was written. Please look again."_s));
        EXPECT_EQ(Rows(dialog).constFirst(), u"2|anna|changed|Full name: A. \u2192 Anna Berg"_s);
        Click(dialog, "ok");
    });
    EXPECT_EQ(prompt.TakeSaid().size(), 1);
    EXPECT_EQ(Users().constFirst(), u"anna|Anna Berg|10.0.0.1||81"_s);
}

TEST_F(ExchangeWindows, AFileThatIsNoneIsTold)
{
    Import(FileOf("Shoe size\n39\n"), {});
    EXPECT_THAT(prompt.TakeSaid(),
                ElementsAre(u"The file was not imported.\n\nThe first line has no column called "
                            "\"User name\": it must name the columns"_s));
    Import(FileOf("Name,Full name\nanna,M\xFCller\n"), [](QDialog &dialog) {
        EXPECT_EQ(Text(dialog, "about"),
                  u"people.csv, read as Windows-1252. Please see whether letters with accents are "
                  "right."_s);
        Click(dialog, "cancel");
    });
}

TEST_F(ExchangeWindows, TheKeyboardIsEnough)
{
    const DarkPalette dark;
    Import(FileOf(kPeople), [](QDialog &dialog) {
        Grab(dialog, u"import_dark"_s);
        ExpectWorksByKeyboard(dialog);
        ExpectKeyboardReachesAll(dialog);
        Press(Qt::Key_Escape);
    });
}

TEST_F(ExchangeWindows, AnExportIsImportedWithoutAChange)
{
    const QString fileName = folder.filePath(u"out.csv"_s);
    {
        const WhileModal chooser([&](QDialog &dialog) {
            Type(Find<QLineEdit>(dialog, "fileNameEdit"), fileName);
            dialog.accept();
        });
        OpenUserExport(Services(), nullptr);
    }
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"2 users were saved as %1."_s.arg(fileName)));
    Import(fileName, [](QDialog &dialog) {
        EXPECT_THAT(Rows(dialog), ElementsAre(u"2|anna|unchanged|"_s, u"3|bert|unchanged|"_s));
        Click(dialog, "cancel");
    });
}

class NewUserWindow : public ExchangeWindows
{
protected:
    void Open(const std::function<void(QDialog &)> &use) const
    {
        const WhileModal watch(use);
        OpenNewUser(Services(), nullptr);
    }
};

TEST_F(NewUserWindow, AddsTheUserWithWhatTheOptionsSay)
{
    Settings().WriteInteger(values::kDefMode, 1);
    Settings().WriteInteger(values::kDefTrafficLimit, 500);
    Open([](QDialog &dialog) {
        EXPECT_EQ(Find<QComboBox>(dialog, "group").currentText(), u"Everybody"_s);
        Type(Find<QLineEdit>(dialog, "name"), u"dora"_s);
        Choose(Find<QComboBox>(dialog, "group"), u"Office"_s);
        Find<IpAddressField>(dialog, "ip").SetAddress(0x0A000003U);
        Type(Find<QLineEdit>(dialog, "mac"), u"00:11:22:aa:bb:cc"_s);
        Grab(dialog, u"newUser"_s);
        Click(dialog, "ok");
    });
    EXPECT_THAT(prompt.TakeSaid(), IsEmpty());
    EXPECT_EQ(Users().constLast(), u"dora||10.0.0.3|001122AABBCC|81"_s);
    EXPECT_THAT(RowsOf("SELECT mode, traflim, trafperiod FROM users WHERE username = 'dora'"),
                ElementsAre(u"1|500|2"_s));
}

TEST_F(NewUserWindow, SaysWhatIsWrongAndStays)
{
    const QStringList before = EveryRow();
    const struct
    {
        const char *name;
        std::optional<Ipv4> ip;
        const char *mac;
        QString said;
    } cases[] {
        {"", {}, "", u"Please enter a user name"_s},
        {"dora", {}, "", u"Please enter an IP address or a MAC address: the user is known by it"_s},
        {"ANNA", 0x0A000009U, "", u"There is a user of this name. Please enter another one"_s},
        {"dora", 0x0A000001U, "", u"The IP address 10.0.0.1 is the one of the user \"anna\""_s},
        {"dora",
         {},
         "12345",
         u"MAC address \"12345\": a MAC address has twelve digits 0 to 9 and A to F"_s},
    };
    Open([&](QDialog &dialog) {
        for (const auto &[name, ip, mac, said] : cases) {
            Type(Find<QLineEdit>(dialog, "name"), QString::fromLatin1(name));
            Type(Find<QLineEdit>(dialog, "mac"), QString::fromLatin1(mac));
            auto &field = Find<IpAddressField>(dialog, "ip");
            field.Clear();
            if (ip) {
                field.SetAddress(*ip);
            }
            Click(dialog, "ok");
            EXPECT_THAT(prompt.TakeSaid(), ElementsAre(said));
            EXPECT_TRUE(dialog.isVisible());
        }
        ExpectWorksByKeyboard(dialog);
        ExpectKeyboardReachesAll(dialog);
        Click(dialog, "cancel");
    });
    EXPECT_EQ(EveryRow(), before);
}
