#include "ui/common/accessible.h"

#include <QLabel>

using namespace Qt::StringLiterals;

QString PlainLabel(const QString &label)
{
    QString plain = label;
    plain.replace(u"&&"_s, u"\x1"_s).remove(u'&').replace(u'\x1', u'&');
    const auto isEnd = [](QChar c) { return c.isSpace() || u":,.\u2026"_s.contains(c); };
    while (!plain.isEmpty() && isEnd(plain.back())) {
        plain.chop(1);
    }
    return plain.trimmed();
}

void SetNames(QWidget &widget, const QString &objectName, const QString &accessibleName)
{
    widget.setObjectName(objectName);
    widget.setAccessibleName(accessibleName);
}

QLabel *LabelFor(const QString &text, QWidget &field)
{
    auto *label = new QLabel(text, field.parentWidget());
    label->setBuddy(&field);
    if (field.accessibleName().isEmpty()) {
        field.setAccessibleName(PlainLabel(text));
    }
    return label;
}
