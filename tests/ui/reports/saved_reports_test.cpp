// Saved reports in their windows: saved, opened, scheduled, deleted, and what is told of their runs.
#include "reports/run_record.h"
#include "reports/saved_report.h"
#include "reports_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"
#include "ui/common/moment_field.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

using Every = ReportSchedule::Every;

class SavedWindows : public Reports
{
protected:
    void SetUp() override
    {
        Reports::SetUp();
        MakeProgram(u"pkexec"_s, "exec \"$@\"\n");
        SetTimerProgram("exit 0\n");
        const QByteArray places = QFile::encodeName(folder.filePath(u"bin"_s)) + ':' + path;
        qputenv("PATH", places);
    }

    void TearDown() override
    {
        qputenv("PATH", path);
        dialog.reset();
        Reports::TearDown();
    }

    // What the system's administrator would be asked for; each call leaves a line of its arguments.
    void SetTimerProgram(const QByteArray &script)
    {
        MakeProgram(u"tollbrook-report"_s,
                    "echo \"$@\" >>'" + QFile::encodeName(folder.filePath(u"calls"_s)) + "'\n"
                        + script);
    }

    void MakeProgram(const QString &name, const QByteArray &script)
    {
        QDir(folder.path()).mkpath(u"bin"_s);
        QFile file(folder.filePath(u"bin/"_s + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QStringList TakeCalls() const
    {
        QFile file(folder.filePath(u"calls"_s));
        const QString calls = file.open(QIODevice::ReadOnly)
            ? QString::fromUtf8(file.readAll()).trimmed()
            : QString();
        file.remove();
        return calls.split(u'\n', Qt::SkipEmptyParts);
    }

    // Opens "Saved reports" and does this in it; it is closed then unless it has gone.
    void InSaved(const std::function<void(QDialog &)> &act)
    {
        const WhileModal answer([&](QDialog &saved) {
            act(saved);
            if (saved.isVisible()) {
                Click(saved, "close");
            }
        });
        Click(*dialog, "savedReports");
    }

    static QStringList Rows(QDialog &saved) { return RowTexts(Find<QTreeWidget>(saved, "saved")); }

    [[nodiscard]] SavedReports Store() const { return SavedReports(Settings()); }

    void Put(const QString &name, const ReportSchedule &schedule = {}) const
    {
        ASSERT_TRUE(Store().Write(name,
                                  {.row = 2,
                                   .period = u"previous-month"_s,
                                   .users = {FilterEffect::Only, {UserId {1}}},
                                   .output = u"/srv/a.pdf"_s,
                                   .schedule = schedule}));
    }

    void Reopen()
    {
        dialog = std::make_unique<ReportsDialog>(Services());
        dialog->show();
    }

    const QByteArray path = qgetenv("PATH");
};

} // namespace

TEST_F(SavedWindows, ASelectionIsSavedAndOpenedAgain)
{
    InSaved([&](QDialog &saved) {
        EXPECT_EQ(Rows(saved), QStringList());
        EXPECT_FALSE(Find<QAbstractButton>(saved, "open").isEnabled());
        Click(saved, "saveSelection"); // no report is selected
        EXPECT_EQ(prompt.TakeSaid().size(), 1);
        Grab(saved, u"saved-none"_s);
    });
    Select(2);
    Click(*dialog, "custom");
    Type(Find(*dialog, "since"), u"2026-11-01"_s);
    Type(Find(*dialog, "until"), u"2026-11-20"_s);
    InSaved([&](QDialog &saved) {
        const WhileModal answer([&](QDialog &save) {
            EXPECT_EQ(Find<QLabel>(save, "report").text(), u"Traffic (Detailed)"_s);
            EXPECT_EQ(Find<QComboBox>(save, "period").currentText(), u"2026-11-01 to 2026-11-20"_s);
            EXPECT_FALSE(Find<QCheckBox>(save, "split").isEnabled());
            Type(Find(save, "name"), u"a/b"_s);
            Click(save, "ok");
            EXPECT_TRUE(prompt.TakeSaid().value(0).startsWith(u"A name has letters"_s));
            Type(Find(save, "name"), u"Monthly"_s);
            Type(Find(save, "output"), u"a.pdf"_s);
            Click(save, "ok");
            EXPECT_TRUE(prompt.TakeSaid().value(0).contains(u"full path"_s));
            Type(Find(save, "output"), u"/srv/a.pdf"_s);
            Type(Find(save, "mail"), u"office@example.org"_s);
            Choose(Find<QComboBox>(save, "period"), u"previous calendar month"_s);
            Grab(save, u"saved-save"_s);
            Click(save, "ok");
        });
        Click(saved, "saveSelection");
        EXPECT_EQ(
            Rows(saved),
            QStringList(u"Monthly|not scheduled|||Traffic (Detailed)|previous calendar month"_s));
        EXPECT_EQ(Find<QLabel>(saved, "details").text(),
                  u"File: /srv/a.pdf\nSent to: office@example.org"_s);
        Grab(saved, u"saved-one"_s);
    });
    const auto report = Store().Read(u"Monthly"_s);
    ASSERT_TRUE(report);
    EXPECT_EQ(*report,
              (SavedReport {.row = 2,
                            .period = u"previous-month"_s,
                            .output = u"/srv/a.pdf"_s,
                            .mail = u"office@example.org"_s}));
}

TEST_F(SavedWindows, AnOpenedReportIsTheOneThatWasSaved)
{
    Put(u"Monthly"_s);
    InSaved([](QDialog &saved) { Click(saved, "open"); });
    EXPECT_TRUE(Find<QAbstractButton>(*dialog, "custom").isChecked());
    EXPECT_EQ(Find<QLineEdit>(*dialog, "since").text(), u"2026-10-01"_s);
    EXPECT_EQ(Find<QLineEdit>(*dialog, "until").text(), u"2026-10-31"_s);
    EXPECT_EQ(Find<QLabel>(*dialog, "filterNote").text(), u"users anna"_s);
    QSignalSpy puts(&dialog->Viewer(), &ReportViewer::PropertyPut);
    ClickGenerate();
    const QString query = QueryText(
        2, PeriodUpTo(kToday, PeriodChoice::PreviousMonth), OnlyUsersClause({UserId {1}}), {});
    EXPECT_TRUE(std::any_of(puts.begin(), puts.end(), [&](const auto &put) {
        return put.at(1).template value<QVariant>().toString() == query;
    }));
    EXPECT_EQ(dialog->Viewer().Table()->filter, u"users anna"_s);
    // Who is not offered, for want of monitoring, is still whom the report is on.
    Execute("UPDATE users SET monitored = 0 WHERE user_id = 1");
    InSaved([](QDialog &saved) { Click(saved, "open"); });
    EXPECT_EQ(Find<QLabel>(*dialog, "filterNote").text(), u"users anna"_s);
    Execute("DELETE FROM users WHERE user_id = 1");
    InSaved([](QDialog &saved) { Click(saved, "open"); });
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"None of the users or groups that the report is on exists any more."_s));
}

