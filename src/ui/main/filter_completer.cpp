#include "ui/main/filter_completer.h"

#include "access/user_filter.h"

#include <QAbstractItemView>
#include <QLineEdit>

#include <utility>

FilterCompleter::FilterCompleter(QLineEdit &ofField, std::function<QStringList()> ofGroupNames)
    : QCompleter(&ofField)
    , field(ofField)
    , groupNames(std::move(ofGroupNames))
{
    setModel(&candidates);
    setCompletionMode(UnfilteredPopupCompletion); // it is not the whole text that is completed
    setWidget(&field);
    popup()->setObjectName(QStringLiteral("filterWords"));
    popup()->setAccessibleName(tr("Words of a filter"));
    connect(&field, &QLineEdit::textEdited, this, &FilterCompleter::Offer);
    connect(this, qOverload<const QString &>(&QCompleter::activated), this, &FilterCompleter::Take);
}

bool FilterCompleter::IsOpen() const
{
    return popup()->isVisible();
}

bool FilterCompleter::IsChosen() const
{
    return IsOpen() && popup()->currentIndex().isValid();
}

void FilterCompleter::Offer()
{
    const auto found = CompletionAt(field.text(), field.cursorPosition(), groupNames());
    const QString word = field.text().mid(found.from, found.length);
    if (found.candidates.isEmpty() || found.candidates == QStringList(word)) {
        popup()->hide();
        return;
    }
    candidates.setStringList(found.candidates);
    complete();
    popup()->setCurrentIndex({}); // Return is for the field until the arrow keys choose a word
}

// What can still be gone on with is offered at once: names behind "group:".
void FilterCompleter::Take(const QString &candidate)
{
    const auto found = CompletionAt(field.text(), field.cursorPosition(), groupNames());
    const bool goesOn = candidate.endsWith(u':');
    QString text = field.text();
    text.replace(found.from, found.length, goesOn ? candidate : candidate + u' ');
    field.setText(text);
    field.setCursorPosition(static_cast<int>(found.from + candidate.size() + (goesOn ? 0 : 1)));
    if (goesOn) {
        QMetaObject::invokeMethod(this, &FilterCompleter::Offer, Qt::QueuedConnection);
    }
}
