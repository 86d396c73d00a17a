#include "ui/accounts/statistics_dialog.h"

#include "support/windows/dark_palette.h"
#include "ui/accounts/account_window_fixture.h"
#include "ui/accounts/chart_scale.h"
#include "ui/accounts/traffic_chart.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

class StatisticsWindow : public AccountWindowFixture
{
protected:
    static void AddUsage()
    {
        for (int ago = 0; ago < 30; ++ago) {
            Execute("INSERT INTO traffic_use (user_id, period, current_time, data, senddata) "
                    "VALUES (1, 0, (?), (?), (?))",
                    DayOf(Today().addDays(-ago)),
                    double(ago * 37 % 23) * 20.0,
                    double(ago * 11 % 13) * 8.0);
        }
        Execute("INSERT INTO traffic_use (traf_id, user_id, period, data, senddata) "
                "VALUES (500, 1, 2, 150.5, 20.25)");
        Execute("INSERT INTO time_use (time_id, user_id, period, data) VALUES (500, 1, 2, 4.75)");
        Execute("INSERT INTO billing (mode, object_id, trafid, usage) VALUES (1, 1, 500, 12.5)");
    }

    static QString Shown(const QDialog &dialog, const char *field)
    {
        return Find<QLineEdit>(dialog, field).text();
    }
};

TEST_F(StatisticsWindow, OfAUserShowsPeriodOverallAndTip)
{
    AddOwners(AccountingMode::TrafficAndTime);
    AddUsage();
    const QStringList before = EveryRow();
    const WhileModal opened([](QDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"User statistics"_s);
        EXPECT_EQ(Shown(dialog, "periodReceived"), u"150.50"_s);
        EXPECT_EQ(Shown(dialog, "periodSent"), u"20.25"_s);
        EXPECT_EQ(Shown(dialog, "periodTime"), u"4.75"_s);
        EXPECT_EQ(Shown(dialog, "overallReceived"), u"6340.00"_s);
        EXPECT_EQ(Shown(dialog, "overallSent"), u"1464.00"_s);
        EXPECT_TRUE(Find<QLabel>(dialog, "tip").text().startsWith(u"12.50 Mb of the data"_s));
        EXPECT_EQ(Find<QLineEdit>(dialog, "periodTime").accessibleName(), u"Time On-Line, hr"_s);
        Grab(dialog, u"statistics"_s);
        QTest::keyClick(&Find<TrafficChart>(dialog, "chart"), Qt::Key_Home);
        {
            const DarkPalette dark;
            QCoreApplication::processEvents();
            Grab(dialog, u"statistics-dark"_s);
        }
        PressKey(Qt::Key_Return);
    });
    OpenStatistics(Services(), UserId {1}, nullptr);
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(StatisticsWindow, LeavesEmptyWhatTheModeDoesNotCount)
{
    AddOwners(AccountingMode::Provider);
    const WhileModal opened([](QDialog &dialog) {
        EXPECT_EQ(Shown(dialog, "periodReceived"), u""_s);
        EXPECT_EQ(Shown(dialog, "periodTime"), u""_s);
        EXPECT_EQ(Shown(dialog, "overallReceived"), u"0.00"_s);
        Grab(dialog, u"statistics-empty"_s);
        Click(dialog, "ok");
    });
    OpenStatistics(Services(), UserId {1}, nullptr);
}

TEST_F(StatisticsWindow, OfAGroupHasNoTime)
{
    AddOwners(AccountingMode::Traffic);
    AddUsage();
    const WhileModal opened([](QDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Group statistics"_s);
        EXPECT_EQ(Find<QLabel>(dialog, "owner").text(), u"Group: sales"_s);
        EXPECT_EQ(dialog.findChild<QLineEdit *>(u"periodTime"_s), nullptr);
        EXPECT_EQ(Shown(dialog, "periodReceived"), u"0.00"_s);
        EXPECT_EQ(Shown(dialog, "overallReceived"), u"6340.00"_s) << "each day once";
        Grab(dialog, u"statistics-group"_s);
        PressKey(Qt::Key_Escape);
    });
    OpenStatistics(Services(), GroupId {81}, nullptr);
}

