#include "ui/common/choice_keys.h"

#include <QKeyEvent>
#include <QTreeView>

namespace {

bool IsFirst(const QAbstractItemView &list, const QModelIndex &row)
{
    const auto *tree = qobject_cast<const QTreeView *>(&list);
    return tree == nullptr ? row.row() == 0 : !tree->indexAbove(row).isValid();
}

bool IsLast(const QAbstractItemView &list, const QModelIndex &row)
{
    const auto *tree = qobject_cast<const QTreeView *>(&list);
    return tree == nullptr ? row.row() + 1 == list.model()->rowCount(row.parent())
                           : !tree->indexBelow(row).isValid();
}

bool CanMove(const QAbstractItemView &list, int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Home:
    case Qt::Key_PageUp:
        return !IsFirst(list, list.currentIndex());
    case Qt::Key_Down:
    case Qt::Key_End:
    case Qt::Key_PageDown:
        return !IsLast(list, list.currentIndex());
    default:
        return true;
    }
}

class ChoiceKeys : public QObject
{
public:
    explicit ChoiceKeys(QAbstractItemView &keysOf) : QObject(&keysOf), list(keysOf)
    {
        list.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        return event->type() == QEvent::KeyPress
            && ChoosesCurrentRow(list, *static_cast<QKeyEvent *>(event));
    }

private:
    QAbstractItemView &list;
};

} // namespace

bool ChoosesCurrentRow(QAbstractItemView &list, const QKeyEvent &key)
{
    const QModelIndex current = list.currentIndex();
    const bool isUnchosen = current.isValid() && !list.selectionModel()->hasSelection()
        && list.selectionMode() != QAbstractItemView::NoSelection;
    const bool isPlain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!isUnchosen || !isPlain || CanMove(list, key.key())) {
        return false;
    }
    list.selectionModel()->select(current,
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return true;
}

void LetKeysChoose(QWidget &window)
{
    for (auto *list : window.findChildren<QAbstractItemView *>()) {
        new ChoiceKeys(*list);
    }
}
