#include "ui/main/about_dialog.h"

#include "ui/common/icons.h"

#include <QApplication>
#include <QCoreApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(AboutDialog)
};

} // namespace

void OpenAbout(QWidget *parent)
{
    constexpr int kPictureSize = 64;
    QMessageBox box(parent);
    box.setObjectName(u"aboutDialog"_s);
    box.setWindowTitle(Words::tr("About Tollbrook Administrator"));
    box.setIconPixmap(IconOf(Picture::Application)
                          .pixmap(QSize(kPictureSize, kPictureSize), parent->devicePixelRatioF()));
    box.setText(
        Words::tr("<b>Tollbrook Administrator</b> %1").arg(QApplication::applicationVersion()));
    box.setInformativeText(
        Words::tr("The administration console of Tollbrook Network: users, groups, limits, "
                  "credits and blocks of the accounting service.\n\n"
                  "Licensed under the Apache License, version 2.0."));
    box.exec();
}