TEST_F(SavedWindows, AScheduleIsWrittenAndItsTimerAskedFor)
{
    Put(u"Monthly"_s);
    const auto schedule = [&](const std::function<void(QDialog &)> &act) {
        InSaved([&](QDialog &saved) {
            const WhileModal answer([&](QDialog &times) {
                act(times);
                Click(times, "ok");
            });
            Click(saved, "schedule");
        });
    };
    schedule([&](QDialog &times) {
        EXPECT_FALSE(Find(times, "day").isEnabled());
        EXPECT_FALSE(Find(times, "at").isEnabled());
        Choose(Find<QComboBox>(times, "every"), u"Each week"_s);
        Choose(Find<QComboBox>(times, "day"), u"Wednesday"_s);
        Type(Find(times, "at"), u"6:30"_s);
        Grab(times, u"saved-schedule"_s);
    });
    EXPECT_EQ(Store().Read(u"Monthly"_s)->schedule, (ReportSchedule {Every::Week, 3, {6, 30}}));
    const QStringList call {u"--config %1 --schedule Monthly"_s.arg(Settings().Folder())};
    EXPECT_EQ(TakeCalls(), call);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    SetTimerProgram("echo 'not authorised'; exit 127\n");
    schedule([&](QDialog &times) {
        EXPECT_EQ(Find<QComboBox>(times, "day").currentText(), u"Wednesday"_s);
        Choose(Find<QComboBox>(times, "every"), u"Never"_s);
    });
    EXPECT_EQ(TakeCalls(), call);
    EXPECT_FALSE(Store().Read(u"Monthly"_s)->schedule.IsSet());
    const QString said = prompt.TakeSaid().value(0);
    EXPECT_TRUE(said.startsWith(u"The schedule is saved, but its timer is not set up."_s));
    EXPECT_TRUE(said.contains(u"not authorised"_s)) << said.toStdString();
    EXPECT_TRUE(said.contains(u"tollbrook-report --schedule \"Monthly\""_s));
}

