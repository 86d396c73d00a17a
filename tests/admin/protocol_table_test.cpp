#include "admin/protocol_table.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// A monitored protocol of the database; each port is its number and its id.
Protocol Stored(const QString &name, quint32 id, const QList<std::pair<qint32, quint32>> &ports)
{
    Protocol protocol {
        .name = name, .ports = {}, .id = ProtocolId {id}, .monitored = true, .wasMonitored = true};
    for (const auto &[number, portId] : ports) {
        protocol.ports << ProtocolPort {number, PortId {portId}};
    }
    return protocol;
}

RemovedPort Removed(quint32 protocolId, qint32 number, quint32 portId)
{
    return {ProtocolId {protocolId}, {number, PortId {portId}}};
}

ProtocolTable HttpAndFtp()
{
    return ProtocolTable(
        {Stored(u"FTP"_s, 2, {{20, 201}, {21, 202}}), Stored(u"HTTP"_s, 1, {{80, 101}})});
}

QString Described(const ProtocolTable &table)
{
    QStringList lines;
    for (const Protocol &protocol : table.Protocols()) {
        QStringList ports;
        for (const ProtocolPort &port : protocol.ports) {
            ports << u"%1#%2"_s.arg(port.number).arg(port.id.value);
        }
        lines << u"%1#%2 %3"_s.arg(protocol.name).arg(protocol.id.value).arg(ports.join(u','));
    }
    return lines.join(u"; "_s);
}

} // namespace

TEST(ProtocolTable, NamesAreComparedWithoutLetterCase)
{
    ProtocolTable table = HttpAndFtp();
    EXPECT_EQ(TextOf(table.Add(u"http"_s).value()), u"This protocol is already in the list!"_s);
    EXPECT_EQ(table.Add(u""_s), ProtocolProblem::NameMissing);
    EXPECT_EQ(table.Add(u"Gopher"_s), std::nullopt);
    EXPECT_EQ(table.Add(u"GOPHER"_s), ProtocolProblem::ProtocolListed);
    EXPECT_EQ(Described(table), u"FTP#2 20#201,21#202; HTTP#1 80#101; Gopher#0 "_s);
    EXPECT_TRUE(table.Protocols().last().isNew);
    EXPECT_EQ(table.IndexOf(u"Gopher"_s), 2);
    EXPECT_EQ(table.IndexOf(u"gopher"_s), -1) << "a line of the list is found by its exact name";
}

TEST(ProtocolTable, PortsLieBetween1And65535AndAreListedOnce)
{
    ProtocolTable table = HttpAndFtp();
    EXPECT_EQ(TextOf(table.AddPort(1, 80).value()), u"This port is already in list!"_s);
    for (const std::optional<qint32> number :
         {std::optional<qint32>(), std::optional(0), std::optional(-1), std::optional(65536)}) {
        EXPECT_EQ(TextOf(table.AddPort(1, number).value()),
                  u"Enter a port number between 1 and 65535 please"_s);
    }
    for (const qint32 number : {1, 65535, 20}) {
        EXPECT_EQ(table.AddPort(1, number), std::nullopt) << number;
    }
    EXPECT_EQ(Described(table), u"FTP#2 20#201,21#202; HTTP#1 80#101,1#0,65535#0,20#0"_s);
}

TEST(ProtocolTable, ADraftIsChangedBesideItsBase)
{
    const ProtocolTable base = HttpAndFtp();
    ProtocolTable draft = base;
    EXPECT_EQ(draft.AddPort(1, 8080), std::nullopt);
    EXPECT_EQ(draft.AddPort(1, 8080), ProtocolProblem::PortListed);
    EXPECT_EQ(Described(base), u"FTP#2 20#201,21#202; HTTP#1 80#101"_s);
    EXPECT_EQ(Described(draft), u"FTP#2 20#201,21#202; HTTP#1 80#101,8080#0"_s);
}

TEST(ProtocolTable, HoldsAHundredOfEach)
{
    ProtocolTable table;
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(table.Add(QString::number(i)), std::nullopt);
        ASSERT_EQ(table.AddPort(0, i + 1), std::nullopt);
    }
    EXPECT_EQ(TextOf(table.Add(u"one more"_s).value()),
              u"You can not add more than 100 protocols"_s);
    EXPECT_EQ(TextOf(table.AddPort(0, 101).value()),
              u"You can not add more than 100 ports to a protocol"_s);
    EXPECT_EQ(table.AddPort(0, 100), ProtocolProblem::PortListed);
}

