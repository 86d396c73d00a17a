#include "base/day.h"
#include "support/windows/dark_palette.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "ui/common/accessible.h"
#include "ui/common/choice_keys.h"
#include "ui/common/empty_note.h"
#include "ui/common/icons.h"
#include "ui/common/ip_address_field.h"
#include "ui/common/message_box_prompt.h"
#include "ui/common/moment_field.h"
#include "ui/common/number_field.h"
#include "ui/common/text_field.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

void ShowActive(QWidget &window)
{
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

} // namespace

TEST(TextField, NeverHoldsMoreThanItsBytes)
{
    TextField field;
    ShowActive(field);
    Type(field, QString(300, u'x'));
    EXPECT_EQ(field.text(), QString(254, u'x'));
    Paste(field, QString(253, u'y') + u"\u20ac\u20ac"_s); // 3 bytes each: neither fits whole
    EXPECT_EQ(field.text(), QString(253, u'y'));
    field.setText(QString(200, u'\u00e9'));
    EXPECT_EQ(field.text(), QString(127, u'\u00e9'));

    TextField small(nullptr, 8);
    ShowActive(small);
    small.setText(u"abcdef"_s);
    small.setCursorPosition(3);
    QTest::keyClicks(&small, u"XYZ"_s);
    EXPECT_EQ(small.text(), u"abcXYdef"_s); // what stood there stays
    EXPECT_EQ(small.cursorPosition(), 5);
    Paste(small, u"\U0001F600\U0001F600\U0001F600"_s); // surrogate pairs stay whole
    EXPECT_EQ(small.text(), u"\U0001F600\U0001F600"_s);
}

TEST(NumberField, KeepsWhatIsTypedAndMarksWhatItCannotTake)
{
    NumberField field({.least = 1, .most = 30});
    ShowActive(field);
    field.SetUnit(u"days"_s);
    struct Case
    {
        QString typed;
        std::optional<quint32> number;
        bool isWrong;
    };
    const Case cases[] = {
        {u"30"_s, 30, false},
        {u"31"_s, {}, true},
        {u"2,5"_s, {}, true},
        {u"1e3"_s, {}, true},
        {u"-5"_s, {}, true},
        {u"2147483648"_s, {}, true},
        {u"12a"_s, {}, true},
        {u""_s, {}, false},
    };
    for (const Case &each : cases) {
        Type(field, each.typed);
        EXPECT_EQ(field.text(), each.typed);
        EXPECT_EQ(field.Number(), each.number) << qPrintable(each.typed);
        EXPECT_EQ(field.IsWrong(), each.isWrong) << qPrintable(each.typed);
        EXPECT_EQ(field.accessibleDescription(),
                  each.isWrong ? u"days. Please enter an integer between 1 and 30."_s : u"days"_s);
        EXPECT_EQ(field.toolTip().isEmpty(), !each.isWrong);
    }
    Paste(field, u"99999999999999999999"_s);
    EXPECT_EQ(field.text(), u"99999999999999999999"_s);
    EXPECT_TRUE(field.IsWrong());
    field.SetNumber(30);
    EXPECT_EQ(field.text(), u"30"_s);
    EXPECT_FALSE(field.IsWrong());
}

TEST(NumberField, UpAndDownGoAsFarAsTheBounds)
{
    struct Case
    {
        QString typed;
        Qt::Key key;
        QString then;
    };
    const Case cases[] = {{u"29"_s, Qt::Key_Up, u"30"_s},
                          {u"30"_s, Qt::Key_Up, u"30"_s},
                          {u"2"_s, Qt::Key_Down, u"1"_s},
                          {u"1"_s, Qt::Key_Down, u"1"_s},
                          {u"31"_s, Qt::Key_Down, u"31"_s},
                          {u"2,5"_s, Qt::Key_Up, u"2,5"_s}};
    for (const bool steps : {true, false}) {
        NumberField field({.least = 1, .most = 30});
        ShowActive(field);
        if (steps) {
            field.StepByKeys();
        }
        QSignalSpy stepped(&field, &NumberField::Stepped);
        for (const Case &each : cases) {
            Type(field, each.typed);
            QTest::keyClick(&field, each.key);
            EXPECT_EQ(field.text(), steps ? each.then : each.typed) << qPrintable(each.typed);
        }
        EXPECT_EQ(stepped.count(), steps ? 2 : 0);
    }
}

