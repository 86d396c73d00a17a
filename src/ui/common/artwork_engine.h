// One drawing of the program's artwork behind a QIcon. Parsed when it is first shown: most pictures stand
// in menus and windows that are not open yet when the console starts.
#pragma once

#include <QIconEngine>
#include <QSvgRenderer>

#include <memory>

class ArtworkEngine : public QIconEngine
{
public:
    // The SVG files of the picture and of the picture in a selected row; they may be the same.
    ArtworkEngine(QString newFile, QString newSelectedFile);

    void paint(QPainter *painter, const QRect &area, QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    // What a window hands to the desktop at its start; any other size is drawn when it is asked for.
    [[nodiscard]] QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QIconEngine *clone() const override;
    [[nodiscard]] bool isNull() override { return false; }

private:
    struct Drawing
    {
        QString file;
        std::unique_ptr<QSvgRenderer> renderer; // made on first use

        void Render(QPainter &painter, const QRect &area);
    };

    Drawing normal;
    Drawing selected;
};
