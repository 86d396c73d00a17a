#include "ui/common/artwork_engine.h"

#include <QApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

#include <utility>

using namespace Qt::StringLiterals;

ArtworkEngine::ArtworkEngine(QString newFile, QString newSelectedFile)
    : normal {std::move(newFile), nullptr}
    , selected {std::move(newSelectedFile), nullptr}
{ }

void ArtworkEngine::Drawing::Render(QPainter &painter, const QRect &area)
{
    if (!renderer) {
        renderer = std::make_unique<QSvgRenderer>(file);
        renderer->setAspectRatioMode(Qt::KeepAspectRatio);
    }
    renderer->render(&painter, area);
}

void ArtworkEngine::paint(QPainter *painter,
                          const QRect &area,
                          QIcon::Mode mode,
                          QIcon::State state)
{
    const qreal scale = painter->device()->devicePixelRatioF();
    painter->drawPixmap(area, scaledPixmap(area.size() * scale, mode, state, scale));
}

QPixmap ArtworkEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/)
{
    Drawing &drawing = mode == QIcon::Selected ? selected : normal;
    const bool disabled = mode == QIcon::Disabled;
    const QString key = u"%1 %2x%3 %4"_s.arg(drawing.file)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(disabled ? QApplication::palette().cacheKey() : 0);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) {
        return pixmap;
    }
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.Render(painter, pixmap.rect());
    painter.end();
    if (disabled) {
        QStyleOption option;
        option.palette = QApplication::palette();
        pixmap = QApplication::style()->generatedIconPixmap(mode, pixmap, &option);
    }
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QList<QSize> ArtworkEngine::availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/)
{
    return {{16, 16}, {32, 32}, {64, 64}};
}

QIconEngine *ArtworkEngine::clone() const
{
    return new ArtworkEngine(normal.file, selected.file);
}
