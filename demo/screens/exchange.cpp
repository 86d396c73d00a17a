#include "demo/screens/studio.h"
#include "ui/exchange/import_dialog.h"
#include "ui/main/splitter_frame.h"

#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// New, changed, unchanged and refused rows.
constexpr char kUsers[] =
    "User name;Full name;Group;Create group;IP address;MAC address\n"
    "reading-room-9;Reading room 9;Library;yes;10.0.9.9;\n"
    "reading-room-10;Reading room 10;Library;yes;10.0.9.10;00-11-22-33-44-55\n"
    "front-desk;Front desk;Nowhere;no;10.0.9.11;\n"
    "archive;Archive;;no;10.0.9;\n";

} // namespace

void DrawExchange(Studio &studio)
{
    QWidget *frame = &studio.Frame();
    studio.DrawDialog(
        u"new-user"_s,
        [&] { studio.Frame().Dialogs().newUser(frame); },
        [](QDialog &dialog) {
            dialog.findChild<QLineEdit *>(u"name"_s)->setText(u"reading-room-9"_s);
        });
    if (!studio.Wants(u"import"_s)) {
        return;
    }
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"users.csv"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(kUsers) < 0) {
        studio.Fail(u"import"_s);
        return;
    }
    file.close();
    studio.DrawDialog(u"import"_s,
                      [&] { OpenImportOf(studio.Services(), file.fileName(), frame); });
}
