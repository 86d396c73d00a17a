#include "ui/main/about_dialog.h"

#include "ui/common/icons.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

void OpenAbout(QWidget *parent)
{
    constexpr int kPictureSize = 64;
    QMessageBox box(parent);
    box.setObjectName(u"aboutDialog"_s);
    box.setWindowTitle(u"About Tollbrook Administrator"_s);
    box.setIconPixmap(IconOf(Picture::Application)
                          .pixmap(QSize(kPictureSize, kPictureSize), parent->devicePixelRatioF()));
    box.setText(u"<b>Tollbrook Administrator</b> %1"_s.arg(QApplication::applicationVersion()));
    box.setInformativeText(
        u"The administration console of Tollbrook Network: users, groups, limits, "
        "credits and blocks of the accounting service.\n\n"
        "Licensed under the Apache License, version 2.0."_s);
    box.exec();
}
