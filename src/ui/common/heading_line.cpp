#include "ui/common/heading_line.h"

#include "ui/common/elided_label.h"

#include <QHBoxLayout>
#include <QStyle>

using namespace Qt::StringLiterals;

HeadingLine::HeadingLine(const QIcon &shown, const QString &words, QWidget *parent)
    : QWidget(parent)
    , picture(shown)
    , text(new ElidedLabel(words, this))
{
    text->setObjectName(u"owner"_s);
    auto *image = new QLabel(this);
    image->setPixmap(picture.pixmap(style()->pixelMetric(QStyle::PM_SmallIconSize)));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(image);
    row->addWidget(text, 1);
}

HeadingLine *HeadingLine::Copy() const
{
    return new HeadingLine(picture, text->text());
}
