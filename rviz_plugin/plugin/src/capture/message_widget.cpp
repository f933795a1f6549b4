#include "message_widget.h"

#include "widgets/buttons.h"

#include <QApplication>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>

namespace rviz_plugin {

MessageWidget::MessageWidget(QWidget* parent) : QDialog(parent)
{
    setObjectName("MessageWidget");
    setWindowTitle("Capture Multisensor Data");
    icon = new QLabel(this);
    icon->setPixmap(QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(32, 32));
    icon->hide();
    text = new QLabel(this);
    text->setWordWrap(true);
    text->setMinimumWidth(360);
    progress = new QLabel(this);
    openButton = new PrimaryButton("Open", this);
    openButton->hide();
    auto* close = new SecondaryButton("Close", this);
    auto* row = new QHBoxLayout();
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(text, 1);
    row->addWidget(progress, 0, Qt::AlignTop);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(close);
    buttons->addWidget(openButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addLayout(buttons);
    connect(openButton, &QPushButton::clicked, this,
            [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
    connect(close, &QPushButton::clicked, this, &QDialog::hide);
}

void MessageWidget::ShowMessage(const QString& message)
{
    icon->hide();
    text->setText(message);
    progress->clear();
    openButton->hide();
    show();
    raise();
}

void MessageWidget::ShowFailure(const QString& message)
{
    ShowMessage(message);
    icon->show();
}

void MessageWidget::SetPercent(int percent)
{
    progress->setText(QString("(%1%)").arg(percent));
}

void MessageWidget::SetCount(int done, int total)
{
    progress->setText(QString("(%1/%2)").arg(done).arg(total));
}

void MessageWidget::SetFolder(const QString& exportFolder)
{
    folder = exportFolder;
    openButton->setVisible(!folder.isEmpty());
}

QString MessageWidget::GetText() const
{
    return text->text();
}

QString MessageWidget::GetProgress() const
{
    return progress->text();
}

} // namespace rviz_plugin