TEST_F(SavedWindows, ADeletedReportTakesItsTimerAlong)
{
    Put(u"a"_s, {.every = Every::Day});
    Put(u"b"_s);
    const auto remove = [&] {
        InSaved([&](QDialog &saved) {
            prompt.AnswerWith({true});
            Click(saved, "delete");
        });
    };
    remove();
    EXPECT_EQ(Store().Names(), QStringList(u"b"_s));
    EXPECT_EQ(TakeCalls().size(), 1);
    remove();
    EXPECT_EQ(Store().Names(), QStringList());
    EXPECT_EQ(TakeCalls().size(), 0);
}

// Another console, or somebody with an editor, is at work while a window is open.
TEST_F(SavedWindows, WhatOthersChangedMeanwhileIsAskedAboutOrStays)
{
    Put(u"Monthly"_s);
    const auto change = [&](const std::function<void()> &meanwhile) {
        InSaved([&](QDialog &saved) {
            const WhileModal answer([&](QDialog &one) {
                meanwhile();
                Type(Find<QLineEdit>(one, "output"), u"/srv/mine.pdf"_s);
                Click(one, "ok");
                if (one.isVisible()) {
                    Click(one, "cancel");
                }
            });
            Click(saved, "change");
        });
    };
    const ReportSchedule daily {.every = Every::Day, .day = 1, .at = {4, 0}};
    change([&] { Put(u"Monthly"_s, daily); }); // the schedule is none of this window's
    EXPECT_EQ(Store().Read(u"Monthly"_s)->schedule, daily);
    EXPECT_EQ(Store().Read(u"Monthly"_s)->output, u"/srv/mine.pdf"_s);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    const auto byOthers = [&] {
        auto report = *Store().Read(u"Monthly"_s);
        report.output = u"/srv/theirs.pdf"_s;
        ASSERT_TRUE(Store().Write(u"Monthly"_s, report));
    };
    prompt.AnswerWith({false});
    change(byOthers);
    EXPECT_TRUE(prompt.TakeSaid().value(0).contains(u"was changed meanwhile"_s));
    EXPECT_EQ(Store().Read(u"Monthly"_s)->output, u"/srv/theirs.pdf"_s);
    prompt.AnswerWith({false});
    change([&] { ASSERT_TRUE(Store().Remove(u"Monthly"_s)); });
    EXPECT_TRUE(prompt.TakeSaid().value(0).contains(u"was deleted meanwhile"_s));
    EXPECT_FALSE(Store().Has(u"Monthly"_s));
}

