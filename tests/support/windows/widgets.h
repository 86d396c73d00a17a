// Finding controls by name and working with them as a person does.
#pragma once

#include <QAbstractButton>
#include <QItemSelectionModel>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

class QAbstractItemView;
class QAction;
class QComboBox;
class QMenu;
class QTabWidget;

// The one descendant called `name`; the test ends when there is none of this type.
template <typename T = QWidget>
[[nodiscard]] T &Find(const QObject &root, const char *name)
{
    T *found = root.findChild<T *>(QString::fromLatin1(name));
    if (found == nullptr) {
        qFatal("no %s named %s in %s",
               T::staticMetaObject.className(),
               name,
               qPrintable(root.objectName()));
    }
    return *found;
}

// True when there is a descendant called `name` that a person can see.
[[nodiscard]] bool IsShown(const QObject &root, const char *name);

// Puts the focus into the field, replaces what stands in it, one key at a time.
void Type(QWidget &field, const QString &text);

// Puts `text` on the clipboard and pastes it over the field's whole text.
void Paste(QWidget &field, const QString &text);

// Clicks in the middle (a check box or radio button: on its mark). Fails on a disabled button.
void Click(QAbstractButton &button);

// The button of the window called `name`.
void Click(const QObject &root, const char *name);

// Chooses the entry with this text; fails when there is none.
void Choose(QComboBox &box, const QString &text);

// Turns to the tab with this text by the mouse; fails when there is none.
void TurnTo(QTabWidget &tabs, const QString &text);

// Clicks on a cell, with Ctrl to add it to the selection. A double click follows a click.
void ClickCell(QAbstractItemView &view, int row, int column, Qt::KeyboardModifiers held = {});
void DoubleClickCell(QAbstractItemView &view, int row, int column);

// The text of a label or button as it is shown: without the mark of its mnemonic.
[[nodiscard]] QString WithoutMark(QString text);

// The shown texts of a list, one string for each row, columns joined with "|".
[[nodiscard]] QStringList RowTexts(const QAbstractItemView &view);

// The visible entries' texts of a menu, a separator as "-", a disabled entry with "~" before it, a
// checked one with "*".
[[nodiscard]] QStringList MenuTexts(const QMenu &menu);

// Chooses the entry with this text by the keyboard; fails when it is missing or disabled.
void Choose(QMenu &menu, const QString &text);

// Writes a picture of the window to $TB_SCREENS/`name`.png; does nothing without that variable.
void Grab(QWidget &window, const QString &name);
