#include "db/session.h"
#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"

#include <QDialog>

using namespace Qt::StringLiterals;

void DrawAccounts(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    QWidget *frame = &studio.Frame();
    RunQuery("SELECT user_id FROM users WHERE mode = 2", FetchMode::One);
    const quint32 user = queryResult.Integer(1);
    studio.DrawDialog(u"account"_s, [&] { dialogs.userAccount(user, frame); });
    studio.DrawDialog(u"statistics"_s, [&] { dialogs.userStatistics(user, frame); });
}
