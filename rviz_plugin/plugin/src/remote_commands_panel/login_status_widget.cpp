#include "login_status_widget.h"

#include "widgets/buttons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace rviz_plugin {

LoginStatusWidget::LoginStatusWidget(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    auto* texts = new QVBoxLayout;
    loginLabel = new QLabel(this);
    loginLabel->setObjectName("LoginStatusWidget_login");
    versionLabel = new QLabel(this);
    versionLabel->setObjectName("LoginStatusWidget_version");
    texts->addWidget(loginLabel);
    texts->addWidget(versionLabel);
    layout->addLayout(texts, 1);
    logoutButton = new SecondaryButton("Logout", this);
    logoutButton->setObjectName("LoginStatusWidget_logout");
    layout->addWidget(logoutButton);
    connect(logoutButton, &QPushButton::clicked, this, &LoginStatusWidget::LogoutButtonClicked);
}

void LoginStatusWidget::SetData(const Connection& connection)
{
    loginLabel->setText(QString("Logged in: %1@%2:%3")
                            .arg(QString::fromStdString(connection.GetUserName()),
                                 QString::fromStdString(connection.GetIp()),
                                 QString::fromStdString(connection.GetPort())));
}

void LoginStatusWidget::SetVersion(const QString& text)
{
    versionLabel->setText("API version: " + text);
}

void LoginStatusWidget::SetCheckVersion(const QString& remoteVersion, const QString& result,
                                        const QString& localVersion)
{
    SetVersion(QString("%1 (car %2, local %3)").arg(result, remoteVersion, localVersion));
}

void LoginStatusWidget::Reset()
{
    loginLabel->clear();
    versionLabel->clear();
    SetLoading(false);
}

void LoginStatusWidget::SetLoading(bool loading)
{
    logoutButton->setEnabled(!loading);
}

} // namespace rviz_plugin
