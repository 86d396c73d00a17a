// "Find user:", a toolbar of the main window: what is typed narrows the users list to those that match,
// out of all in the database.
#pragma once

#include "base/prompt.h"

#include <QTimer>
#include <QToolBar>

#include <functional>

class CAdministratorView;
class ElidedLabel;
class FilterCompleter;
class QMenu;
class TextField;

class FindBar : public QToolBar
{
    Q_OBJECT

public:
    // `groupNames` gives the groups to complete with. `users` must outlive the bar.
    FindBar(Prompt &prompt,
            CAdministratorView &users,
            std::function<QStringList()> groupNames,
            QWidget *parent);

    void TakeFocus();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void AddField();
    void AddSearch();
    void AddSavedFilters();
    void FollowList();
    void Say(const QString &text);
    void ShowNote();
    void TextChanged();
    bool FilterByText();
    void Search();
    void GoToFoundIfAsked();
    void GoToFound();
    void TellNobody();
    void FillSavedFilters(QMenu &menu);
    void SaveFilter();
    void RemoveFilter(const QString &name);
    [[nodiscard]] bool MaySaveAs(const QString &name) const;
    void TellUnkept(bool kept);

    Prompt &prompt;
    CAdministratorView &users;
    TextField *field;
    FilterCompleter *completer;
    ElidedLabel *note;
    QString said; // in the note: how many were found, or why nothing is looked for
    QTimer pause {this}; // since the last key
    bool goesToFound = false; // once all that matches is known
};