TEST_F(SavedWindows, AScheduleChangesNothingElseThatOthersChangedMeanwhile)
{
    Put(u"Monthly"_s);
    const ReportSchedule daily {.every = Every::Day, .day = 1, .at = {4, 0}};
    const auto schedule = [&](const std::function<void()> &meanwhile) {
        InSaved([&](QDialog &saved) {
            const WhileModal answer([&](QDialog &times) {
                meanwhile();
                Choose(Find<QComboBox>(times, "every"), u"Each month"_s);
                Click(times, "ok");
                if (times.isVisible()) {
                    Click(times, "cancel");
                }
            });
            Click(saved, "schedule");
        });
    };
    schedule([&] {
        auto report = *Store().Read(u"Monthly"_s);
        report.output = u"/srv/theirs.pdf"_s;
        ASSERT_TRUE(Store().Write(u"Monthly"_s, report));
    });
    EXPECT_EQ(Store().Read(u"Monthly"_s)->output, u"/srv/theirs.pdf"_s);
    EXPECT_EQ(Store().Read(u"Monthly"_s)->schedule.every, Every::Month);
    EXPECT_EQ(TakeCalls().size(), 1);
    prompt.AnswerWith({false});
    schedule([&] { Put(u"Monthly"_s, daily); });
    EXPECT_TRUE(prompt.TakeSaid().value(0).startsWith(
        u"The schedule was changed meanwhile: each day at 04:00."_s));
    EXPECT_EQ(Store().Read(u"Monthly"_s)->schedule, daily);
    schedule([&] { ASSERT_TRUE(Store().Remove(u"Monthly"_s)); });
    EXPECT_TRUE(prompt.TakeSaid().value(0).contains(u"does not exist"_s));
    EXPECT_FALSE(Store().Has(u"Monthly"_s)) << "a deleted report does not come back";
    EXPECT_EQ(TakeCalls().size(), 0);
}

TEST_F(SavedWindows, AReportUnderAnotherNameHasNoScheduleAndADeletedOneTakesALateTimerAlong)
{
    Put(u"Monthly"_s, {.every = Every::Day});
    InSaved([&](QDialog &saved) {
        const WhileModal answer([&](QDialog &one) {
            Type(Find<QLineEdit>(one, "name"), u"Other"_s);
            Click(one, "ok");
        });
        Click(saved, "change");
    });
    EXPECT_FALSE(Store().Read(u"Other"_s)->schedule.IsSet()) << "nobody has set its timer up";
    EXPECT_TRUE(Store().Read(u"Monthly"_s)->schedule.IsSet());
    ASSERT_TRUE(Store().Remove(u"Monthly"_s));
    InSaved([&](QDialog &saved) {
        Put(u"Other"_s, {.every = Every::Day}); // by another console
        prompt.AnswerWith({true});
        Click(saved, "delete");
    });
    EXPECT_EQ(Store().Names(), QStringList());
    EXPECT_EQ(TakeCalls().size(), 1);
}

