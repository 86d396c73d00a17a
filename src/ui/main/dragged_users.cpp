#include "ui/main/dragged_users.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

const QString kType = u"application/x-tollbrook-users"_s;

// Nobody else knows it: ids of another database may not be taken for users of this one.
const QUuid &ThisProgram()
{
    static const QUuid token = QUuid::createUuid();
    return token;
}

} // namespace

QMimeData *DataOfUsers(const QList<UserId> &userIds)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << ThisProgram();
    for (const UserId userId : userIds) {
        stream << userId.value;
    }
    auto *data = new QMimeData;
    data->setData(kType, bytes);
    return data;
}

QList<UserId> UsersIn(const QMimeData &data)
{
    QDataStream stream(data.data(kType));
    QUuid program;
    stream >> program;
    QList<UserId> userIds;
    while (program == ThisProgram() && !stream.atEnd()) {
        quint32 value = 0;
        stream >> value;
        userIds << UserId {value};
    }
    return userIds;
}
