// Why a user may send or not, line by line, each with the commands that would change it.
#pragma once

#include "app/why_access.h"

#include <QScrollArea>
#include <QSet>

class QVBoxLayout;

class WhyLines : public QScrollArea
{
    Q_OBJECT

public:
    enum class Commands { Shown, LeftOut };

    explicit WhyLines(Commands commands, QWidget *parent = nullptr);

    // `difference` tells what the window says otherwise; empty for nothing.
    void Show(const WhyAccess &why, const QString &difference);

    // A text in place of the lines; none for an empty one.
    void ShowText(const QString &text);

    // The letters that others in the window have, in capitals: the commands get different ones.
    void LeaveLetters(const QSet<QChar> &letters) { taken = letters; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void CommandChosen(WhyCommand command, bool ofGroup);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Clear();
    void AddText(const QString &text, bool isStrong);
    void AddCommands(const WhyLine &line);

    const bool showsCommands;
    QSet<QChar> taken;
    QWidget *content = nullptr; // all that is shown, made anew each time
    QVBoxLayout *lines = nullptr;
    QVBoxLayout *column = nullptr; // of the content
};