TEST_F(SavedWindows, ARunThatFailedIsTold)
{
    PrivateBus bus;
    FakeService service(bus);
    UseBus(bus.Connection());
    Settings().WriteText(values::kPath, folder.path() + u'/');
    const quint64 then = QDateTime(kToday, {2, 15}).toMSecsSinceEpoch() * 1000;
    const auto setRun = [&](const QString &name, const QString &result, int status) {
        service.SetUnit(TimerUnit(name),
                        {{u"ActiveState"_s, u"active"_s},
                         {u"NextElapseUSecRealtime"_s, QVariant(then + 86'400'000'000)}});
        service.SetUnit(ServiceUnit(name),
                        {{u"ActiveState"_s, u"inactive"_s},
                         {u"Result"_s, result},
                         {u"ExecMainExitTimestamp"_s, QVariant(then)},
                         {u"ExecMainStatus"_s, status}});
    };
    Put(u"Good"_s, {.every = Every::Day});
    Put(u"Month end"_s, {.every = Every::Day});
    Put(u"Unset"_s, {.every = Every::Week, .day = 1, .at = {6, 0}});
    setRun(u"Good"_s, u"success"_s, 0);
    setRun(u"Month end"_s, u"success"_s, 1);
    QFile damaged(Store().FileOf(u"Xdamaged"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("report =") > 0);
    damaged.close();
    Reopen();
    EXPECT_EQ(Find<QLabel>(*dialog, "savedNote").text(),
              u"Not made as planned: Unset. See \"Saved reports...\".\n"
              "Cannot be read: Xdamaged. See \"Saved reports...\"."_s);
    setRun(u"Month end"_s, u"exit-code"_s, 3);
    Reopen();
    EXPECT_EQ(Find<QLabel>(*dialog, "savedNote").text(),
              u"Not made as planned: Month end, Unset. See \"Saved reports...\".\n"
              "Cannot be read: Xdamaged. See \"Saved reports...\"."_s);
    dialog->resize(1024, 600);
    EXPECT_LE(dialog->height(), 600);
    Grab(*dialog, u"saved-trouble"_s);
    InSaved([&](QDialog &saved) {
        const QString end = u"|Traffic (Detailed)|previous calendar month"_s;
        const QString next = u"|each day at 02:15|2026-11-22 02:15|2026-11-21 02:15, "_s;
        EXPECT_EQ(
            Rows(saved),
            QStringList({u"Good"_s + next + u"done" + end,
                         u"Month end"_s + next + u"failed: the database could not be read" + end,
                         u"Unset|each Monday at 06:00|never: the timer is not set up|"
                         "none since the machine was started"_s
                             + end,
                         u"Xdamaged|||cannot be made: its file is damaged||"_s}));
        ClickCell(Find<QTreeWidget>(saved, "saved"), 1, 0);
        EXPECT_TRUE(Find<QLabel>(saved, "details")
                        .text()
                        .contains(u"journalctl -u 'tollbrook-report@Month\\x20end.service'"_s));
        Grab(saved, u"saved-list"_s);
        const WhileModal answer([](QDialog &times) {
            EXPECT_EQ(Find<QLabel>(times, "nextRun").text(), u"2026-11-22 02:15"_s);
            EXPECT_EQ(Find<QLabel>(times, "lastRun").text(),
                      u"2026-11-21 02:15, failed: the database could not be read"_s);
            Grab(times, u"saved-schedule-failed"_s);
            Click(times, "cancel");
        });
        Click(saved, "schedule");
        ClickCell(Find<QTreeWidget>(saved, "saved"), 3, 0);
        EXPECT_TRUE(Find<QLabel>(saved, "details").text().contains(u"must be mended"_s));
        EXPECT_FALSE(Find<QAbstractButton>(saved, "schedule").isEnabled());
    });
    dialog.reset();
    UseBus(QDBusConnection(QString()));
}

TEST_F(SavedWindows, TheLastRunIsKnownAfterTheMachineWasStartedAnew)
{
    PrivateBus bus;
    FakeService service(bus);
    UseBus(bus.Connection());
    Settings().WriteText(values::kPath, folder.path() + u'/');
    for (const auto *name : {u"Bad", u"Good", u"Unread"}) {
        const QString report = QString::fromUtf16(name);
        Put(report, {.every = Every::Day});
        service.SetUnit(TimerUnit(report), {{u"ActiveState"_s, u"active"_s}});
        service.SetUnit(ServiceUnit(report), {{u"ActiveState"_s, u"inactive"_s}});
    }
    const RunRecords records(Settings());
    const QDateTime then(kToday, {2, 15});
    ASSERT_TRUE(records.Write(u"Bad"_s, {then, TimerState::Result::Failed, 5}));
    ASSERT_TRUE(records.Write(u"Good"_s, {then, TimerState::Result::Done, 0}));
    QFile damaged(records.FileOf(u"Unread"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("ended =") > 0);
    damaged.close();
    const auto lastRuns = [this] {
        QStringList texts;
        InSaved([&](QDialog &saved) {
            for (const QString &row : Rows(saved)) {
                texts += row.section(u'|', 3, 3);
            }
        });
        return texts;
    };
    Reopen();
    EXPECT_EQ(Find<QLabel>(*dialog, "savedNote").text(),
              u"Not made as planned: Bad, Unread. See \"Saved reports...\"."_s);
    QStringList known = lastRuns();
    EXPECT_EQ(known.mid(0, 2),
              QStringList({u"2026-11-21 02:15, failed: the file could not be written"_s,
                           u"2026-11-21 02:15, done"_s}));
    EXPECT_TRUE(known.value(2).startsWith(u"not known: "_s)) << qPrintable(known.value(2));
    service.LeaveManager(); // nobody answers, and what is kept is known all the same
    EXPECT_EQ(lastRuns(), known);
    dialog.reset();
    UseBus(QDBusConnection(QString()));
}