TEST(NumberField, ReadsAmountsAsTheLocaleWritesThem)
{
    NumberField field({.least = 0, .most = 1e9, .decimals = 2});
    ShowActive(field);
    const QLocale before;
    QLocale::setDefault(QLocale(u"de_DE"_s));
    Type(field, u"1.234,56"_s);
    EXPECT_EQ(field.Amount(), 1234.56);
    Type(field, u"1.234"_s);
    EXPECT_EQ(field.text(), u"1.234"_s);
    EXPECT_EQ(field.Amount(), std::nullopt);
    EXPECT_TRUE(field.IsWrong());
    EXPECT_EQ(field.Request(), u"\"1.234\" can be read in two ways. Please enter \"1234\"."_s);
    NumberField exact({.least = 0, .most = 1e9, .decimals = 6});
    exact.setText(u"1.234"_s);
    EXPECT_EQ(exact.Request(),
              u"\"1.234\" can be read in two ways. Please enter \"1234\" or \"1,234\"."_s);
    Type(field, u"1,234"_s);
    EXPECT_EQ(field.Request(),
              u"Please enter a number between 0 and 1000000000, with at most 2 decimals."_s);
    NumberField bounded({.least = 0.01, .most = 0.5, .decimals = 2});
    bounded.setText(u"0"_s);
    EXPECT_EQ(bounded.Request(),
              u"Please enter a number between 0,01 and 0,5, with at most 2 decimals."_s);
    field.SetAmount(1234567.5);
    EXPECT_EQ(field.text(), u"1234567,50"_s);
    EXPECT_EQ(field.Amount(), 1234567.5);
    QLocale::setDefault(before);
}

TEST(NumberField, MarksOnALightAndOnADarkGround)
{
    const auto edge = [] { // the colour of the frame in the middle of its upper side
        NumberField field;
        field.setText(u"x"_s);
        field.resize(200, 30);
        const QImage picture = field.grab().toImage();
        return picture.pixelColor(100, 1);
    };
    const QColor onLight = edge();
    const DarkPalette dark;
    const QColor onDark = edge();
    EXPECT_GT(onLight.red(), 2 * onLight.blue());
    EXPECT_GT(onDark.lightness(), onLight.lightness());
}

namespace {

QString Texts(const IpAddressField &field)
{
    QStringList texts;
    for (const char *octet : {"octet0", "octet1", "octet2", "octet3"}) {
        texts << Find<QLineEdit>(field, octet).text();
    }
    return texts.join(u'|');
}

void TypeOver(const QString &keys)
{
    for (const QChar key : keys) {
        QTest::keyClicks(QApplication::focusWidget(), QString(key));
    }
}

} // namespace

TEST(DayField, KeepsWhatIsTypedAndMarksWhatIsNoDay)
{
    const TodayOverride today({2026, 3, 9});
    DayField field({2026, 3, 9});
    ShowActive(field);
    EXPECT_EQ(field.text(), u"2026-03-09"_s);
    const std::pair<QString, std::optional<QDate>> cases[] = {
        {u"2025-03-31"_s, QDate(2025, 3, 31)},
        {u"2027-01-05"_s, QDate(2027, 1, 5)},
        {u"2024-02-29"_s, QDate(2024, 2, 29)},
        {u"31.12.2025"_s, QDate(2025, 12, 31)},
        {u"2021-04-31"_s, {}},
        {u"3/4"_s, {}},
        {u"x"_s, {}},
    };
    for (const auto &[typed, day] : cases) {
        Type(field, typed);
        EXPECT_EQ(field.text(), typed);
        EXPECT_EQ(field.Day(), day) << qPrintable(typed);
        EXPECT_EQ(field.accessibleDescription(), day ? QString() : field.Request());
    }
    EXPECT_EQ(field.Request(), u"Please enter a day, as in 2026-03-09."_s);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), u"x"_s);
    field.setEnabled(false);
    EXPECT_EQ(field.accessibleDescription(), QString());
    field.setEnabled(true);
    Type(field, {});
    EXPECT_FALSE(field.IsReadable());
    EXPECT_EQ(field.accessibleDescription(), QString()) << "a blank field is not marked";
}

