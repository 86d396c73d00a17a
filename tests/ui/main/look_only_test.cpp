// The console of somebody who may look at everything and change nothing.
#include "list_fixture.h"
#include "support/windows/modal.h"
#include "ui/common/look_lock.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

class LookOnly : public ListFixture
{
protected:
    void SetUp() override
    {
        ListFixture::SetUp();
        userId = AddUser({.name = "anna", .ip = "10.0.0.1", .mode = AccountingMode::Provider});
        AddUser({.name = "berta", .ip = "10.0.0.2"});
        groupId = AddGroupNamed(u"Sales"_s);
        Execute("INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, (?), 100, 1)",
                userId);
        looking.emplace(Services());
        looking->onlyLooks = true;
        before = EveryRow();
        frame = std::make_unique<CSplitterFrame>(*looking, StandardDialogs(*looking));
        frame->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
        frame->FirstStart({.running = true, .connected = true});
        Settle();
    }

    void TearDown() override
    {
        frame.reset();
        EXPECT_EQ(EveryRow(), before);
        ListFixture::TearDown();
    }

    std::optional<AppServices> looking;
    UserId userId {};
    GroupId groupId {};
    QStringList before;
};

bool IsForLooking(const QWidget &control)
{
    return QStringList({u"period"_s, u"openOnly"_s}).contains(control.objectName());
}

bool HasCancel(const QDialog &window)
{
    return window.findChild<QWidget *>(u"cancel"_s) != nullptr;
}

// What a person could enter or press on the page that shows, but the window's way out.
QStringList OpenControls(const QDialog &window)
{
    QStringList open;
    const auto add = [&open](const QWidget &control) {
        if (control.isVisible() && control.isEnabled() && !IsForLooking(control)) {
            open << control.objectName();
        }
    };
    for (const auto *field : window.findChildren<QLineEdit *>()) {
        if (!field->isReadOnly() && qobject_cast<QComboBox *>(field->parentWidget()) == nullptr) {
            add(*field);
        }
    }
    for (const auto *field : window.findChildren<QAbstractSpinBox *>()) {
        if (!field->isReadOnly()) {
            add(*field);
        }
    }
    for (const auto *box : window.findChildren<QComboBox *>()) {
        add(*box);
    }
    for (const auto *button : window.findChildren<QCheckBox *>()) {
        add(*button);
    }
    for (const auto *button : window.findChildren<QRadioButton *>()) {
        add(*button);
    }
    for (const auto *button : window.findChildren<QPushButton *>()) {
        const bool closes = button->objectName() == u"ok"_s && !HasCancel(window);
        if (!closes
            && !QStringList({u"cancel"_s, u"close"_s, u"help"_s, u"refresh"_s})
                    .contains(button->objectName().toLower())) {
            add(*button);
        }
    }
    return open;
}

void LookThrough(QDialog &window, const QString &picture)
{
    EXPECT_EQ(Find<QLabel>(window, "onlyLooks").text(),
              u"You may look at everything here and change nothing."_s);
    EXPECT_TRUE(IsShown(window, "onlyLooks")) << qPrintable(picture);
    const auto *tabs = window.findChild<QTabWidget *>();
    const int pages = tabs == nullptr ? 1 : tabs->count();
    for (int page = 0; page < pages; ++page) {
        EXPECT_EQ(OpenControls(window), QStringList()) << qPrintable(picture) << " page " << page;
        Grab(window, u"look-%1-%2"_s.arg(picture).arg(page));
        QTest::keyClick(&window, Qt::Key_Tab, Qt::ControlModifier);
    }
    window.reject();
}

} // namespace

TEST_F(LookOnly, TheMainWindowSaysSoAndOffersNoChange)
{
    EXPECT_TRUE(IsShown(*frame, "onlyLooks"));
    for (const char *name :
         {"purge", "changeGroup", "doNotMonitor", "delete", "wizard", "importUsers", "newUser"}) {
        EXPECT_FALSE(Command(name).isVisible()) << name;
    }
    for (const char *name : {"properties", "account", "options", "logins", "exportList"}) {
        EXPECT_TRUE(Command(name).isVisible()) << name;
    }
    EXPECT_FALSE(IsShown(*frame, "blockUsers"));
    Grab(*frame, u"look-main"_s);
    ClickCell(Users(), 0, 0);
    OpenPopUp(Users(), 0, [](QMenu &menu) {
        const QStringList texts = MenuTexts(menu);
        EXPECT_TRUE(texts.contains(u"Properties..."_s)) << qPrintable(texts.join(u'|'));
        for (const auto &text : {u"Change group..."_s, u"Do not monitor"_s, u"Remove"_s}) {
            EXPECT_FALSE(texts.contains(text)) << qPrintable(text);
        }
    });
    ClickCell(Groups(), 1, 0);
    OpenPopUp(Groups(), 1, [](QMenu &menu) {
        const QStringList texts = MenuTexts(menu);
        EXPECT_FALSE(texts.contains(u"Rename..."_s));
        EXPECT_FALSE(texts.contains(u"Delete"_s));
    });
}

TEST_F(LookOnly, KeysThatWouldChangeSomethingAreRefused)
{
    const QString refusal = u"You may look at everything and change nothing: for this one must be "
                            "in the group tollbrook."_s;
    ClickCell(Users(), 0, 0);
    QTest::keyClick(&Users(), Qt::Key_Delete);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(refusal));
    Settle();
    ClickCell(Users(), 0, 0);
    QTest::keyClick(&Users(), Qt::Key_B, Qt::ControlModifier);
    const QStringList said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said.first().contains(refusal)) << qPrintable(said.first());
    Settle();
    ClickCell(Groups(), 1, 0);
    QTest::keyClick(&Groups(), Qt::Key_Delete);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(refusal));
    emit Groups().UsersDropped({userId}, groupId, u"Sales"_s);
    QApplication::processEvents();
    EXPECT_EQ(prompt.TakeSaid(), QStringList(refusal));
}

TEST_F(LookOnly, EveryWindowIsLockedAndSaysSo)
{
    const auto look = [this](const QString &picture, const std::function<void()> &open) {
        bool met = false;
        {
            const WhileModal seen([&](QDialog &window) {
                met = true;
                LetSessionFinish();
                LookThrough(window, picture);
            });
            open();
        }
        EXPECT_TRUE(met) << qPrintable(picture);
        EXPECT_EQ(prompt.TakeSaid(), QStringList()) << qPrintable(picture);
    };
    const FrameDialogs windows = StandardDialogs(*looking);
    look(u"user"_s, [&] { windows.userProperties(userId, frame.get()); });
    look(u"group"_s, [&] { windows.groupProperties(groupId, frame.get()); });
    look(u"account"_s, [&] { windows.userAccount(userId, frame.get()); });
    look(u"options"_s, [&] { windows.options(frame.get()); });
    look(u"global"_s, [&] { windows.globalOptions(frame.get()); });
    look(u"unmonitored"_s, [&] { windows.unmonitored(frame.get()); });
    look(u"logins"_s, [&] { windows.logins(frame.get()); });
    look(u"service"_s, [&] { windows.serviceControl(frame.get()); });
}

TEST_F(LookOnly, NothingIsStoredOfTheWindowItself)
{
    const auto fileOf = [this] {
        QFile file(Settings().FileOf(ConfigKeyId::Base));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray stored = fileOf();
    frame->SortBy(user_order::kFullName);
    frame.reset();
    EXPECT_EQ(fileOf(), stored);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
}
