#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "ui/common/accessible.h"
#include "ui/common/icons.h"
#include "ui/common/ip_address_field.h"
#include "ui/common/message_box_prompt.h"
#include "ui/common/number_field.h"
#include "ui/common/text_field.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>

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

TEST(WholeNumberField, TakesDigitsUpToItsMaximum)
{
    WholeNumberField field;
    ShowActive(field);
    EXPECT_EQ(field.Number(), std::nullopt);
    Type(field, u"-12a.5"_s);
    EXPECT_EQ(field.Number(), 125U);
    Type(field, u"2147483647"_s);
    EXPECT_EQ(field.Number(), 2147483647U);
    Type(field, u"2147483648"_s);
    EXPECT_EQ(field.Number(), 214748364U); // the last digit was refused
    Paste(field, u"99999999999999999999"_s);
    EXPECT_EQ(field.Number(), 214748364U);
    WholeNumberField small(nullptr, 30);
    ShowActive(small);
    Type(small, u"31"_s);
    EXPECT_EQ(small.Number(), 3U);
    small.SetNumber(30);
    EXPECT_EQ(small.text(), u"30"_s);
}

TEST(AmountField, TakesBothSeparatorsAndTwoDecimals)
{
    AmountField field;
    ShowActive(field);
    const QLocale before;
    for (const auto *locale : {"C", "de_DE"}) {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        const QString separator = QLocale().decimalPoint();
        Type(field, u"12.345"_s);
        EXPECT_EQ(field.text(), u"12.34"_s);
        Type(field, u"7"_s + separator + u"18"_s);
        EXPECT_EQ(field.Amount(), 7.18) << locale;
        Type(field, u"."_s);
        EXPECT_EQ(field.Amount(), std::nullopt);
        Type(field, u".5"_s);
        EXPECT_EQ(field.Amount(), 0.5);
        field.SetAmount(1234567.5);
        EXPECT_EQ(field.text(), u"1234567.50"_s);
    }
    QLocale::setDefault(before);
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
    Type(field, u"10.300"_s);
    EXPECT_EQ(Find<QLineEdit>(field, "octet1").text(), u"30"_s);
    EXPECT_FALSE(field.IsComplete());
    EXPECT_FALSE(field.IsBlank());
    EXPECT_EQ(field.Address(), std::nullopt);

    Paste(field, u" 172.16.254.1\n"_s);
    EXPECT_EQ(field.Address(), Ipv4From(u"172.16.254.1"_s));
    Paste(field, u"no address"_s);
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
    constexpr int kCount = static_cast<int>(Picture::Binding) + 1;
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