TEST(DayField, KeysStepAndTheCalendarChooses)
{
    DayField field({2026, 2, 28});
    ShowActive(field);
    const std::pair<Qt::Key, QString> keys[] = {
        {Qt::Key_Up, u"2026-03-01"_s},
        {Qt::Key_Down, u"2026-02-28"_s},
        {Qt::Key_PageUp, u"2026-03-28"_s},
        {Qt::Key_PageDown, u"2026-02-28"_s},
    };
    for (const auto &[key, text] : keys) {
        QTest::keyClick(&field, key);
        EXPECT_EQ(field.text(), text);
    }
    Type(field, u"9999-12-31"_s);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), u"9999-12-31"_s);

    const auto popUp = [&field]() -> QCalendarWidget & {
        return Find<QCalendarWidget>(field, "calendar");
    };
    Type(field, u"31.12.2025"_s);
    QTest::keyClick(&field, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(popUp().selectedDate(), QDate(2025, 12, 31));
    EXPECT_EQ(popUp().window()->windowType(), Qt::Popup);
    QTest::keyClick(popUp().window(), Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return field.findChildren<QCalendarWidget *>().isEmpty(); }));
    EXPECT_EQ(field.text(), u"31.12.2025"_s) << "nothing was chosen";

    field.actions().first()->trigger(); // the button at its end
    QWidget *days = popUp().findChild<QAbstractItemView *>();
    QTest::keyClick(days, Qt::Key_Left);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_EQ(field.text(), u"2025-12-30"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return field.findChildren<QCalendarWidget *>().isEmpty(); }));
}

TEST(TimeField, KeepsWhatIsTypedAndSteps)
{
    TimeField field({8, 0});
    ShowActive(field);
    EXPECT_EQ(field.text(), u"08:00:00"_s);
    const std::pair<QString, std::optional<QTime>> cases[] = {
        {u"17:45"_s, QTime(17, 45)},
        {u"17.45"_s, QTime(17, 45)},
        {u"9:05"_s, QTime(9, 5)},
        {u"24:00"_s, {}},
        {u"8 o'clock"_s, {}},
    };
    for (const auto &[typed, time] : cases) {
        Type(field, typed);
        EXPECT_EQ(field.text(), typed);
        EXPECT_EQ(field.Time(), time) << qPrintable(typed);
        EXPECT_EQ(field.accessibleDescription(), time ? QString() : field.Request());
    }
    Type(field, u"23:59"_s);
    QTest::keyClick(&field, Qt::Key_Up); // no other day
    EXPECT_EQ(field.text(), u"23:59"_s);
    QTest::keyClick(&field, Qt::Key_PageDown);
    EXPECT_EQ(field.text(), u"22:59:00"_s);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), u"23:00:00"_s);
}

TEST(IpAddressField, IsTypedOverWhereverTheFocusCameFrom)
{
    QWidget window;
    auto *button = new QPushButton(u"before"_s, &window);
    auto *field = new IpAddressField(u"IP address"_s, &window);
    auto *row = new QHBoxLayout(&window);
    row->addWidget(button);
    row->addWidget(field);
    ShowActive(window);
    struct Case
    {
        const char *typed;
        const char *stored;
    };
    const Case cases[] = {
        {"172.16.5.9", "172.16.5.9"}, // the point after a third digit moves on once
        {"172165.9", "172.165.9.11"}, // a third digit alone moves on
        {"1.2.3.4", "1.2.3.4"},
        {"192,168,0,1", "192.168.0.1"}, // a keypad's comma
        {"255.255.255.255", "255.255.255.255"},
        {"9...8", "9.0.0.8"}, // a point keeps the part that is there
    };
    auto &first = Find<QLineEdit>(*field, "octet0");
    const std::function<void()> ways[] = {
        [&] { field->setFocus(); },
        [&] {
            button->setFocus();
            QTest::keyClick(button, Qt::Key_Tab);
        },
        [&] {
            button->setFocus();
            QTest::mouseClick(&first, Qt::LeftButton, {}, first.rect().center());
        },
    };
    for (const auto &focus : ways) {
        for (const Case &each : cases) {
            button->setFocus();
            field->SetAddress(*Ipv4From(u"10.0.0.11"_s));
            focus();
            ASSERT_TRUE(first.hasFocus());
            TypeOver(QString::fromLatin1(each.typed));
            EXPECT_EQ(field->Address(), Ipv4From(QString::fromLatin1(each.stored))) << each.typed;
        }
    }
}

