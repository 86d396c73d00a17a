// The nodes that the script packaging/try/galera starts, and the data sources that lead to them.
#pragma once

#include <QString>
#include <QStringList>

// The data source that names all three nodes.
inline constexpr char kCluster[] = "cluster";

class Nodes
{
public:
    // Starts a new cluster with the schema in `folder`, and ends it with the object.
    Nodes(const QString &script, const QString &folder);
    ~Nodes();
    Nodes(const Nodes &) = delete;
    Nodes &operator=(const Nodes &) = delete;

    // Why there is no cluster; empty when there is one.
    [[nodiscard]] const QString &Problem() const { return problem; }

    // The data source of one node, 1 to 3.
    [[nodiscard]] static QByteArray Only(int node);

    // Runs an action of the script, as "kill", for nodes as "2 3". The program ends where that fails.
    void Do(const QString &action, const QStringList &nodes) const;

private:
    [[nodiscard]] bool Run(const QStringList &arguments) const;
    void DefineDataSources() const;

    QString script;
    QString folder;
    QString problem;
};
