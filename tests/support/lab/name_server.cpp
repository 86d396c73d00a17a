#include "support/lab/name_server.h"

#include "support/lab/links.h"

#include <QFile>
#include <QRandomGenerator>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 kNamePort = 53;
constexpr int kHeader = 12; // bytes of a message before the question
constexpr int kPatienceMs = 50; // between two looks at whether to end

// As the resolver of the C library reads it.
QString ServersAddress()
{
    QFile file(u"/etc/resolv.conf"_s);
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            const QList<QByteArray> words = line.simplified().split(' ');
            if (words.size() == 2 && words[0] == "nameserver") {
                return QString::fromLatin1(words[1]);
            }
        }
    }
    return u"127.0.0.1"_s;
}

OpenFile SocketOfServer(const Laboratory &laboratory)
{
    const QString address = ServersAddress();
    const Visit visit(laboratory, Place::Gateway);
    if (!address.startsWith(u"127.")) {
        // It stands already for a second server of the process.
        static_cast<void>(
            Links::Open().value().AddLocal(address, address.contains(u':') ? 128 : 32));
    }
    return MakeSocket(laboratory, Place::Gateway, Transport::Udp, {address, kNamePort});
}

// The labels of the name that is asked for, with points between them.
QByteArray QuestionIn(const QByteArray &message)
{
    QByteArrayList labels;
    qsizetype at = kHeader;
    while (at < message.size() && message[at] != 0) {
        const auto size = static_cast<quint8>(message[at]);
        labels << message.mid(at + 1, size);
        at += size + 1;
    }
    return labels.join('.');
}

QByteArray
AnswerTo(const QByteArray &message, const QByteArray &question, const QByteArrayList &labels)
{
    const qsizetype end =
        kHeader + question.size() + 2 + 4; // of the question with its type and class
    QByteArray answer = message.left(end);
    answer[2] = static_cast<char>(0x84); // an answer by who knows it
    answer[3] = labels.isEmpty() ? '\3' : '\0'; // whether there is such a name
    const qsizetype counts = 6;
    answer.replace(
        counts, 6, QByteArray::fromHex(labels.isEmpty() ? "000000000000" : "000100000000"));
    if (labels.isEmpty()) {
        return answer;
    }
    QByteArray name;
    for (const QByteArray &label : labels) {
        name += static_cast<char>(label.size()) + label;
    }
    name += '\0';
    // The question's own name, a PTR of the Internet, an hour.
    answer += QByteArray::fromHex("c00c000c000100000e10");
    answer += static_cast<char>(name.size() >> 8);
    answer += static_cast<char>(name.size());
    return answer + name;
}

QByteArray Garbled(const QByteArray &answer, QRandomGenerator &random)
{
    QByteArray garbled = answer.left(kHeader + random.bounded(static_cast<int>(answer.size())));
    for (int i = 0; i < 8; ++i) {
        garbled[2 + random.bounded(static_cast<int>(garbled.size()) - 2)] =
            static_cast<char>(random.bounded(256)); // not in the number of the question
    }
    return garbled;
}

} // namespace

NameServer::NameServer(const Laboratory &laboratory, Names names, Garbles garbles)
    : namesOf(std::move(names))
    , isGarbled(std::move(garbles))
    , socket(SocketOfServer(laboratory))
    , thread([this] { Answer(); })
{ }

NameServer::~NameServer()
{
    stop = true;
    thread.join();
}

void NameServer::Answer()
{
    QRandomGenerator random(7);
    while (!stop) {
        pollfd waited {.fd = socket.Number(), .events = POLLIN, .revents = 0};
        if (poll(&waited, 1, kPatienceMs) <= 0) {
            continue;
        }
        QByteArray message(1 << 12, '\0');
        sockaddr_storage from {};
        socklen_t size = sizeof from;
        auto *const sender = reinterpret_cast<sockaddr *>(&from);
        const ssize_t bytes = recvfrom(
            socket.Number(), message.data(), static_cast<size_t>(message.size()), 0, sender, &size);
        if (bytes <= kHeader) {
            continue;
        }
        ++asked;
        message.truncate(bytes);
        const QByteArray question = QuestionIn(message);
        QByteArray answer = AnswerTo(message, question, namesOf(question));
        if (isGarbled(question)) {
            answer = Garbled(answer, random);
        }
        sendto(socket.Number(),
               answer.constData(),
               static_cast<size_t>(answer.size()),
               0,
               sender,
               size);
    }
}
