// What a page is drawn on: paper, a picture inside a web page, or nothing but the list of its texts.
#pragma once

#include "reports/paper.h"

#include <QPainterPath>

class QImage;
class QPainter;

// How a line of text looks. `pixels` 0 is the style's own size.
struct TextLook
{
    paper::Style style = paper::Style::Text;
    QColor colour = paper::kInk;
    Qt::AlignmentFlag side = Qt::AlignLeft; // or AlignRight, AlignHCenter
    int pixels = 0;
};

// Lengths are those of paper.h.
class Canvas
{
public:
    Canvas() = default;
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;
    virtual ~Canvas() = default;

    // One line in the middle of its place's height; it is drawn as it is, however long.
    virtual void Draw(const QRectF &place, const QString &line, const TextLook &look) = 0;
    virtual void Fill(const QRectF &place, const QColor &colour) = 0;
    virtual void FillPath(const QPainterPath &path, const QColor &colour) = 0;
    virtual void Line(QPointF from, QPointF to, double thickness, const QColor &colour) = 0;
    virtual void Picture(const QRectF &place, const QImage &picture) = 0;

    // What stands at a place, whole, even where no more than a part of it is drawn or it takes several
    // lines: for those who search and for those who listen.
    virtual void Say(const QRectF &place, const QString &text, const TextLook &look) = 0;

    // Says and draws a line that is cut with an ellipsis where it is too long. Nothing for no text.
    void Write(const QRectF &place, const QString &text, const TextLook &look);

    // The same for what is known to find room.
    void WriteFitting(const QRectF &place, const QString &text, const TextLook &look);

    // The same for what holds a number, which is never cut: its type is made smaller.
    void WriteWhole(const QRectF &place, const QString &text, TextLook look);
};

class PainterCanvas : public Canvas
{
public:
    // The painter's unit is that of paper.h.
    explicit PainterCanvas(QPainter &onPainter) : painter(onPainter) { }

    void Draw(const QRectF &place, const QString &line, const TextLook &look) override;
    void Fill(const QRectF &place, const QColor &colour) override;
    void FillPath(const QPainterPath &path, const QColor &colour) override;
    void Line(QPointF from, QPointF to, double thickness, const QColor &colour) override;
    void Picture(const QRectF &place, const QImage &picture) override;
    void Say(const QRectF &, const QString &, const TextLook &) override { }

private:
    QPainter &painter;
};

struct PlacedText
{
    QRectF place;
    QString text;
    TextLook look;

    // Where the letters from `first` on stand; the whole place of a text of several lines or of one that
    // is cut.
    [[nodiscard]] QRectF PlaceOf(qsizetype first, qsizetype count) const;
};

// Draws nothing.
class TextCanvas : public Canvas
{
public:
    void Draw(const QRectF &, const QString &, const TextLook &) override { }
    void Fill(const QRectF &, const QColor &) override { }
    void FillPath(const QPainterPath &, const QColor &) override { }
    void Line(QPointF, QPointF, double, const QColor &) override { }
    void Picture(const QRectF &, const QImage &) override { }
    void Say(const QRectF &place, const QString &text, const TextLook &look) override
    {
        texts.push_back({place, text, look});
    }

    std::vector<PlacedText> texts; // in the order of the page
};
