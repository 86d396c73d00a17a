// What a list says while it has no rows.
#pragma once

#include <QLabel>

class QAbstractItemView;

// Stands in the middle of the list, which owns it, for as long as there are no rows; a screen reader
// says it as the list's description.
class EmptyNote : public QLabel
{
    Q_OBJECT

public:
    // `view` has the model that it will keep. An empty text says nothing.
    explicit EmptyNote(QAbstractItemView &view, const QString &text = {});

    void Say(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void FollowRows();
    void FillList();
    [[nodiscard]] QAbstractItemView *List() const; // null while the list is being destroyed
};
