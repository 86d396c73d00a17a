// The adapter in use, its address, and the list to pick another from.
#pragma once

#include "admin/adapters.h"
#include "base/prompt.h"

#include <QWidget>

class QComboBox;
class QLineEdit;

class AdapterChooser : public QWidget
{
    Q_OBJECT

public:
    AdapterChooser(Prompt &prompt, const QList<Adapter> &adapters, QWidget *parent = nullptr);

    // The description is shown as it stands; the address is the one of the listed adapter that has
    // exactly this description.
    void SetCurrent(const QString &description);
    void SetMayChange(bool mayChange);

    // An adapter is picked out of the open list only: each key that would change the choice opens it.
    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    // The administrator picked another adapter and said Yes. A No leaves everything as it was.
    void Picked(const Adapter &adapter);

private:
    void Pick(int row);

    Prompt &prompt;
    QList<Adapter> adapters; // those that may be chosen
    QLineEdit *current;
    QLineEdit *address;
    QComboBox *choice;
};
