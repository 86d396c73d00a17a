// What is wrong with the service's work for a while.
#pragma once

#include <QObject>
#include <QStringList>

#include <map>

class Troubles : public QObject
{
    Q_OBJECT

public:
    enum class Kind { Adapter, Database, Kernel, Flowtables, Settings, StateFile, Clock };

    using QObject::QObject;

    // An empty text: it is over. The journal and the service manager hear of it once when it begins and
    // once when it is over.
    void Set(Kind kind, const QString &text);

    [[nodiscard]] bool Has(Kind kind) const { return texts.contains(kind); }
    [[nodiscard]] QStringList Texts() const;

signals:
    void Changed();

private:
    std::map<Kind, QString> texts;
};
