#include "support/windows/keyboard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QToolButton>
#include <QWidget>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostControls = 100;

bool HasFocus(const QWidget &window, const char *name)
{
    for (const QWidget *widget = QApplication::focusWidget();
         widget != nullptr && widget != &window;
         widget = widget->parentWidget()) {
        if (widget->objectName() == QLatin1String(name)) {
            return true;
        }
    }
    return false;
}

// Each key goes where the focus is by then: a field may move it on.
void TypeOn(const QString &text)
{
    for (const QChar c : text) {
        QTest::keyClicks(QApplication::focusWidget(), QString(c));
    }
}

QSet<const QWidget *> ReachedByTab()
{
    QSet<const QWidget *> reached;
    for (int pressed = 0; pressed < kMostControls; ++pressed) { // a date takes several
        reached.insert(QApplication::focusWidget());
        Press(Qt::Key_Tab);
    }
    return reached;
}

bool CanBeUsed(const QWidget &control)
{
    return control.isVisible() && control.isEnabled() && control.focusProxy() == nullptr
        && (control.focusPolicy() & Qt::TabFocus) != 0
        && !control.objectName().startsWith(u"qt_"_s); // a part of the toolkit's own
}

bool HasName(const QWidget &control)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&control);
    return !control.accessibleName().isEmpty() || !control.accessibleDescription().isEmpty()
        || (button != nullptr && !button->text().isEmpty());
}

// The control itself, or another button of its radio buttons.
bool IsReached(const QWidget &control, const QSet<const QWidget *> &reached)
{
    if (!qobject_cast<const QRadioButton *>(&control)) {
        return reached.contains(&control);
    }
    return std::ranges::any_of(
        control.parentWidget()->findChildren<QRadioButton *>(Qt::FindDirectChildrenOnly),
        [&reached](const QWidget *each) { return reached.contains(each); });
}

QStringList Names(const QList<const QWidget *> &widgets)
{
    QStringList names;
    for (const QWidget *widget : widgets) {
        names << widget->objectName();
    }
    return names;
}

// The controls in the order in which `key` meets them, once round from where the focus is.
QList<const QWidget *> Round(const QWidget &window, Qt::Key key, Qt::KeyboardModifiers held)
{
    QList<const QWidget *> met {QApplication::focusWidget()};
    for (int pressed = 0; pressed < kMostControls; ++pressed) {
        Press(key, held);
        const QWidget *now = QApplication::focusWidget();
        EXPECT_TRUE(window.isAncestorOf(now));
        if (now != met.last()) { // a date keeps it for several
            if (now == met.first()) {
                return met;
            }
            met.append(now);
        }
    }
    met.resize(std::min<qsizetype>(met.size(), 12));
    ADD_FAILURE() << "the focus does not come round: " << qPrintable(Names(met).join(u" > "));
    return {};
}

QRect PlaceOf(const QWidget &control, const QWidget &window)
{
    return {control.mapTo(&window, QPoint()), control.size()};
}

// Below, or further right.
bool Follows(const QRect &next, const QRect &previous)
{
    return next.center().y() > previous.center().y() || next.left() >= previous.right();
}

// OK, Cancel and Help, as far as they are there.
QList<const QWidget *> LastOnes(const QWidget &window)
{
    QList<const QWidget *> last;
    for (const auto *box : window.findChildren<QDialogButtonBox *>()) {
        for (const auto role : {QDialogButtonBox::AcceptRole,
                                QDialogButtonBox::RejectRole,
                                QDialogButtonBox::HelpRole}) {
            for (const QAbstractButton *button : box->buttons()) {
                if (box->buttonRole(const_cast<QAbstractButton *>(button)) == role
                    && CanBeUsed(*button)) {
                    last.append(button);
                }
            }
        }
    }
    return last;
}

void ExpectReadingOrder(const QWidget &window, QList<const QWidget *> met)
{
    const QList<const QWidget *> last = LastOnes(window);
    if (!last.isEmpty() && met.contains(last.last())) {
        std::ranges::rotate(met, met.begin() + met.indexOf(last.last()) + 1);
        const qsizetype others = std::max<qsizetype>(met.size() - last.size(), 0);
        EXPECT_EQ(Names(met.mid(others)), Names(last)) << "OK, Cancel and Help come last";
        met.resize(others);
    } else { // the one place where it goes back is where it comes round
        for (qsizetype place = 1; place < met.size(); ++place) {
            if (!Follows(PlaceOf(*met[place], window), PlaceOf(*met[place - 1], window))) {
                std::ranges::rotate(met, met.begin() + place);
                break;
            }
        }
    }
    for (qsizetype place = 1; place < met.size(); ++place) {
        EXPECT_TRUE(Follows(PlaceOf(*met[place], window), PlaceOf(*met[place - 1], window)))
            << qPrintable(met[place]->objectName()) << " comes after "
            << qPrintable(met[place - 1]->objectName());
    }
}

