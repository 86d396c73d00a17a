// One page of a sheet: it shows and collects, the values live with whoever opened the sheet.
#pragma once

#include <QWidget>

class Page : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    // The text on the page's tab.
    [[nodiscard]] virtual QString Title() const = 0;

    // Fills the controls. Called once for every page, in page order, before the first one is shown.
    virtual void Load() { }

    // Called each time the page becomes the active one, after Load.
    virtual void Activate() { }

    // Asked of the active page before another becomes active, and of every page on OK. A page that
    // refuses says why itself and stays, or becomes, the active one.
    [[nodiscard]] virtual bool Leave() { return true; }

    // Leaves the page's results with the one that opened the sheet. Called for every page on OK,
    // in page order, once all of them agreed to be left; again on the next OK when the results could
    // not be stored.
    virtual void Collect() { }
};
