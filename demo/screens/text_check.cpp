#include "demo/screens/text_check.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class TextCheck
{
public:
    TextCheck(QWidget &whole, const QSet<QString> &known) : window(whole), data(known) { }

    QStringList Problems()
    {
        Look(window.windowTitle(), &window);
        for (auto *widget : window.findChildren<QWidget *>()) {
            if (widget->isVisibleTo(&window)) {
                Look(widget->toolTip(), widget);
                LookAtKind(widget);
            }
        }
        for (const auto *action : window.findChildren<QAction *>()) {
            if (action->isVisible()) {
                Look(action->text(), action);
            }
        }
        problems.removeDuplicates();
        return problems;
    }

private:
    void LookAtKind(QWidget *widget)
    {
        if (const auto *label = qobject_cast<QLabel *>(widget)) {
            Look(label->text(), label);
            LookForRoom(*label);
        } else if (const auto *button = qobject_cast<QAbstractButton *>(widget)) {
            Look(button->text(), button);
            if (!ShowsIconAlone(*button)) {
                ExpectRoom(button->text(), button->sizeHint().width(), button);
            }
        } else if (const auto *box = qobject_cast<QGroupBox *>(widget)) {
            Look(box->title(), box);
            ExpectRoom(box->title(), box->fontMetrics().horizontalAdvance(box->title()), box);
        } else if (const auto *chooser = qobject_cast<QComboBox *>(widget)) {
            for (int index = 0; index < chooser->count(); ++index) {
                Look(chooser->itemText(index), chooser);
            }
        } else if (const auto *tabs = qobject_cast<QTabBar *>(widget)) {
            for (int index = 0; index < tabs->count(); ++index) {
                Look(tabs->tabText(index), tabs);
            }
        } else if (const auto *header = qobject_cast<QHeaderView *>(widget)) {
            LookAtHeader(*header);
        } else if (const auto *field = qobject_cast<QLineEdit *>(widget)) {
            Look(field->placeholderText(), field);
        }
    }

    static bool ShowsIconAlone(const QAbstractButton &button)
    {
        const auto *tool = qobject_cast<const QToolButton *>(&button);
        return tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonIconOnly
            && !tool->icon().isNull();
    }

    // A person drags a section wider, so that it need not show all of its text.
    void LookAtHeader(const QHeaderView &header)
    {
        for (int section = 0; section < header.count(); ++section) {
            if (!header.isSectionHidden(section)) {
                Look(header.model()->headerData(section, header.orientation()).toString(), &header);
            }
        }
    }

    void LookForRoom(const QLabel &label)
    {
        if (label.text().isEmpty()
            || label.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) {
            return; // made to be cut, with the whole in its tool tip
        }
        const bool isCut = label.wordWrap() ? label.heightForWidth(label.width()) > label.height()
                                            : label.minimumSizeHint().width() > label.width();
        if (isCut) {
            Note(u"cut"_s, label.text(), &label);
        }
    }

    void ExpectRoom(const QString &text, int needed, const QWidget *widget)
    {
        if (!text.isEmpty() && needed > widget->width()) {
            Note(u"cut"_s, text, widget);
        }
    }

    // Numbers, dates and names are the same in every language.
    void Look(const QString &text, const QObject *where)
    {
        static const QRegularExpression word(u"\\p{L}{2}"_s);
        if (text.contains(word) && !text.contains(u'[') && !data.contains(text)) {
            Note(u"not translated"_s, text, where);
        }
    }

    void Note(const QString &what, const QString &text, const QObject *where)
    {
        problems << u"%1: \"%2\" in %3 %4"_s.arg(
            what, text, QString::fromLatin1(where->metaObject()->className()), where->objectName());
    }

    QWidget &window;
    const QSet<QString> &data;
    QStringList problems;
};

} // namespace

QStringList TextProblems(QWidget &window, const QSet<QString> &data)
{
    return TextCheck(window, data).Problems();
}
