#include "ui/props/block_box.h"

#include "ui/common/controls.h"
#include "ui/common/icons.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

using namespace Qt::StringLiterals;

BlockBox::BlockBox(const QString &text, QWidget *parent)
    : QWidget(parent)
    , picture(new QLabel)
    , words(new QLabel)
    , block(MakeButton<QCheckBox>(text, "block"))
{
    picture->setObjectName(u"accessPicture"_s);
    words->setObjectName(u"accessState"_s);
    auto *state = new QHBoxLayout;
    state->addWidget(picture);
    state->addWidget(words);
    state->addStretch();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(state);
    column->addWidget(block);
    connect(block, &QCheckBox::toggled, this, &BlockBox::ShowDenied);
}

void BlockBox::Show(const BlockState &state)
{
    block->setChecked(state.requested);
    block->setEnabled(state.editable);
    ShowDenied(state.requested);
}

void BlockBox::Collect(BlockState &state) const
{
    state.requested = block->isChecked();
    state.editable = block->isEnabled();
}

void BlockBox::ShowDenied(bool denied)
{
    const Picture shown = denied ? Picture::AccessBlocked : Picture::AccessAllowed;
    picture->setPixmap(IconOf(shown).pixmap(style()->pixelMetric(QStyle::PM_LargeIconSize)));
    words->setText(denied ? tr("Access is denied") : tr("Access is allowed"));
    block->setAccessibleDescription(words->text());
}
