#include "ui/common/text_field.h"

#include <QValidator>

namespace {

// The line edit asks after each change, with the cursor at the end of what came in.
class ByteBound : public QValidator
{
public:
    ByteBound(qsizetype bound, QObject *parent) : QValidator(parent), maxBytes(bound) { }

    State validate(QString &input, int &cursor) const override
    {
        if (input.toUtf8().size() > maxBytes) {
            const QString after = Fitting(input.mid(cursor), maxBytes);
            const QString before = Fitting(input.left(cursor), maxBytes - after.toUtf8().size());
            input = before + after;
            cursor = static_cast<int>(before.size());
        }
        return Acceptable;
    }

private:
    static QString Fitting(const QString &text, qsizetype bytes)
    {
        return QString::fromUtf8(Utf8Cut(text, bytes));
    }

    qsizetype maxBytes;
};

} // namespace

TextField::TextField(QWidget *parent, qsizetype maxBytes) : QLineEdit(parent)
{
    setValidator(new ByteBound(maxBytes, this));
}