TEST(IpAddressField, IsTypedPastedAndCorrected)
{
    IpAddressField field(u"IP address"_s);
    ShowActive(field);
    EXPECT_TRUE(field.IsBlank());
    QSignalSpy changed(&field, &IpAddressField::Changed);
    Type(field, u"192.168.1.20"_s); // the third digit and the point together move on once
    EXPECT_EQ(field.Address(), Ipv4From(u"192.168.1.20"_s));
    EXPECT_EQ(changed.count(), 9);

    Type(field, u"1.2.3"_s); // replaces the first octet; the others are typed over in turn
    EXPECT_EQ(field.Address(), Ipv4From(u"1.2.3.20"_s));
    field.Clear();
    Type(field, u"10.300.1.1"_s); // stays as it was typed, and is no address
    EXPECT_EQ(Texts(field), u"10|300|1|1"_s);
    EXPECT_FALSE(field.IsComplete());
    EXPECT_FALSE(field.IsBlank());
    EXPECT_EQ(field.Address(), std::nullopt);
    EXPECT_EQ(Find<QLineEdit>(field, "octet1").accessibleDescription(),
              u"Please enter an integer between 0 and 255."_s);
    Type(Find<QLineEdit>(field, "octet1"), u"3o"_s);
    EXPECT_EQ(field.Address(), std::nullopt);
    Type(Find<QLineEdit>(field, "octet1"), u"30"_s);
    EXPECT_EQ(field.Address(), Ipv4From(u"10.30.1.1"_s));

    Paste(field, u" 172.16.254.1\n"_s);
    EXPECT_EQ(field.Address(), Ipv4From(u"172.16.254.1"_s));
    for (const QString &text : {u"no address"_s, u"10.0.0"_s, u"10.0.0.0/24"_s, u"1.2.3.256"_s}) {
        Paste(field, text);
    }
    EXPECT_EQ(field.Address(), Ipv4From(u"172.16.254.1"_s));
    field.SetAddress(0xFFFFFFFF);
    EXPECT_EQ(Find<QLineEdit>(field, "octet3").text(), u"255"_s);
}

TEST(IpAddressField, KeysWalkOverItsOctets)
{
    IpAddressField field(u"Mask"_s);
    ShowActive(field);
    field.SetAddress(0x01020304);
    auto &first = Find<QLineEdit>(field, "octet0");
    auto &second = Find<QLineEdit>(field, "octet1");
    field.setFocus();
    EXPECT_TRUE(first.hasFocus());
    first.setCursorPosition(1);
    QTest::keyClick(&first, Qt::Key_Right);
    EXPECT_TRUE(second.hasFocus());
    second.setCursorPosition(0);
    QTest::keyClick(&second, Qt::Key_Backspace);
    EXPECT_TRUE(first.hasFocus());
    EXPECT_EQ(first.text(), QString());
    QTest::keyClick(&first, Qt::Key_Period); // an empty octet is not left behind
    EXPECT_TRUE(first.hasFocus());
    second.setFocus();
    second.setCursorPosition(0);
    QTest::keyClick(&second, Qt::Key_Left);
    EXPECT_TRUE(first.hasFocus());
    EXPECT_EQ(second.accessibleName(), u"Mask, part 2 of 4"_s);
}

TEST(EmptyNote, StandsInTheListWhileThereAreNoRows)
{
    QListWidget list;
    auto *note = new EmptyNote(list, u"Nobody"_s);
    ShowActive(list);
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->geometry(), list.viewport()->geometry());
    EXPECT_EQ(list.accessibleDescription(), u"Nobody"_s);
    list.addItem(u"anna"_s);
    EXPECT_FALSE(note->isVisible());
    EXPECT_EQ(list.accessibleDescription(), QString());
    list.clear();
    EXPECT_TRUE(note->isVisible());
    list.resize(list.size() * 2);
    EXPECT_EQ(note->geometry(), list.viewport()->geometry());
    note->Say({});
    EXPECT_FALSE(note->isVisible());
}