// The text whose letter counts; empty for what needs none.
QString MarkedText(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        return label->buddy() != nullptr ? label->text() : QString();
    }
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    if (button == nullptr || button->objectName().startsWith(u"qt_"_s)) {
        return {};
    }
    const auto *tool = qobject_cast<const QToolButton *>(button);
    if (tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonIconOnly
        && !tool->icon().isNull()) {
        return {}; // a picture
    }
    const QString text = QString(button->text()).remove(u'&');
    if (std::ranges::none_of(text, [](QChar c) { return c.isLetterOrNumber(); })) {
        return {}; // an arrow
    }
    const bool hasKey = text == u"OK"_s || text == u"Cancel"_s || text == u"Close"_s;
    return hasKey ? QString() : button->text();
}

void ExpectMnemonics(const QWidget &window)
{
    QMap<QChar, QString> owners;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const QString text = MarkedText(*widget);
        if (!widget->isVisible() || text.isEmpty()) {
            continue;
        }
        const qsizetype mark = text.indexOf(u'&');
        const QChar letter = mark < 0 ? QChar() : text.at(mark + 1).toUpper();
        EXPECT_TRUE(letter.isLetterOrNumber()) << "no mnemonic in " << qPrintable(text);
        EXPECT_FALSE(owners.contains(letter))
            << qPrintable(text) << " and " << qPrintable(owners.value(letter));
        owners.insert(letter, text);
    }
}

} // namespace

void TabTo(QWidget &window, const char *name)
{
    for (int pressed = 0; pressed < kMostControls && !testing::Test::HasFatalFailure(); ++pressed) {
        if (HasFocus(window, name)) {
            return;
        }
        Press(Qt::Key_Tab);
    }
    FAIL() << name << " cannot be reached by Tab from "
           << (QApplication::focusWidget() ? qPrintable(QApplication::focusWidget()->objectName())
                                           : "nowhere");
}

void Press(Qt::Key key, Qt::KeyboardModifiers held)
{
    // No window manager gives the focus back here when a dialog over the window is gone.
    if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() != nullptr) {
        QApplication::activeModalWidget()->activateWindow();
    }
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
    QTest::keyClick(QApplication::focusWidget(), key, held);
}

void PressButton(QWidget &window, const char *name)
{
    TabTo(window, name);
    Press(Qt::Key_Space);
}

void TypeInto(QWidget &window, const char *name, const QString &text)
{
    TabTo(window, name);
    Press(Qt::Key_A, Qt::ControlModifier);
    TypeOn(text);
}

void ExpectKeyboardReachesAll(const QWidget &part)
{
    const QSet<const QWidget *> reached = ReachedByTab();
    for (const QWidget *control : part.findChildren<QWidget *>()) {
        if (CanBeUsed(*control)) {
            EXPECT_TRUE(IsReached(*control, reached)) << qPrintable(control->objectName());
            EXPECT_TRUE(HasName(*control)) << qPrintable(control->objectName());
        }
    }
}

namespace {

// Of two default buttons Return would press the one that happens to be found first.
void ExpectReturnIsOk(const QWidget &window)
{
    QStringList defaults;
    for (const auto *button : window.findChildren<QPushButton *>()) {
        if (button->isDefault() && button->isVisible()) {
            defaults << button->objectName();
        }
    }
    EXPECT_LE(defaults.size(), 1) << qPrintable(defaults.join(u", "_s));
    const bool isInButton = qobject_cast<QPushButton *>(QApplication::focusWidget()) != nullptr;
    if (!isInButton && window.findChild<QPushButton *>(u"ok"_s) != nullptr) {
        EXPECT_EQ(defaults, QStringList(u"ok"_s));
    }
}

} // namespace

void ExpectWorksByKeyboard(const QWidget &window)
{
    ExpectMnemonics(window);
    const bool hasFocus = QTest::qWaitFor([&window] {
        return QApplication::focusWidget() != nullptr
            && window.isAncestorOf(QApplication::focusWidget());
    });
    ASSERT_TRUE(hasFocus) << "nothing has the focus";
    ExpectReturnIsOk(window);
    const QList<const QWidget *> met = Round(window, Qt::Key_Tab, Qt::NoModifier);
    ExpectReadingOrder(window, met);
    const QSet<const QWidget *> reached(met.begin(), met.end());
    for (const QWidget *control : window.findChildren<QWidget *>()) {
        if (CanBeUsed(*control)) {
            EXPECT_TRUE(IsReached(*control, reached)) << qPrintable(control->objectName());
        }
    }
    QList<const QWidget *> back = Round(window, Qt::Key_Backtab, Qt::ShiftModifier);
    if (!back.isEmpty()) {
        std::ranges::reverse(back.begin() + 1, back.end());
    }
    EXPECT_EQ(Names(back), Names(met)) << "Shift+Tab goes back the way that Tab came";
}
