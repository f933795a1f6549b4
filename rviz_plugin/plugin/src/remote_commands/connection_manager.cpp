#include "connection_manager.h"

#include "remote_log.h"

#include <rviz/config.h>

#include <algorithm>

namespace rviz_plugin {

void ConnectionManager::Init(std::function<void()> configChanged)
{
    configChangedCallback = std::move(configChanged);
    if (!Connection::cipherHandler.IsInitialized()) {
        Connection::cipherHandler.Initialize();
    }
}

void ConnectionManager::Changed()
{
    Q_EMIT ConnectionsChanged();
    if (configChangedCallback) {
        configChangedCallback();
    }
}

void ConnectionManager::Add(const Connection& connection)
{
    const auto same = std::find_if(connections.begin(), connections.end(), [&](const Connection& saved) {
        return saved.GetIp() == connection.GetIp() && saved.GetUserName() == connection.GetUserName();
    });
    if (same == connections.end() && connections.size() >= maxConnections) {
        RemoteLog(Orsa::LogLevel::Warn,
                  "The number of saved connection information has reached the upper limit [10]. Delete unnecessary "
                  "connection information from the configuration file.");
        overflowConnection = connection;
        return;
    }
    if (same != connections.end()) {
        *same = connection;
    } else {
        connections.push_back(connection);
    }
    SetCurrentConnection(connection);
    Changed();
}

void ConnectionManager::Remove(const Connection& connection)
{
    const auto found = std::find(connections.begin(), connections.end(), connection);
    if (found == connections.end()) {
        return;
    }
    if (currentConnection == found) {
        currentConnection = connections.end();
    }
    connections.erase(found);
    overflowConnection = Connection();
    Changed();
}

Connection ConnectionManager::GetCurrentConnection() const
{
    if (!overflowConnection.IsEmpty() || connections.empty()) {
        return overflowConnection;
    }
    return currentConnection != connections.end() ? *currentConnection : connections.front();
}

void ConnectionManager::SetCurrentConnection(const Connection& connection)
{
    const auto found = std::find(connections.begin(), connections.end(), connection);
    if (found != connections.end()) {
        currentConnection = found;
        Q_EMIT ConnectionsChanged();
    }
}

Connection ConnectionManager::GetConnection(const QString& ip) const
{
    const auto found = std::find_if(connections.begin(), connections.end(),
                                    [&](const Connection& saved) { return saved.GetIp() == ip.toStdString(); });
    return found != connections.end() ? *found : Connection();
}

Connection ConnectionManager::GetConnection(const QString& ip, const QString& userName) const
{
    const auto found = std::find_if(connections.begin(), connections.end(), [&](const Connection& saved) {
        return saved.GetIp() == ip.toStdString() && saved.GetUserName() == userName.toStdString();
    });
    return found != connections.end() ? *found : Connection();
}

void ConnectionManager::Save(rviz::Config config) const
{
    GetCurrentConnection().Save(config.mapMakeChild("Current Connection"));
    rviz::Config list = config.mapMakeChild("Connections");
    list.setType(rviz::Config::List);
    for (const Connection& connection : connections) {
        connection.Save(list.listAppendNew());
    }
}

void ConnectionManager::Load(const rviz::Config& config)
{
    const rviz::Config list = config.mapGetChild("Connections");
    for (int index = 0; index < list.listLength(); ++index) {
        Connection connection;
        if (connection.Load(list.listChildAt(index))) {
            Add(connection);
        } else {
            RemoteError("Unable to load invalid connection information.");
        }
    }
    Connection current;
    if (current.Load(config.mapGetChild("Current Connection"))) {
        SetCurrentConnection(current);
    }
}

} // namespace rviz_plugin
