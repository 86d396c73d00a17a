#include "support/windows/widgets.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

bool IsShown(const QObject &root, const char *name)
{
    const auto *widget = root.findChild<QWidget *>(QString::fromLatin1(name));
    return widget != nullptr && widget->isVisible();
}

void Type(QWidget &field, const QString &text)
{
    field.setFocus(Qt::TabFocusReason);
    QWidget *target = field.focusProxy() != nullptr ? field.focusProxy() : &field;
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(target, Qt::Key_Delete);
    for (const QChar c : text) {
        // A field of several parts passes the focus on as it fills.
        QWidget *focused = QApplication::focusWidget();
        QWidget *taker = focused != nullptr && field.isAncestorOf(focused) ? focused : target;
        QTest::sendKeyEvent(QTest::Click, taker, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void Paste(QWidget &field, const QString &text)
{
    QApplication::clipboard()->setText(text);
    field.setFocus(Qt::TabFocusReason);
    QWidget *target = field.focusProxy() != nullptr ? field.focusProxy() : &field;
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    QTest::keySequence(target, QKeySequence::Paste);
}

void Click(QAbstractButton &button)
{
    ASSERT_TRUE(button.isVisible()) << qPrintable(button.objectName());
    ASSERT_TRUE(button.isEnabled()) << qPrintable(button.objectName());
    QPoint place = button.rect().center();
    if (button.inherits("QCheckBox") || button.inherits("QRadioButton")) {
        place = QPoint(button.height() / 2, button.height() / 2);
    }
    QTest::mouseClick(&button, Qt::LeftButton, {}, place);
}

void Click(const QObject &root, const char *name)
{
    Click(Find<QAbstractButton>(root, name));
}

void Choose(QComboBox &box, const QString &text)
{
    const int wanted = box.findText(text);
    ASSERT_GE(wanted, 0) << qPrintable(text);
    ASSERT_TRUE(box.isEnabled()) << qPrintable(box.objectName());
    box.setFocus(Qt::TabFocusReason);
    if (box.currentIndex() < 0) {
        QTest::keyClick(&box, Qt::Key_Down);
    }
    while (box.currentIndex() != wanted) {
        const int before = box.currentIndex();
        QTest::keyClick(&box, before < wanted ? Qt::Key_Down : Qt::Key_Up);
        ASSERT_NE(box.currentIndex(), before) << qPrintable(text);
    }
    emit box.activated(wanted);
}

void TurnTo(QTabWidget &tabs, const QString &text)
{
    for (int index = 0; index < tabs.count(); ++index) {
        if (tabs.tabText(index).remove(u'&') == text) {
            QTest::mouseClick(
                tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(index).center());
            return;
        }
    }
    FAIL() << "no tab " << qPrintable(text);
}

namespace {

QPoint PlaceOf(QAbstractItemView &view, int row, int column)
{
    const QModelIndex cell = view.model()->index(row, column);
    EXPECT_TRUE(cell.isValid()) << row << ", " << column;
    view.scrollTo(cell);
    return view.visualRect(cell).center();
}

} // namespace

void ClickCell(QAbstractItemView &view, int row, int column, Qt::KeyboardModifiers held)
{
    QTest::mouseClick(view.viewport(), Qt::LeftButton, held, PlaceOf(view, row, column));
}

void DoubleClickCell(QAbstractItemView &view, int row, int column)
{
    const QPoint place = PlaceOf(view, row, column);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
}

QString WithoutMark(QString text)
{
    return text.remove(u'&');
}

QStringList RowTexts(const QAbstractItemView &view)
{
    const QAbstractItemModel &model = *view.model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            cells << model.index(row, column).data().toString();
        }
        rows << cells.join(u'|');
    }
    return rows;
}

namespace {

// As it is shown: an "&" that stands for itself is written twice.
QString WithoutMnemonic(QString text)
{
    return text.replace(QRegularExpression(u"&(.)"_s), u"\\1"_s);
}

} // namespace

QStringList MenuTexts(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions()) {
        if (action->isVisible()) {
            const QString mark = (action->isChecked() ? u"*"_s : QString())
                + (action->isEnabled() ? QString() : u"~"_s);
            texts << (action->isSeparator() ? u"-"_s : mark + WithoutMnemonic(action->text()));
        }
    }
    return texts;
}

void Choose(QMenu &menu, const QString &text)
{
    for (QAction *action : menu.actions()) {
        if (action->isVisible() && WithoutMnemonic(action->text()) == text) {
            ASSERT_TRUE(action->isEnabled()) << qPrintable(text);
            menu.setActiveAction(action);
            QTest::keyClick(&menu, Qt::Key_Return);
            return;
        }
    }
    FAIL() << "no entry " << qPrintable(text) << " in " << qPrintable(MenuTexts(menu).join(u", "));
}

void Grab(QWidget &window, const QString &name)
{
    const QString folder = qEnvironmentVariable("TB_SCREENS");
    if (!folder.isEmpty()) {
        QDir().mkpath(folder);
        EXPECT_TRUE(window.grab().save(u"%1/%2.png"_s.arg(folder, name)));
    }
}
