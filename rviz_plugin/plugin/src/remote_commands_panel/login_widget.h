#ifndef RVIZ_PLUGIN_LOGIN_WIDGET_H
#define RVIZ_PLUGIN_LOGIN_WIDGET_H

#include "remote_commands/connection.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class PasswordLineEdit;

namespace rviz_plugin {

class ConnectionManager;

// The login form: address, port, user and password (filled in for a saved address and user).
class LoginWidget : public QWidget {
    Q_OBJECT
public:
    LoginWidget(ConnectionManager* manager, QWidget* parent = nullptr);

    void OnConnectionsChanged();
    void OnIpComboBoxIndexChanged(const QString& ip);
    void OnUserNameComboBoxIndexChanged(const QString& name);
    void SetConnection(const Connection& connection);
    // All four fields hold text; otherwise the error is shown.
    bool CheckLoginData();
    // The form's login, the password encrypted (the clear text is wiped).
    Connection GetConnectionInfo() const;
    void ShowError(const QString& text);
    void ClearPassword();
    void SetLoading(bool loading);

Q_SIGNALS:
    void LoginButtonClicked();

private:
    ConnectionManager* connectionManager;
    QComboBox* ipComboBox = nullptr;
    QLineEdit* portLineEdit = nullptr;
    QComboBox* userNameComboBox = nullptr;
    PasswordLineEdit* passwordLineEdit = nullptr;
    QPushButton* loginButton = nullptr;
    QLabel* errorLabel = nullptr;
};

} // namespace rviz_plugin

#endif
