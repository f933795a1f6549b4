#include "topic_rename_dialog.h"

#include "foundation/set_qss.h"
#include "rename_table_delegate.h"
#include "rename_table_model.h"
#include "rename_table_view.h"
#include "widgets/buttons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace rviz_plugin {

TopicRenameDialog::TopicRenameDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName("TopicRenameDialog");
    setWindowTitle("Set Name");
}

void TopicRenameDialog::Initialize()
{
    auto* layout = new QVBoxLayout(this);
    description = new QLabel(this);
    description->setObjectName("TopicRenameDialog_description");
    layout->addWidget(description);
    tableView = new RenameTableView(this);
    layout->addWidget(tableView, 1);
    warningLabel = new QLabel(this);
    warningLabel->setObjectName("TopicRenameDialog_warning");
    layout->addWidget(warningLabel);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    saveButton = new PrimaryButton("Save", this);
    saveButton->setObjectName("TopicRenameDialog_save");
    cancelButton = new SecondaryButton("Cancel", this);
    cancelButton->setObjectName("TopicRenameDialog_cancel");
    buttons->addWidget(saveButton);
    buttons->addWidget(cancelButton);
    layout->addLayout(buttons);
    SetDescription();
    SetTopicTableView();
    InitConnection();
    SetQss().SetStyle(this, ":/renameqrc/assets/qss/rename_main.qss");
}

void TopicRenameDialog::SetDescription()
{
    description->setText("Select topics to rename.");
}

void TopicRenameDialog::SetTopicTableView()
{
    model = new RenameTableModel(this);
    delegate = new RenameTableDelegate(model, this);
    tableView->setModel(model);
    tableView->setItemDelegateForColumn(1, delegate);
}

void TopicRenameDialog::InitConnection()
{
    connect(saveButton, &QPushButton::clicked, this, &TopicRenameDialog::SaveAction);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(delegate, &RenameTableDelegate::DuplicateWarningInfo, this, &TopicRenameDialog::SetSaveButtonStatus);
}

void TopicRenameDialog::InitDisplayData()
{
    model->InitRenameData();
    UpdateTableView();
    delegate->ClearWarningRecord();
}

void TopicRenameDialog::UpdateTableView()
{
    tableView->resizeRowsToContents();
}

void TopicRenameDialog::SetSaveButtonStatus(const RowWarnings& warnings)
{
    saveButton->setEnabled(warnings.empty());
    warningLabel->setText(warnings.empty() ? QString() : QString::fromStdString(warnings.begin()->second));
}

void TopicRenameDialog::SaveAction()
{
    if (model->WriteRenameData()) {
        Q_EMIT NamesSaved();
    }
    accept();
}

} // namespace rviz_plugin
