#ifndef RVIZ_PLUGIN_CONNECTION_MANAGER_H
#define RVIZ_PLUGIN_CONNECTION_MANAGER_H

#include "connection.h"

#include <QObject>
#include <QString>

#include <functional>
#include <list>

namespace rviz {
class Config;
}

namespace rviz_plugin {

// Up to 10 saved logins, keyed by address and user name, and the one in use; kept in the panel's
// configuration ("Current Connection", "Connections").
class ConnectionManager : public QObject {
    Q_OBJECT
public:
    static constexpr std::size_t maxConnections = 10;

    void Init(std::function<void()> configChanged);
    void Add(const Connection& connection);
    void Remove(const Connection& connection);
    const std::list<Connection>& GetConnections() const { return connections; }
    Connection GetCurrentConnection() const;
    void SetCurrentConnection(const Connection& connection);
    Connection GetConnection(const QString& ip) const;
    Connection GetConnection(const QString& ip, const QString& userName) const;
    void Save(rviz::Config config) const;
    void Load(const rviz::Config& config);

Q_SIGNALS:
    void ConnectionsChanged();

private:
    void Changed();

    std::list<Connection> connections;
    std::list<Connection>::iterator currentConnection = connections.end();
    Connection overflowConnection;
    std::function<void()> configChangedCallback;
};

} // namespace rviz_plugin

#endif
