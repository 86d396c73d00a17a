// A dark desktop for as long as this lives.
#pragma once

#include <QApplication>
#include <QPalette>

class DarkPalette
{
public:
    DarkPalette() : previous(QApplication::palette())
    {
        QPalette dark(QColor(0x35, 0x38, 0x3d), QColor(0x2b, 0x2d, 0x31));
        dark.setColor(QPalette::Base, QColor(0x1f, 0x21, 0x24));
        QApplication::setPalette(dark);
    }
    ~DarkPalette() { QApplication::setPalette(previous); }
    DarkPalette(const DarkPalette &) = delete;
    DarkPalette &operator=(const DarkPalette &) = delete;

private:
    QPalette previous;
};
