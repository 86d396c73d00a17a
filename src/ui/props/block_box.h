// Whether access is allowed or denied, as a picture and in words, and the box that blocks at once.
#pragma once

#include "access/block_state.h"

#include <QWidget>

class QCheckBox;
class QLabel;

class BlockBox : public QWidget
{
    Q_OBJECT

public:
    // `text` is the check box's.
    explicit BlockBox(const QString &text, QWidget *parent = nullptr);

    void Show(const BlockState &state);

    // Leaves what the box says in the state.
    void Collect(BlockState &state) const;

private:
    void ShowDenied(bool denied);

    QLabel *picture;
    QLabel *words;
    QCheckBox *block;
};