TEST(ProtocolTable, WhatIsRemovedAndAddedAgainKeepsItsRow)
{
    ProtocolTable table = HttpAndFtp();
    table.RemovePort(0, 1);
    EXPECT_EQ(table.RemovedPorts(), QList<RemovedPort> {Removed(2, 21, 202)});
    EXPECT_EQ(table.AddPort(0, 21), std::nullopt);
    EXPECT_TRUE(table.RemovedPorts().isEmpty());
    EXPECT_EQ(Described(table), u"FTP#2 20#201,21#202; HTTP#1 80#101"_s);

    table.Remove(0);
    ASSERT_EQ(table.RemovedProtocols().size(), 1);
    EXPECT_EQ(table.Add(u"ftp"_s), std::nullopt);
    EXPECT_TRUE(table.RemovedProtocols().isEmpty());
    EXPECT_EQ(Described(table), u"HTTP#1 80#101; FTP#2 "_s) << "it has no ports";
    EXPECT_FALSE(table.Protocols()[1].monitored);
    EXPECT_EQ(table.RemovedPorts(),
              (QList<RemovedPort> {Removed(2, 20, 201), Removed(2, 21, 202)}));
    EXPECT_EQ(table.AddPort(1, 21), std::nullopt);
    EXPECT_EQ(Described(table), u"HTTP#1 80#101; FTP#2 21#202"_s);

    EXPECT_EQ(table.Add(u"new"_s), std::nullopt);
    EXPECT_EQ(table.AddPort(2, 7), std::nullopt);
    table.RemovePort(2, 0);
    table.Remove(2);
    EXPECT_EQ(table.RemovedPorts(), QList<RemovedPort> {Removed(2, 20, 201)})
        << "what never was in the database leaves nothing to delete";
    EXPECT_TRUE(table.RemovedProtocols().isEmpty());
}

TEST(ProtocolTable, APortComesBackToItsOwnProtocolAlone)
{
    ProtocolTable table = HttpAndFtp();
    table.RemovePort(1, 0);
    EXPECT_EQ(table.AddPort(0, 80), std::nullopt);
    EXPECT_EQ(Described(table), u"FTP#2 20#201,21#202,80#0; HTTP#1 "_s) << "HTTP's row is HTTP's";
    EXPECT_EQ(table.RemovedPorts(), QList<RemovedPort> {Removed(1, 80, 101)});
    EXPECT_EQ(table.RemovedPortsOf(ProtocolId {1}).size(), 1);
    EXPECT_TRUE(table.RemovedPortsOf(ProtocolId {2}).isEmpty());
    EXPECT_EQ(table.AddPort(1, 80), std::nullopt);
    EXPECT_EQ(Described(table), u"FTP#2 20#201,21#202,80#0; HTTP#1 80#101"_s);
    EXPECT_TRUE(table.RemovedPorts().isEmpty());
}

TEST(ProtocolTable, WhatTheWizardUnlistsComesBackWithItsPorts)
{
    const QList<Protocol> unlisted {Stored(u"Mail"_s, 3, {{25, 301}})};
    ProtocolTable table(HttpAndFtp().Protocols(), {Stored(u"Mail"_s, 3, {{25, 301}})});
    table.Remove(0);
    for (const auto &name : {u"ftp"_s, u"mail"_s}) {
        EXPECT_EQ(table.Add(name), std::nullopt);
    }
    EXPECT_EQ(Described(table), u"HTTP#1 80#101; FTP#2 20#201,21#202; Mail#3 25#301"_s);
    EXPECT_TRUE(table.RemovedPorts().isEmpty());
}

TEST(ProtocolTable, OnlySpecifiedOnlyAsksAboutNone)
{
    for (const int mode : {0, 1, 3}) {
        EXPECT_EQ(QuestionOnMonitoring(false, mode), std::nullopt) << mode;
    }
    EXPECT_EQ(QuestionOnMonitoring(true, 2), std::nullopt);
    EXPECT_EQ(QuestionOnMonitoring(false, 2),
              u"You have not selected any protocol. Tollbrook will not track any traffic with this "
              "setup. Would you like to continue?"_s);

    ProtocolTable table = HttpAndFtp();
    EXPECT_TRUE(table.AnyMonitored());
    table.SetMonitored(0, false);
    table.SetMonitored(1, false);
    EXPECT_FALSE(table.AnyMonitored());
}
