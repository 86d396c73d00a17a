// A configuration folder of a test's own, and the lines that the store logs.
#pragma once

#include "config/config_store.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

class StoreFixture : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(folder.isValid()); }

    void MakeBaseKey() { ASSERT_TRUE(store.CreateKey(ConfigKeyId::Base)); }

    // The base key's file, written as a person would.
    void WriteByHand(const QByteArray &text)
    {
        MakeBaseKey();
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    [[nodiscard]] static QByteArray BytesOf(const QString &file)
    {
        QFile reader(file);
        return reader.open(QIODevice::ReadOnly) ? reader.readAll() : QByteArray("(none)");
    }

    QTemporaryDir folder;
    ConfigStore store {folder.filePath(QStringLiteral("etc"))};
    QString path = store.FileOf(ConfigKeyId::Base);
};

// Collects the warnings of the program while it lives.
class WarningCollector
{
public:
    WarningCollector() : previous(qInstallMessageHandler(Take)) { Lines().clear(); }
    ~WarningCollector() { qInstallMessageHandler(previous); }
    WarningCollector(const WarningCollector &) = delete;
    WarningCollector &operator=(const WarningCollector &) = delete;

    [[nodiscard]] static QStringList &Lines()
    {
        static QStringList lines;
        return lines;
    }

private:
    static void Take(QtMsgType, const QMessageLogContext &context, const QString &text)
    {
        Lines().append(QString::fromLatin1(context.category) + QStringLiteral(": ") + text);
    }

    QtMessageHandler previous;
};
