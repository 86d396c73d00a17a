#include "ui/common/empty_note.h"

#include <QAbstractItemView>
#include <QEvent>

using namespace Qt::StringLiterals;

EmptyNote::EmptyNote(QAbstractItemView &view, const QString &text) : QLabel(text, &view)
{
    setObjectName(u"emptyNote"_s);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    setMargin(fontMetrics().height() / 2);
    setForegroundRole(QPalette::PlaceholderText);
    setAttribute(Qt::WA_TransparentForMouseEvents); // the list has its clicks and drops
    view.viewport()->installEventFilter(this);
    const QAbstractItemModel *model = view.model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &EmptyNote::FollowRows);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &EmptyNote::FollowRows);
    connect(model, &QAbstractItemModel::modelReset, this, &EmptyNote::FollowRows);
    FillList();
    FollowRows();
}

void EmptyNote::Say(const QString &text)
{
    setText(text);
    FollowRows();
}

bool EmptyNote::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        FillList();
    }
    return QLabel::eventFilter(watched, event);
}

void EmptyNote::FollowRows()
{
    QAbstractItemView *view = List();
    if (view == nullptr) {
        return;
    }
    const bool isShown = view->model()->rowCount() == 0 && !text().isEmpty();
    setVisible(isShown);
    view->setAccessibleDescription(isShown ? text() : QString());
}

// A part of the list's ground would scroll with the columns.
void EmptyNote::FillList()
{
    if (const QAbstractItemView *view = List()) {
        setGeometry(view->viewport()->geometry());
    }
}

// A list that goes empties its rows at the end, when it is no list any more.
QAbstractItemView *EmptyNote::List() const
{
    return qobject_cast<QAbstractItemView *>(parentWidget());
}