// The current row is not chosen until a key says so; a key that moves chooses where it goes.
TEST(ChoiceKeys, ChooseTheRowFromWhichTheyCouldNotMove)
{
    struct Case
    {
        int rows;
        int current;
        Qt::Key key;
        int chosen;
    };
    const Case cases[] = {
        {1, 0, Qt::Key_Down, 0},
        {1, 0, Qt::Key_Up, 0},
        {1, 0, Qt::Key_Space, 0},
        {3, 2, Qt::Key_Down, 2},
        {3, 2, Qt::Key_End, 2},
        {3, 2, Qt::Key_PageDown, 2},
        {3, 2, Qt::Key_Up, 1},
        {3, 0, Qt::Key_Up, 0},
        {3, 0, Qt::Key_Home, 0},
        {3, 0, Qt::Key_PageUp, 0},
        {3, 0, Qt::Key_Down, 1},
        {3, 1, Qt::Key_Down, 2},
        {3, 1, Qt::Key_Space, 1},
    };
    QDialog window;
    QHBoxLayout row(&window);
    QListWidget list;
    QTreeWidget tree;
    row.addWidget(&list);
    row.addWidget(&tree);
    LetKeysChoose(window);
    ShowActive(window);
    for (const auto &[rows, current, key, chosen] : cases) {
        list.clear();
        tree.clear();
        for (int added = 0; added < rows; ++added) {
            list.addItem(QString::number(added));
            tree.addTopLevelItem(new QTreeWidgetItem({QString::number(added)}));
        }
        for (QAbstractItemView *view :
             {static_cast<QAbstractItemView *>(&list), static_cast<QAbstractItemView *>(&tree)}) {
            view->setFocus();
            view->selectionModel()->setCurrentIndex(view->model()->index(current, 0),
                                                    QItemSelectionModel::NoUpdate);
            QTest::keyClick(view, key);
            const QModelIndexList selected = view->selectionModel()->selectedRows();
            ASSERT_EQ(selected.size(), 1) << rows << " rows, " << current << ", " << key;
            EXPECT_EQ(selected[0].row(), chosen) << rows << " rows, " << current << ", " << key;
            EXPECT_EQ(view->currentIndex().row(), chosen);
        }
    }
}

TEST(Accessible, APlainLabelHasNoEnd)
{
    const std::pair<QString, QString> labels[] = {
        {u"&Properties..."_s, u"Properties"_s},
        {u"&Eigenschaften \u2026"_s, u"Eigenschaften"_s},
        {u"Konto\u00a0\u2026"_s, u"Konto"_s},
        {u"Berichte\u2026"_s, u"Berichte"_s},
        {u"Rate :"_s, u"Rate"_s},
        {u" A && B,"_s, u"A & B"_s},
        {u"..."_s, QString()},
    };
    for (const auto &[label, plain] : labels) {
        EXPECT_EQ(PlainLabel(label), plain);
    }
}

TEST(Accessible, ALabelNamesItsField)
{
    EXPECT_EQ(PlainLabel(u"&Find user:"_s), u"Find user"_s);
    EXPECT_EQ(PlainLabel(u"Time control "_s), u"Time control"_s);
    EXPECT_EQ(PlainLabel(u"Add && remove..."_s), u"Add & remove"_s);
    QWidget window;
    auto *field = new QLineEdit(&window);
    const QLabel *label = LabelFor(u"Enter refresh period, min:"_s, *field);
    EXPECT_EQ(label->buddy(), field);
    EXPECT_EQ(field->accessibleName(), u"Enter refresh period, min"_s);
}

