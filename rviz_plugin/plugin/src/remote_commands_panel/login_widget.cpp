#include "login_widget.h"

#include "foundation/bounded_memory.h"
#include "remote_commands/connection_manager.h"
#include "remote_commands/remote_log.h"
#include "remote_commands/session.h"
#include "widgets/buttons.h"
#include "widgets/password_line_edit.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
QComboBox* EditableComboBox(const QString& placeholder, int maxLength, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->lineEdit()->setPlaceholderText(placeholder);
    box->lineEdit()->setMaxLength(maxLength);
    return box;
}
} // namespace

LoginWidget::LoginWidget(ConnectionManager* manager, QWidget* parent) : QWidget(parent), connectionManager(manager)
{
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    ipComboBox = EditableComboBox("Enter an IP address", 39, this);
    ipComboBox->setObjectName("LoginWidget_ip");
    portLineEdit = new QLineEdit(this);
    portLineEdit->setObjectName("LoginWidget_port");
    portLineEdit->setPlaceholderText("Enter a port number");
    portLineEdit->setMaxLength(5);
    userNameComboBox = EditableComboBox("Enter a user name", 128, this);
    userNameComboBox->setObjectName("LoginWidget_user");
    passwordLineEdit = new PasswordLineEdit(this);
    passwordLineEdit->setObjectName("LoginWidget_password");
    passwordLineEdit->setPlaceholderText("Enter the password");
    passwordLineEdit->setMaxLength(30);
    form->addRow("IP Address", ipComboBox);
    form->addRow("Port", portLineEdit);
    form->addRow("User Name", userNameComboBox);
    form->addRow("Password", passwordLineEdit);
    layout->addLayout(form);
    loginButton = new PrimaryButton("Login", this);
    loginButton->setObjectName("LoginWidget_login");
    layout->addWidget(loginButton);
    errorLabel = new QLabel(this);
    errorLabel->setObjectName("LoginWidget_error");
    errorLabel->setStyleSheet("color: #e02020;");
    errorLabel->setWordWrap(true);
    layout->addWidget(errorLabel);
    layout->addStretch(1);

    connect(loginButton, &QPushButton::clicked, this, &LoginWidget::LoginButtonClicked);
    for (QLineEdit* edit : {ipComboBox->lineEdit(), portLineEdit, userNameComboBox->lineEdit(),
                            static_cast<QLineEdit*>(passwordLineEdit)}) {
        connect(edit, &QLineEdit::returnPressed, loginButton, &QPushButton::click);
    }
    connect(ipComboBox, QOverload<int>::of(&QComboBox::activated), this,
            [this]() { OnIpComboBoxIndexChanged(ipComboBox->currentText()); });
    connect(userNameComboBox, QOverload<int>::of(&QComboBox::activated), this,
            [this]() { OnUserNameComboBoxIndexChanged(userNameComboBox->currentText()); });
    connect(connectionManager, &ConnectionManager::ConnectionsChanged, this, &LoginWidget::OnConnectionsChanged);
}

void LoginWidget::OnConnectionsChanged()
{
    const QSignalBlocker blocker(ipComboBox);
    const QString typed = ipComboBox->currentText();
    ipComboBox->clear();
    for (const Connection& connection : connectionManager->GetConnections()) {
        const QString ip = QString::fromStdString(connection.GetIp());
        if (ipComboBox->findText(ip) < 0) {
            ipComboBox->addItem(ip);
        }
    }
    ipComboBox->setEditText(typed);
    SetConnection(connectionManager->GetCurrentConnection());
}

void LoginWidget::OnIpComboBoxIndexChanged(const QString& ip)
{
    userNameComboBox->clear();
    portLineEdit->clear();
    ClearPassword();
    for (const Connection& connection : connectionManager->GetConnections()) {
        if (connection.GetIp() == ip.toStdString()) {
            userNameComboBox->addItem(QString::fromStdString(connection.GetUserName()));
        }
    }
    SetConnection(connectionManager->GetConnection(ip));
}

void LoginWidget::OnUserNameComboBoxIndexChanged(const QString& name)
{
    ClearPassword();
    const Connection connection = connectionManager->GetConnection(ipComboBox->currentText(), name);
    if (!connection.IsEmpty()) {
        SetConnection(connection);
    }
}

void LoginWidget::SetConnection(const Connection& connection)
{
    ipComboBox->setEditText(QString::fromStdString(connection.GetIp()));
    portLineEdit->setText(QString::fromStdString(connection.GetPort()));
    userNameComboBox->setEditText(QString::fromStdString(connection.GetUserName()));
    passwordLineEdit->Wipe();
    if (connection.GetPassword().empty()) {
        return;
    }
    unsigned char buffer[Session::passwordBufferSize];
    int length = 0;
    if (connection.GetDecryptedPassword(buffer, sizeof(buffer), length)) {
        passwordLineEdit->setText(QString::fromUtf8(reinterpret_cast<const char*>(buffer), length));
    } else {
        RemoteError("Failed to decrypted password.");
    }
    memset_s(buffer, sizeof(buffer), 0, sizeof(buffer));
}

bool LoginWidget::CheckLoginData()
{
    if (ipComboBox->currentText().isEmpty() || portLineEdit->text().isEmpty() ||
        userNameComboBox->currentText().isEmpty() || passwordLineEdit->text().isEmpty()) {
        ShowError("Please enter the login information.");
        return false;
    }
    return true;
}

Connection LoginWidget::GetConnectionInfo() const
{
    Connection connection;
    connection.SetIp(ipComboBox->currentText().toStdString());
    connection.SetPort(portLineEdit->text().toStdString());
    connection.SetUserName(userNameComboBox->currentText().toStdString());
    std::string password = passwordLineEdit->text().toStdString();
    connection.SetPassword(password);
    memset_s(password.data(), password.size(), 0, password.size());
    return connection;
}

void LoginWidget::ShowError(const QString& text)
{
    errorLabel->setText(text);
}

void LoginWidget::ClearPassword()
{
    passwordLineEdit->Wipe();
}

void LoginWidget::SetLoading(bool loading)
{
    loginButton->setEnabled(!loading);
    loginButton->setText(loading ? QString() : QString("Login"));
    if (loading) {
        ShowError(QString());
    }
}

} // namespace rviz_plugin
