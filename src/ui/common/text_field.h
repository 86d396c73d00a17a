// A line of text that always fits the database's or the configuration store's buffer.
#pragma once

#include "base/text.h"

#include <QLineEdit>

// Never holds more than `maxBytes` of UTF-8: what is typed beyond is refused, what is pasted is cut
// at its end, and a character is kept whole or not at all.
class TextField : public QLineEdit
{
    Q_OBJECT

public:
    explicit TextField(QWidget *parent = nullptr, qsizetype maxBytes = kMaxTextBytes);
};