TEST(MessageBoxPrompt, TellsAndAsks)
{
    MessageBoxPrompt boxes;
    Prompt &prompt = boxes;
    QWidget window;
    ShowActive(window);
    {
        const WhileModal answer([&](QDialog &dialog) {
            const auto &box = static_cast<const QMessageBox &>(dialog);
            EXPECT_EQ(box.windowTitle(), u"Tollbrook Administrator"_s);
            EXPECT_EQ(box.text(), u"<b>No user found"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.parentWidget(), &window);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        prompt.Tell(u"<b>No user found"_s);
    }
    const std::pair<Qt::Key, bool> answers[] = {
        {Qt::Key_Y, true}, {Qt::Key_N, false}, {Qt::Key_Escape, false}};
    for (const auto &[key, yes] : answers) {
        const WhileModal answer([key = key](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Tollbrook"_s);
            QTest::keyClick(&dialog, key, key == Qt::Key_Escape ? Qt::NoModifier : Qt::AltModifier);
        });
        EXPECT_EQ(prompt.Ask(u"Continue?"_s, u"Tollbrook"_s), yes);
    }
}

TEST(MessageBoxPrompt, AQuestionOnARemovalHasNoByReturn)
{
    MessageBoxPrompt prompt;
    QWidget window;
    ShowActive(window);
    const QString question = u"Delete them?"_s;
    for (const QString &goes : {u"<b>anna"_s, QString()}) {
        const std::pair<Qt::Key, bool> answers[] = {
            {Qt::Key_Return, false}, {Qt::Key_Escape, false}, {Qt::Key_Y, true}};
        for (const auto &[key, yes] : answers) {
            const WhileModal answer([&, key = key](QDialog &dialog) {
                const auto &box = static_cast<const QMessageBox &>(dialog);
                EXPECT_EQ(box.text(), goes.isEmpty() ? question : question + u"\n\n<b>anna"_s);
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                EXPECT_EQ(QApplication::focusWidget(), box.button(QMessageBox::No));
                QTest::keyClick(QApplication::focusWidget(),
                                key,
                                key == Qt::Key_Y ? Qt::AltModifier : Qt::NoModifier);
            });
            EXPECT_EQ(prompt.AskToDestroy(question, goes), yes) << key;
        }
    }
}

TEST(MessageBoxPrompt, ALongMessageScrolls)
{
    QWidget window;
    ShowActive(window);
    QStringList lines;
    for (int number = 1; number <= 85; ++number) {
        lines << u"The protocol number %1 was not stored because its ports could not be read."_s
                     .arg(number);
    }
    const WhileModal answer([&](QDialog &dialog) {
        EXPECT_EQ(static_cast<const QMessageBox &>(dialog).text(), lines.join(u'\n'));
        EXPECT_LE(dialog.height(), 500);
        auto &area = Find<QScrollArea>(dialog, "messageText");
        EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
        EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    MessageBoxPrompt().Tell(lines.join(u'\n'), Prompt::Icon::Error, {});
}

TEST(Icons, EachPictureIsDrawn)
{
    constexpr int kCount = static_cast<int>(Picture::PageSetup) + 1;
    constexpr int kCell = 40;
    QImage sheet(kCell * kCount, kCell * 2, QImage::Format_ARGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.fillRect(0, kCell, sheet.width(), kCell, QColor(0x2b2b2b));
    for (int index = 0; index < kCount; ++index) {
        const QIcon &icon = IconOf(static_cast<Picture>(index));
        const QImage image = icon.pixmap(QSize(32, 32)).toImage();
        ASSERT_FALSE(image.isNull()) << index;
        QImage nothing(image.size(), image.format());
        nothing.fill(Qt::transparent);
        EXPECT_NE(image, nothing) << index;
        painter.drawImage(index * kCell + 4, 4, image);
        painter.drawImage(index * kCell + 4, kCell + 4, image);
    }
    // In a selected row the access is as clear as elsewhere, and a row's icon stands out.
    const auto inRow = [](Picture picture, QIcon::Mode mode) {
        return IconOf(picture).pixmap(QSize(32, 32), 1, mode).toImage();
    };
    EXPECT_EQ(inRow(Picture::AccessAllowed, QIcon::Selected),
              inRow(Picture::AccessAllowed, QIcon::Normal));
    EXPECT_NE(inRow(Picture::User, QIcon::Selected), inRow(Picture::User, QIcon::Normal));
    EXPECT_NE(inRow(Picture::User, QIcon::Disabled), inRow(Picture::User, QIcon::Normal));
    painter.end();
    const QString folder = qEnvironmentVariable("TB_SCREENS");
    if (!folder.isEmpty()) {
        EXPECT_TRUE(sheet.save(folder + u"/icons.png"_s));
    }
}
