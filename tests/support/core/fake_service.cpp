#include "support/core/fake_service.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QMutex>

#include <gtest/gtest.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kManager = u"org.freedesktop.systemd1"_s;
const QString kAccounting = u"org.tollbrook.Accounting"_s;
const QString kUnitPath = u"/org/freedesktop/systemd1/unit/tollbrooksvc_2eservice"_s;
const QString kTestInterface = u"org.tollbrook.Test"_s;

QString PathOf(const QString &unit)
{
    return u"/org/freedesktop/systemd1/unit/_"_s + QString::fromLatin1(unit.toUtf8().toHex());
}

QDBusMessage TestCall(const QDBusConnection &to, const QString &member)
{
    return QDBusMessage::createMethodCall(to.baseService(), u"/"_s, kTestInterface, member);
}

QString Described(const QDBusMessage &message)
{
    QStringList words {message.member()};
    for (const QVariant &argument : message.arguments()) {
        words << argument.toString();
    }
    QString text = words.join(u' ');
    if (message.isInteractiveAuthorizationAllowed()) {
        text += u", interactive"_s;
    }
    if (!message.isReplyRequired()) {
        text += u", no reply"_s;
    }
    return text;
}

} // namespace

class FakeService::Object : public QDBusVirtualObject
{
public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &from) override;

    // Used by both threads, under the lock.
    QMutex lock;
    QStringList states {u"inactive"_s};
    QStringList afterStart {u"active"_s};
    QStringList afterStop {u"inactive"_s};
    QStringList calls;
    int queries = 0;
    bool refuses = false;
    bool knowsUnit = true;
    bool answersNotices = true;
    QHash<QString, QVariantMap> units; // by the paths of their objects
    QString noticeError; // none when it is empty
    QString lastCount = u"2026-11-21T10:14:02"_s;
    QStringList problems;
    QList<QDBusMessage> unanswered;

private:
    void TakeNotice(const QDBusMessage &message, const QDBusConnection &from);
    QDBusMessage Answer(const QDBusMessage &message);
    QDBusMessage Command(const QDBusMessage &message, const QStringList &next);
    QString Property(const QString &name);
};

bool FakeService::Object::handleMessage(const QDBusMessage &message, const QDBusConnection &from)
{
    const QMutexLocker locked(&lock);
    if (message.interface() == u"org.tollbrook.Accounting1") {
        TakeNotice(message, from);
    } else if (message.interface() == kTestInterface) {
        if (message.member() == u"Mark") {
            calls << message.arguments().constFirst().toString();
        }
        from.send(message.createReply());
    } else {
        from.send(Answer(message));
    }
    return true;
}

void FakeService::Object::TakeNotice(const QDBusMessage &message, const QDBusConnection &from)
{
    calls << Described(message);
    if (!message.isReplyRequired()) {
        return;
    }
    if (!answersNotices) {
        unanswered << message;
        return;
    }
    from.send(noticeError.isEmpty() ? message.createReply()
                                    : message.createErrorReply(QDBusError::Failed, noticeError));
}

QDBusMessage FakeService::Object::Answer(const QDBusMessage &message)
{
    const QString member = message.member();
    const auto given = message.arguments();
    if (member == u"StartUnit") {
        return Command(message, afterStart);
    }
    if (member == u"StopUnit") {
        return Command(message, afterStop);
    }
    if (member == u"LoadUnit" && given.value(0) == u"tollbrooksvc.service"_s) {
        return message.createReply(QVariant::fromValue(QDBusObjectPath(kUnitPath)));
    }
    if (member == u"LoadUnit") {
        const QString path = PathOf(given.value(0).toString());
        return message.createReply(QVariant::fromValue(QDBusObjectPath(path)));
    }
    if (member == u"Get" && message.path() != kUnitPath) {
        const auto value = units.value(message.path(), {{u"LoadState"_s, u"not-found"_s}})
                               .value(given.value(1).toString());
        return value.isValid()
            ? message.createReply(QVariant::fromValue(QDBusVariant(value)))
            : message.createErrorReply(QDBusError::UnknownProperty, u"Not of this unit"_s);
    }
    if (member == u"Get" && message.path() == kUnitPath) {
        const QString value = Property(given.value(1).toString());
        return message.createReply(QVariant::fromValue(QDBusVariant(value)));
    }
    if (member == u"GetAll" && given.value(0) == u"org.tollbrook.Status1"_s) {
        return message.createReply(
            QVariantMap {{u"LastCount"_s, lastCount}, {u"Problems"_s, problems}});
    }
    return message.createErrorReply(QDBusError::UnknownMethod, u"The fake does not know this"_s);
}

