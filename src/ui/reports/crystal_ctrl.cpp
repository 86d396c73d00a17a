#include "ui/reports/crystal_ctrl.h"

#include "ui/reports/report_viewer.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace viewer_property;

bool CCrystalCtrl::Create(
    Prompt &prompt, const QString &title, const QRect &place, QWidget *parent, int id)
{
    setParent(parent);
    setWindowTitle(title);
    setProperty("id", id);
    setGeometry(place);
    auto *inside = new QVBoxLayout(this);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(new ReportViewer(prompt));
    return true;
}

ReportViewer *CCrystalCtrl::Control() const
{
    return findChild<ReportViewer *>();
}

void CCrystalCtrl::SetLayoutFile(const QByteArray &path)
{
    Control()->PutProperty(kLayoutFile, path);
}

void CCrystalCtrl::SetAction(qint16 action)
{
    Control()->PutProperty(kAction, action);
}

void CCrystalCtrl::SetConnection(const QByteArray &text)
{
    Control()->PutProperty(kConnection, text);
}

void CCrystalCtrl::SetOption24(qint32 value)
{
    Control()->PutProperty(kCopies, value);
}

void CCrystalCtrl::SetQuery(const QByteArray &text)
{
    Control()->PutProperty(kQuery, text);
}

void CCrystalCtrl::SetOutputMode(qint32 mode)
{
    Control()->PutProperty(kOutputMode, mode);
}

void CCrystalCtrl::SetOption120(bool on)
{
    Control()->PutProperty(kPrintButton, on);
}

void CCrystalCtrl::SetOption123(bool on)
{
    Control()->PutProperty(kExportButton, on);
}

void CCrystalCtrl::SetOption125(bool on)
{
    Control()->PutProperty(kPageButtons, on);
}
