// The tool bar above a report's pages: turns them, zooms, and asks for searches, print-outs and files.
#pragma once

#include "base/prompt.h"

#include <QKeySequence>
#include <QToolBar>

class NumberField;
class PageView;
class QComboBox;
class QLabel;
class QLineEdit;

class ViewerBar : public QToolBar
{
    Q_OBJECT

public:
    // What cannot be done is told by `prompt`.
    ViewerBar(Prompt &prompt, PageView &pages, QWidget *parent = nullptr);

    // Whether there is a report that can be searched, printed and saved, and whether something is done
    // with it at present; shows its place and length.
    void SetUsable(bool hasPages, bool isBusy);

    void ShowPrint(bool shown) { print->setVisible(shown); }
    void ShowSave(bool shown) { save->setVisible(shown); }
    void ShowPageButtons(bool shown);

    void ShowBack(bool shown) { back->setVisible(shown); }
    void ShowOutline(bool shown) { outline->setVisible(shown); }
    [[nodiscard]] bool WantsOutline() const { return outline->isChecked(); }

    // Whether the rows are wanted as a table instead of the pages.
    [[nodiscard]] bool WantsTable() const { return asTable->isChecked(); }

signals:
    void FindAsked(const QString &text); // never empty
    void PrintAsked();
    void SaveAsked();
    void PageSetupAsked();
    void BackAsked();
    void OutlineAsked(); // or the pages alone again
    void TableAsked(); // or the pages again
    void FilterAsked(); // the key of a search, while there is a table

private:
    void AddPageButtons();
    void AddZoom();
    void AddFind();
    void AddTable();
    void SuitTable();
    [[nodiscard]] QAction *Command(const char *name,
                                   const QString &text,
                                   const QKeySequence &key,
                                   void (ViewerBar::*act)());
    void AddPageButton(const char *name,
                       const QString &sign,
                       const QString &words,
                       const QKeySequence &key,
                       void (ViewerBar::*act)());
    [[nodiscard]] int PageCount() const;
    void First();
    void Previous();
    void Next();
    void Last();
    void StartFind();
    void AskFind();
    void AskPage();
    void GoToTyped();
    void ShowPage(int page); // from 0

    Prompt &prompt;
    PageView &view;
    NumberField *pageNumber;
    quint32 shownNumber = 0; // of the page that shows; 0 for none
    QLabel *pageCount;
    QComboBox *zoom;
    QLineEdit *find;
    QAction *back;
    QAction *outline;
    QAction *asTable;
    QAction *findNext;
    QAction *print;
    QAction *save;
    QAction *pageSetup;
    QList<QAction *> pageButtons;
    bool isUsable = false;
};