QDBusMessage FakeService::Object::Command(const QDBusMessage &message, const QStringList &next)
{
    calls << Described(message);
    if (refuses) {
        return message.createErrorReply(QDBusError::AccessDenied, u"Not authorised"_s);
    }
    states = next;
    const QDBusObjectPath job(u"/org/freedesktop/systemd1/job/1"_s);
    return message.createReply(QVariant::fromValue(job));
}

QString FakeService::Object::Property(const QString &name)
{
    if (name == u"LoadState") {
        return knowsUnit ? u"loaded"_s : u"not-found"_s;
    }
    ++queries;
    return states.size() > 1 ? states.takeFirst() : states.constFirst();
}

FakeService::FakeService(PrivateBus &bus)
    : console(bus.Connection())
    , connection(bus.Connect())
    , object(std::make_unique<Object>())
{
    EXPECT_TRUE(connection.registerVirtualObject(u"/"_s, object.get(), QDBusConnection::SubPath));
    object->moveToThread(&thread);
    thread.start();
    EXPECT_TRUE(connection.registerService(kManager));
}

FakeService::~FakeService()
{
    connection.unregisterObject(u"/"_s, QDBusConnection::UnregisterTree);
    thread.quit();
    thread.wait();
}

void FakeService::SetStates(const QStringList &activeStates)
{
    const QMutexLocker locked(&object->lock);
    object->states = activeStates;
}

void FakeService::OnStart(const QStringList &activeStates)
{
    const QMutexLocker locked(&object->lock);
    object->afterStart = activeStates;
}

void FakeService::OnStop(const QStringList &activeStates)
{
    const QMutexLocker locked(&object->lock);
    object->afterStop = activeStates;
}

void FakeService::SetUnit(const QString &unit, const QVariantMap &properties)
{
    const QMutexLocker locked(&object->lock);
    object->units.insert(PathOf(unit), properties);
}

void FakeService::RefuseCommands()
{
    const QMutexLocker locked(&object->lock);
    object->refuses = true;
}

void FakeService::ForgetUnit()
{
    const QMutexLocker locked(&object->lock);
    object->knowsUnit = false;
}

void FakeService::LeaveManager()
{
    EXPECT_TRUE(connection.unregisterService(kManager));
}

void FakeService::SetReport(const QString &lastCount, const QStringList &problems)
{
    const QMutexLocker locked(&object->lock);
    object->lastCount = lastCount;
    object->problems = problems;
}

void FakeService::OfferAccounting()
{
    EXPECT_TRUE(connection.registerService(kAccounting));
}

void FakeService::LeaveAccounting()
{
    EXPECT_TRUE(connection.unregisterService(kAccounting));
}

void FakeService::RefuseNotices(const QString &text)
{
    const QMutexLocker locked(&object->lock);
    object->noticeError = text;
}

void FakeService::LeaveNoticesUnanswered()
{
    const QMutexLocker locked(&object->lock);
    object->answersNotices = false;
}

void FakeService::AnswerNotices()
{
    const QMutexLocker locked(&object->lock);
    object->answersNotices = true;
    for (const QDBusMessage &each : std::exchange(object->unanswered, {})) {
        connection.send(each.createReply());
    }
}

QStringList FakeService::TakeCalls()
{
    // Messages of one sender arrive in order: once this one is answered the others are here.
    const QDBusMessage answer = console.call(TestCall(connection, u"Sync"_s));
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    const QMutexLocker locked(&object->lock);
    return std::exchange(object->calls, {});
}

int FakeService::TakeQueries()
{
    const QMutexLocker locked(&object->lock);
    return std::exchange(object->queries, 0);
}

void FakeService::Mark(const QString &text)
{
    console.send(TestCall(connection, u"Mark"_s) << text);
}
