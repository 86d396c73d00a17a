// A modal sheet of pages behind tabs, with OK and Cancel. It knows nothing of what its pages hold
// and remembers nothing from one run to the next.
#pragma once

#include "ui/common/dialog.h"
#include "ui/common/page.h"

#include <functional>
#include <vector>

class QDialogButtonBox;
class QTabWidget;

class Sheet : public Dialog
{
    Q_OBJECT

public:
    Sheet(const QString &caption, QWidget *parent);

    // Adds the page as the last tab; the sheet owns it from now on.
    void Add(Page *page);

    // Stores what was collected, on OK. When it was not stored, which `apply` tells itself, the sheet
    // stays open with everything that was typed. Without it an OK only collects.
    void SetApply(std::function<bool()> newApply);

    // Loads every page and makes `page` the active one; a number that names no page stands for the
    // first. Run does this itself.
    void Start(int page);

    // Shows the sheet until it is closed. True for an OK that every page agreed to and that was
    // stored.
    [[nodiscard]] bool Run(int page);

    [[nodiscard]] int Active() const { return active; }

    // Turns to a page as a click on its tab does: the active page is asked first.
    void TurnTo(int page);

    // OK. When a page refuses to be left, that page becomes active and the sheet stays open. It may
    // collect several times before it closes.
    void accept() override;

signals:
    // A page became the active one, or stayed it after refusing to be left.
    void Turned(int page);

protected:
    // Puts a widget of the heir's own beside the pages in place of their tabs.
    void ReplaceTabs(QWidget *navigator);
    [[nodiscard]] QDialogButtonBox &Buttons() { return *buttons; }

private:
    void AddKeys();
    void Turn(int step);
    void TabChosen(int page);
    void Show(int page);

    QTabWidget *tabs;
    QDialogButtonBox *buttons;
    std::vector<Page *> pages;
    std::function<bool()> apply;
    int active = -1;
};