TEST(TrafficCharts, DaysAreChosenByKeyboardAndDescribed)
{
    TrafficChart chart(nullptr);
    EXPECT_EQ(chart.accessibleDescription(), u"No traffic in the last 30 days."_s);
    std::vector<DailyTraffic> days;
    for (int day = 1; day <= 30; ++day) {
        days.push_back({QDate(2026, 9, day), Megabytes {day * 1.5}, Megabytes {day * 0.5}});
    }
    chart.SetDays(days);
    const auto all =
        u"Received 697.50 Mb, sent 232.50 Mb. Most on one day: received 45.00 Mb, sent "
        "15.00 Mb."_s;
    EXPECT_EQ(chart.accessibleDescription(), all);
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_Left, 29},
                                            {Qt::Key_Left, 28},
                                            {Qt::Key_End, 29},
                                            {Qt::Key_Right, 29},
                                            {Qt::Key_Home, 0},
                                            {Qt::Key_Left, 0},
                                            {Qt::Key_Right, 1}};
    for (const auto &[key, day] : keys) {
        QTest::keyClick(&chart, key);
        EXPECT_EQ(chart.ChosenDay(), day);
    }
    EXPECT_EQ(chart.accessibleDescription(),
              u"02.09.2026: received 3.00 Mb, sent 1.00 Mb. "_s + all);
    chart.SetDays({});
    QTest::keyClick(&chart, Qt::Key_Left);
    EXPECT_EQ(chart.ChosenDay(), -1);
}

TEST(TrafficCharts, ScaleHoldsBothDirectionsOnRoundLines)
{
    struct Case
    {
        double received;
        double sent;
        double step;
        int up;
        int down;
    };
    const Case cases[] = {
        {0, 0, 1, 1, 1},
        {440, 96, 200, 3, 1},
        {10, 0, 2, 5, 1},
        {0, 7.5, 2, 1, 4},
        {0.02, 0.01, 0.01, 2, 1},
        {1e9, 1e9, 5e8, 2, 2},
        {5, 5, 2, 3, 3},
    };
    for (const auto &[received, sent, step, up, down] : cases) {
        const ChartScale scale = ScaleFor(received, sent);
        EXPECT_DOUBLE_EQ(scale.step, step) << received;
        EXPECT_EQ(scale.linesUp, up) << received;
        EXPECT_EQ(scale.linesDown, down) << received;
        EXPECT_DOUBLE_EQ(scale.Position(scale.Top()), 0.0);
        EXPECT_DOUBLE_EQ(scale.Position(-scale.Bottom()), 1.0);
    }
}

// What is painted for a day of the middle: ground, received above the zero line, sent below it.
TEST(TrafficCharts, DirectionsDifferInPlaceAndBrightnessOnLightAndDark)
{
    for (const bool dark : {false, true}) {
        TrafficChart chart(nullptr);
        QPalette palette;
        palette.setColor(QPalette::Base, dark ? QColor(0x202020) : QColor(Qt::white));
        palette.setColor(QPalette::Text, dark ? QColor(Qt::white) : QColor(Qt::black));
        chart.setPalette(palette);
        chart.SetDays(
            std::vector<DailyTraffic>(30, {QDate(2026, 9, 1), Megabytes {50}, Megabytes {50}}));
        chart.resize(600, 300);
        const QImage image = chart.grab().toImage();
        const int ground = qGray(image.pixel(1, 1));
        QList<int> contrasts;
        for (int y = 60; y < 200; ++y) {
            contrasts << std::abs(qGray(image.pixel(320, y)) - ground);
        }
        EXPECT_GT(*std::max_element(contrasts.begin(), contrasts.begin() + 40), 60) << dark;
        EXPECT_GT(*std::max_element(contrasts.end() - 40, contrasts.end()), 60) << dark;
    }
}

} // namespace
