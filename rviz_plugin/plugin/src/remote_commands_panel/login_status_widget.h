#ifndef RVIZ_PLUGIN_LOGIN_STATUS_WIDGET_H
#define RVIZ_PLUGIN_LOGIN_STATUS_WIDGET_H

#include "remote_commands/connection.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace rviz_plugin {

// Who is logged in where, the result of the version check, and "Logout".
class LoginStatusWidget : public QWidget {
    Q_OBJECT
public:
    explicit LoginStatusWidget(QWidget* parent = nullptr);
    void SetData(const Connection& connection);
    void SetVersion(const QString& text);
    // From the version check: the car's version, the result and the local version.
    void SetCheckVersion(const QString& remoteVersion, const QString& result, const QString& localVersion);
    void Reset();
    void SetLoading(bool loading);

Q_SIGNALS:
    void LogoutButtonClicked();

private:
    QLabel* loginLabel = nullptr;
    QLabel* versionLabel = nullptr;
    QPushButton* logoutButton = nullptr;
};

} // namespace rviz_plugin

#endif
