// Servers of one test program alone, for what nobody else could bear beside it (see the script "servers").
#pragma once

#include <QString>

#include <gtest/gtest.h>

class OwnServers : public testing::Environment
{
public:
    // Has them started by `action`, as the script calls it, before the first test, and stopped after the
    // last one. `name` parts them from those of other programs. Their data sources "postgresql" and
    // "mariadb" are defined.
    static const OwnServers *Add(const QString &action, const QString &name);

    [[nodiscard]] QString Folder() const;

    // Has the script do something to them; a failure fails the test.
    void Run(const QString &action) const;

    void SetUp() override;
    void TearDown() override { Run(QStringLiteral("stop")); }

private:
    OwnServers(QString action, QString name);

    QString start;
    QString ownName;
};
