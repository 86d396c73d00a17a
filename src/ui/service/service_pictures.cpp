#include "ui/service/service_pictures.h"

#include "ui/common/accessible.h"

#include <QIcon>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(96, 64);

}

// Outside any namespace, as the resource compiler's function is.
static void LoadPictures()
{
    Q_INIT_RESOURCE(service_pictures);
}

QLabel *PictureLabel(const QString &picture, const QString &words, QWidget *parent)
{
    LoadPictures();
    auto *label = new QLabel(parent);
    const QIcon icon(u":/service/%1.svg"_s.arg(picture));
    label->setPixmap(icon.pixmap(kSize, parent->devicePixelRatio()));
    SetNames(*label, picture, words);
    label->setToolTip(words);
    return label;
}
